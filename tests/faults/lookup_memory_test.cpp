// The look-ups of an object's context while memory runs out: at every single allocation of their own, once
// and for good.
#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "XQPComBSTR.h"

#include "XQPSelectOrvoItem.h"
#include "XSelectOrvoitemDlg.h"

#include "UiState.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{
class LookupMemory : public ::testing::TestWithParam<FaultyMemory::Failing>
{
protected:
    using Data = IQP_BaseDataObject;

    LookupMemory()
    {
        CreateComObject<qptools::XQPSelectOrvoItem>(nullptr, __uuidof(IQPSelectOrvoItem), item.putVoid());
        object->Is(L"XDOScriptAction")->Table(L"subcompitem");
        object->Set(L"m_pOrvoPlanTypeSet", set)->Set(L"orvoplantype", planType)->Set(L"orvocompbase", base);
        set->Set(L"orvoproject", project);
    }

    /// Fails the allocations of `call` in turn. Each such run must return E_OUTOFMEMORY, and none keeps
    /// anything.
    void Sweep(const std::function<HRESULT()>& call, int atLeast)
    {
        ASSERT_EQ(call(), S_OK);
        const int objects = host.LiveObjects();
        int refused = 0;
        for (long n = 1;; ++n)
        {
            HRESULT status = E_UNEXPECTED;
            bool struck = false;
            {
                const FaultyMemory memory(n, GetParam(), &MemoryHost::InCall);
                status = call();
                struck = memory.Struck();
            }
            EXPECT_EQ(CUiState::Depth(), 0);
            EXPECT_EQ(host.LiveObjects(), objects);
            ASSERT_EQ(status, struck ? E_OUTOFMEMORY : S_OK) << "allocation " << n;
            if (!struck)
                break;
            ++refused;
        }
        EXPECT_GE(refused, atLeast);
    }

    MemoryHost host;
    const ComPtr<MemoryObject> object = host.Object("object");
    const ComPtr<MemoryObject> set = host.Object("set");
    const ComPtr<MemoryObject> planType = host.Object("plantype");
    const ComPtr<MemoryObject> base = host.Object("base");
    const ComPtr<MemoryObject> project = host.Object("project");
    const XQPComBSTR typeName{L"subcompitem"};
    ComPtr<IQPSelectOrvoItem> item;
};

TEST_P(LookupMemory, EveryAllocationOfTheProject)
{
    Sweep(
        [this] {
            ComPtr<Data> found;
            return item->GetProject(object.get(), found.put());
        },
        2);
}

TEST_P(LookupMemory, EveryAllocationOfThePlanType)
{
    Sweep(
        [this] {
            ComPtr<Data> found;
            return item->GetPlanType(object.get(), found.put());
        },
        1);
}

TEST_P(LookupMemory, EveryAllocationOfTheComponentBase)
{
    Sweep(
        [this] {
            ComPtr<Data> found;
            return item->GetOrvoCompBase(object.get(), typeName, found.put());
        },
        2);
}

TEST_P(LookupMemory, EveryAllocationOfTwoAtOnce)
{
    Sweep(
        [this] {
            ComPtr<Data> first;
            ComPtr<Data> second;
            return item->GetProjectAndPlanType(object.get(), first.put(), second.put());
        },
        2);
    Sweep(
        [this] {
            XQPComBSTR name;
            ComPtr<Data> second;
            return item->GetTypeNameAndPlanType(object.get(), name.put(), second.put());
        },
        1);
}

TEST_P(LookupMemory, EveryAllocationOfAScriptsRecord)
{
    const auto script = host.Named(L"script");
    const qptools::XSelectOrvoitemDlg dialog(nullptr, L"script", project.get(), &host.Query());
    Sweep(
        [&] {
            return ComBoundary([&] {
                qptools::ScriptMap scripts;
                return dialog.AddScriptVectorToMap(script.get(), scripts);
            });
        },
        3); // the row, the text of the location, the place in the map
}

INSTANTIATE_TEST_SUITE_P(Ways, LookupMemory,
                         ::testing::Values(FaultyMemory::Failing::Once, FaultyMemory::Failing::FromThere),
                         [](const auto& info) {
                             return info.param == FaultyMemory::Failing::Once ? "Once" : "FromThere";
                         });
} // namespace
