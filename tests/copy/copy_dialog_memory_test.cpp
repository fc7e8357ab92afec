// The enhanced copy dialog out of memory: each of the module's own allocations fails once, while it opens,
// walks, lists, shows, takes a value and closes. Natively only: the system's own allocators on Windows do not
// fail on request.
#include "AllocationSweep.h"
#include "CopyMessages.h"
#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "ModuleAllocations.h"
#include "ModuleUnderTest.h"
#include "PatientUser.h"
#include "Untouched.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>

namespace
{
using namespace copy_dialog;

class CopyDialogMemory : public testing::Test
{
protected:
    struct Result
    {
        HRESULT status = S_OK;
        LONG option = 77;
        bool struck = false;
    };

    CopyDialogMemory()
    {
        EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
        for (const wchar_t* attribute : {L"Order", L"Mass"})
            host.Config().Find(L"Station")->Attribute(attribute);
    }

    /// From Initialize to DeleteObjects. The n-th allocation fails; none for 0.
    Result Run(long n, const PatientUser::Steps& steps)
    {
        const PatientUser user(steps);
        Result run;
        host.calls.clear();
        {
            const FaultyMemory memory(n, FaultyMemory::Failing::Once, &IsNotOfModule);
            run.status = copy->Initialize(selection.get(), &host.Config());
            if (run.status == S_OK)
                run.status = copy->ShowDialog();
            EXPECT_EQ(copy->GetButtonIDClicked(&run.option), S_OK);
            EXPECT_EQ(copy->DeleteObjects(), S_OK);
            run.struck = memory.Struck();
        }
        for (const std::string& call : host.calls)
            EXPECT_EQ(call.find(".SetAttribute"), std::string::npos) << call;
        return run;
    }

    ULONG Held() { return References(selection) + References(press) + host.Config().References(); }

    /// Fails every allocation in turn, of which there are `least` or more: none passes unnoticed.
    void Sweep(const PatientUser::Steps& steps, LONG option, long least)
    {
        Run(0, steps); // what is allocated once and kept
        EXPECT_EQ(Run(0, steps).option, option);
        const ULONG held = Held();
        const int objects = host.LiveObjects();
        const auto run = [&](long n) {
            return Run(n, steps);
        };
        FailEachAllocation(least, run, [&](const Result& failed) {
            EXPECT_EQ(failed.status, E_OUTOFMEMORY);
            EXPECT_EQ(failed.option, -1);
            EXPECT_EQ(Held(), held);
            EXPECT_EQ(host.LiveObjects(), objects);
        });
    }

    ModuleUnderTest module;
    MemoryHost host;
    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryObject> uses = host.Relationship(L"uses", L"Uses", press);
    const ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell", {press, uses});
    const ComPtr<MemoryEnum> selection = host.List({press, cell}, "selection");
    ComPtr<IQPCopyOptDlg> copy;

    const PatientUser::Steps values = {
        &PressThis<kAdvanced>, &PressThis<kDeepRadio>, &PressThis<kNormalRadio>, &ChooseNext,
        &ChooseNext,           &ClickFirstValue,       &ClickFirstValue,         &TypeAndReturn};
};

TEST_F(CopyDialogMemory, EndsTheDialogThatOpens)
{
    Sweep({&PressThis<kCancel>}, -1, 10);
}

TEST_F(CopyDialogMemory, EndsTheDialogThatWalks)
{
    Sweep({&PressThis<kAdvanced>, &PressThis<kAdvanced>, &PressThis<kDeep>}, 8, 30);
}

TEST_F(CopyDialogMemory, EndsTheDialogThatTakesAValue)
{
    auto steps = values;
    steps.push_back(&PressThis<kAdvancedOk>);
    Sweep(steps, 0, 50);
}

TEST_F(CopyDialogMemory, EndsTheDialogThatIsCancelled)
{
    auto steps = values;
    steps.push_back(&PressThis<kAdvancedCancel>);
    Sweep(steps, -1, 50);
}

TEST_F(CopyDialogMemory, OfInitializeLeavesTheDialogBefore)
{
    EXPECT_EQ(copy->Initialize(selection.get(), nullptr), S_OK);
    {
        const PatientUser user({&PressThis<kDeep>});
        EXPECT_EQ(copy->ShowDialog(), S_OK);
    }
    const auto other = host.List({press}, "other");
    {
        const FaultyMemory memory(1, FaultyMemory::Failing::Once, &MemoryHost::InCall);
        EXPECT_EQ(copy->Initialize(other.get(), &host.Config()), E_OUTOFMEMORY);
        EXPECT_TRUE(memory.Struck());
    }
    LONG option = 77;
    EXPECT_EQ(copy->GetButtonIDClicked(&option), S_OK);
    EXPECT_EQ(option, 8);
    EXPECT_EQ(References(other), 1u);
    EXPECT_EQ(host.Config().References(), 0u);
    EXPECT_EQ(copy->DeleteObjects(), S_OK);
}

TEST_F(CopyDialogMemory, DoesNotSpoilTheNextDialog)
{
    auto steps = values;
    steps.push_back(&PressThis<kAdvancedOk>);
    Run(5, steps);
    const Result next = Run(0, steps);
    EXPECT_EQ(next.status, S_OK);
    EXPECT_EQ(next.option, 0);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "Mass.GetProperty(3)"), 3)
        << "no value was typed";
}
} // namespace
