// What tests of the look-ups share: a host in memory, the component, and the result of a look-up.
#pragma once

#include "Calls.h"
#include "LogBook.h"
#include "MemoryHost.h"
#include "Untouched.h"
#include "XQPComBSTR.h"
#include "XQPSelectOrvoItem.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// How a look-up ended: its status, and its result by name, "null" or "untouched".
struct Answer
{
    HRESULT status;
    std::string result;

    bool operator==(const Answer&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, const Answer& answer)
{
    return stream << std::hex << answer.status << std::dec << " " << answer.result;
}

class LookupFixture : public ::testing::Test
{
protected:
    using Data = IQP_BaseDataObject;

    LookupFixture()
    {
        CreateComObject<qptools::XQPSelectOrvoItem>(nullptr, __uuidof(IQPSelectOrvoItem), item.putVoid());
    }

    /// Runs a look-up that writes an object and takes over what it wrote.
    template <class Call>
    Answer Ask(Call&& call)
    {
        host.calls.clear();
        Data* result = Untouched<Data>();
        const HRESULT status = call(&result);
        return {status, TakeOver(result)};
    }

    std::string TakeOver(Data* result)
    {
        if (result == Untouched<Data>())
            return "untouched";
        ComPtr<Data> owned;
        owned.attach(result);
        return host.NameOf(result);
    }

    static std::string TakeOver(BSTR result)
    {
        if (result == reinterpret_cast<BSTR>(Untouched<int>()))
            return "untouched";
        XQPComBSTR owned;
        owned.Attach(result);
        return result ? Utf8Of(owned) : "null";
    }

    Answer ProjectOf(Data* object)
    {
        return Ask([&](Data** result) { return item->GetProject(object, result); });
    }
    Answer ProjectOf(const ComPtr<MemoryObject>& object) { return ProjectOf(object.get()); }

    /// What an attribute that refers to `object` holds.
    static VARIANT Reference(VARTYPE type, IUnknown* object)
    {
        VARIANT value;
        VariantInit(&value);
        value.vt = type;
        value.punkVal = object;
        return value;
    }

    static Calls ClassTests(const std::string& object, const std::vector<std::string>& classes)
    {
        Calls calls;
        for (const std::string& name : classes)
            calls.push_back(object + ".IsDerivedFromClass(" + name + ")");
        return calls;
    }

    LogBook logBook;
    MemoryHost host;
    ComPtr<IQPSelectOrvoItem> item;

    /// An object of the host that is no data object.
    ComPtr<MemoryEnum> noDataObject = host.List({});
};

/// The whole record, call by call.
#define EXPECT_CALLS(...) EXPECT_EQ(host.calls, (__VA_ARGS__))
