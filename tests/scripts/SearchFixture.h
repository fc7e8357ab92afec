// What the tests of both finders share: a host in memory with a plan type set, a plan type and their masters.
#pragma once

#include "Calls.h"
#include "MemoryHost.h"
#include "Untouched.h"
#include "XQPComBSTR.h"

#include "Bstr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

inline std::string Cat(int catenation)
{
    return "SetSearchCatenation(" + std::to_string(catenation) + ")";
}

/// A criterion of equality, joined to nothing.
inline std::string Equal(const std::string& attribute, const std::string& value)
{
    return "SetSearchAttribute(" + attribute + ", 1, " + value + ", 0)";
}

/// The whole record, call by call.
#define EXPECT_CALLS(...) EXPECT_EQ(host.calls, (__VA_ARGS__))

class SearchFixture : public ::testing::Test
{
protected:
    /// The master is reached through an object that is not the master itself, so that the record shows which
    /// of the two is passed on.
    void GiveSetMaster() { set->Set(L"master", masterSetReference.get()); }
    void GivePlanTypeMaster() { planType->Set(L"master", masterPlanTypeReference.get()); }

    /// One way to have no master.
    struct NoMaster
    {
        const char* way;
        std::function<void(MemoryObject& object)> give;
    };

    /// All of them. `reference` refers to a data object and is returned with statuses other than S_OK.
    std::vector<NoMaster> NoMasters(const ComPtr<IUnknown>& reference)
    {
        const auto answer = [reference](HRESULT status) {
            return [reference, status](MemoryObject& object) {
                VARIANT value;
                value.vt = VT_UNKNOWN;
                value.punkVal = reference.get();
                object.Answer(L"master", status, value);
            };
        };
        return {{"a failure", answer(E_FAIL)},
                {"S_FALSE", answer(S_FALSE)},
                {"another success", answer(static_cast<HRESULT>(2))},
                {"no value",
                 [](MemoryObject& object) {
                     object.Fail(L"master", S_OK);
                 }},
                {"a text",
                 [](MemoryObject& object) {
                     object.Set(L"master", L"master");
                 }},
                {"a number",
                 [](MemoryObject& object) {
                     object.Set(L"master", LONG{1});
                 }},
                {"a null reference",
                 [](MemoryObject& object) {
                     object.Set(L"master", static_cast<IUnknown*>(nullptr));
                 }},
                {"no data object", [this](MemoryObject& object) {
                     object.Set(L"master", static_cast<IEnumBaseDataObject*>(host.List({}).get()));
                 }}};
    }

    MemoryHost host;
    ComPtr<MemoryObject> set = host.Object("set");
    ComPtr<MemoryObject> planType = host.Object("plantype");
    ComPtr<MemoryObject> masterSet = host.Object("masterset");
    ComPtr<MemoryObject> masterPlanType = host.Object("masterplantype");
    ComPtr<IUnknown> masterSetReference = host.ReferenceTo("reference to masterset", masterSet);
    ComPtr<IUnknown> masterPlanTypeReference =
        host.ReferenceTo("reference to masterplantype", masterPlanType);
    MemoryQuery& query = host.Query();

    const Calls setMasterRead = {"set.GetAttribute(master)"};
    const Calls bothMastersRead = {"set.GetAttribute(master)", "plantype.GetAttribute(master)"};
    const Calls inSet = {Equal("orvoplantypeset", "UNKNOWN set"), Cat(1)};
    const Calls inSetOrMaster = {Cat(4), Equal("orvoplantypeset", "UNKNOWN set"), Cat(2),
                                 Equal("orvoplantypeset", "UNKNOWN reference to masterset"), Cat(9)};
};
