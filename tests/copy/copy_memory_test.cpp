// The walks and the values out of memory: each of their own allocations fails once, or all fail from one on.
// Natively only: the system's own allocators on Windows do not fail on request.
#include "FaultyMemory.h"
#include "ValuesFixture.h"
#include "WalkFixture.h"

#include "ComException.h"

#include <algorithm>
#include <new>

namespace
{
using Failing = FaultyMemory::Failing;

std::string NameOfFailing(const ::testing::TestParamInfo<Failing>& info)
{
    return info.param == Failing::Once ? "Once" : "FromThere";
}

class WalkMemory : public WalkFixture, public ::testing::WithParamInterface<Failing>
{
protected:
    /// Whether the walk ran out of memory.
    bool WalkFails(qptools::CopyRoute route, IEnumBaseDataObject* list)
    {
        try
        {
            qptools::CollectCandidates(list, route, candidates);
            return false;
        }
        catch (const std::bad_alloc&)
        {
            return true;
        }
        catch (const ComException& error)
        {
            EXPECT_EQ(error.Status(), E_OUTOFMEMORY);
            return true;
        }
    }

    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryObject> lathe = host.Node(L"lathe", L"12", {press});
    const ComPtr<MemoryObject> uses = host.Relationship(L"uses", L"Uses", press, {lathe});
    const ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell", {press, lathe, uses});
};

TEST_P(WalkMemory, NoneIsLostAndNothingIsKept)
{
    lathe->Set(L"configtypename", 12);
    Type(L"12")->Set(L"captionsingular", 12);
    const auto list = host.List({cell, uses, cell});
    for (const auto route : {kParents, kAll})
    {
        const int objects = host.LiveObjects();
        const ULONG held = References(press) + References(cell);
        int failed = 0;
        for (long n = 1;; ++n)
        {
            SCOPED_TRACE("allocation " + std::to_string(n));
            list->Rewind();
            const FaultyMemory memory(n, GetParam(), &MemoryHost::InCall);
            const bool fails = WalkFails(route, list.get());
            ASSERT_EQ(fails, memory.Struck()) << "no failure passes unnoticed";
            candidates.clear();
            ASSERT_EQ(host.LiveObjects(), objects);
            ASSERT_EQ(References(press) + References(cell), held);
            if (!fails)
                break;
            ++failed;
        }
        EXPECT_GT(failed, route == kAll ? 20 : 5) << "hardly an allocation was found";
    }
}

class ApplyMemory : public ValuesFixture, public ::testing::WithParamInterface<Failing>
{
protected:
    static constexpr const char* kWrite = ".SetAttributes(Mass = BSTR '12', Order = BSTR 'next')";
    const std::string line = "error\tQPTools\tApplyEnhanceCopy()\t688\t0x8000FFFF\t-\tUnExpected Behaviour";
    const ComPtr<MemoryObject> top = host.Node(L"top", L"Cell", {press, lathe});
};

TEST_P(ApplyMemory, IsOneLineInTheLogBookAndNothingIsKept)
{
    Initialize({press});
    Show(Steps{Presses(copy_dialog::kAdvanced), Chooses(copy_dialog::kPlanType, L"Station")} +
         Sets(kOrder, L"next") + Sets(kMass, L"12") +
         Steps{Presses(copy_dialog::kAdvanced), Presses(copy_dialog::kDeep)});
    const auto copies = host.List({top}, "copies");
    copy->ApplyEnhanceCopy(nullptr);
    const int objects = host.LiveObjects();
    const ULONG held = References(press) + References(lathe) + References(top) + References(copies);
    std::size_t failed = 0;
    for (long n = 1;; ++n)
    {
        SCOPED_TRACE("allocation " + std::to_string(n));
        copies->Rewind();
        host.calls.clear();
        bool struck = false;
        {
            const FaultyMemory memory(n, GetParam(), &MemoryHost::InCall);
            ASSERT_EQ(copy->ApplyEnhanceCopy(copies.get()), S_OK);
            struck = memory.Struck();
        }
        ASSERT_EQ(copy->ApplyEnhanceCopy(nullptr), S_OK);
        ASSERT_EQ(host.LiveObjects(), objects);
        ASSERT_EQ(References(press) + References(lathe) + References(top) + References(copies), held);
        if (!struck)
            break;
        ++failed;
        // All is prepared before the first copy of a type is written.
        const auto writes = std::count(host.calls.begin(), host.calls.end(), press->Name() + kWrite) +
                            std::count(host.calls.begin(), host.calls.end(), lathe->Name() + kWrite);
        EXPECT_TRUE(writes == 0 || writes == 2) << writes;
    }
    EXPECT_GT(failed, 15u) << "hardly an allocation was found";
    EXPECT_EQ(lathe->ValueText(L"Order"), "BSTR 'next'");
    // With no memory left there is no line either.
    EXPECT_EQ(logBook.Entries(), GetParam() == Failing::Once ? Entries(failed, line) : Entries{});
}

INSTANTIATE_TEST_SUITE_P(Ways, WalkMemory, ::testing::Values(Failing::Once, Failing::FromThere),
                         NameOfFailing);
INSTANTIATE_TEST_SUITE_P(Ways, ApplyMemory, ::testing::Values(Failing::Once, Failing::FromThere),
                         NameOfFailing);
} // namespace
