// How a level of a walk ends, what is skipped, and trees that lead back to themselves.
#include "WalkFixture.h"

namespace
{
class WalkLevels : public WalkFixture
{
protected:
    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryObject> lathe = host.Node(L"lathe", L"Station");
    const ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell", {press, lathe});
    const ComPtr<MemoryObject> drill = host.Node(L"drill", L"Station");

    const Calls onlyTop = {"BSTR 'Cell': cell", "BSTR 'Station': drill"};
};

TEST_F(WalkLevels, AListThatFailsEndsItsLevel)
{
    for (const HRESULT status : {E_FAIL, S_FALSE, HRESULT{2}})
    {
        for (const auto route : {kParents, kAll})
        {
            candidates.clear();
            const auto list = host.List({press, lathe, drill}, "selection");
            const ULONG before = References(lathe);
            list->statuses = {{1, status}};
            EXPECT_EQ(Walk(route, list), Calls{"BSTR 'Station': press"}) << status;
            candidates.clear();
            EXPECT_EQ(References(lathe), before) << "what came with the failure is released";
        }
    }
}

TEST_F(WalkLevels, AFailingListOfChildrenEndsItsLevelOnly)
{
    const auto nodes = host.List({press, lathe}, "nodes of cell");
    nodes->statuses = {{1, E_FAIL}};
    SetChildren(cell, nodes);
    EXPECT_EQ(Walk(kAll, {cell, drill}), (Calls{"BSTR 'Cell': cell", "BSTR 'Station': press drill"}));
}

TEST_F(WalkLevels, ANullObjectEndsItsLevel)
{
    for (const auto route : {kParents, kAll})
    {
        candidates.clear();
        EXPECT_EQ(Walk(route, MemoryObjects{press, {}, drill}), Calls{"BSTR 'Station': press"});
    }
    candidates.clear();
    SetChildren(cell, MemoryObjects{press, {}, lathe});
    EXPECT_EQ(Walk(kAll, {cell, drill}), (Calls{"BSTR 'Cell': cell", "BSTR 'Station': press drill"}));
}

TEST_F(WalkLevels, TheNumberOfObjectsFetchedDoesNotMatter)
{
    const auto list = host.List({press, lathe, drill}, "selection");
    list->counts = {{0, 0}, {1, 7}};
    EXPECT_EQ(Walk(kAll, list), Calls{"BSTR 'Station': press lathe drill"});
}

TEST_F(WalkLevels, ChildrenThatCannotBeReadAreSkipped)
{
    for (const HRESULT status : {E_FAIL, E_NOTIMPL, S_FALSE, HRESULT{2}})
    {
        candidates.clear();
        SetChildren(cell, host.List({press, lathe}), status);
        EXPECT_EQ(Walk(kAll, {cell, drill}), onlyTop) << status;
        EXPECT_CALLS(Calls{"selection.RemNext(1)"} + Visiting("cell", "Cell") +
                     Calls{"selection.RemNext(1)"} + VisitingLeaf("drill", "Station") +
                     Calls{"selection.RemNext(1)"});
    }
}

TEST_F(WalkLevels, NoListOfChildrenIsNoChildren)
{
    SetChildren(cell, ComPtr<MemoryEnum>());
    EXPECT_EQ(Walk(kAll, {cell, drill}), onlyTop);
}

TEST_F(WalkLevels, ANormalCopyReadsNoChildren)
{
    SetChildren(cell, ComPtr<MemoryEnum>(), E_FAIL);
    EXPECT_EQ(Walk(kParents, {cell, drill}), onlyTop);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "cell.GetChildren(nodes)"), 0);
}

// Trees that lead back to themselves: an object is found again, but not entered again.

TEST_F(WalkLevels, AnObjectBelowItselfIsFoundAgainAndNotEntered)
{
    SetChildren(cell, MemoryObjects{cell, press});
    EXPECT_EQ(Walk(kAll, {cell}), (Calls{"BSTR 'Cell': cell cell", "BSTR 'Station': press"}));
    EXPECT_CALLS(Calls{"selection.RemNext(1)"} + Visiting("cell", "Cell") +
                 Calls{"cell nodes.RemNext(1)", "cell.IsDerivedFromClass(XDORelationship)"} +
                 Recording("cell", "Cell") + Calls{"cell nodes.RemNext(1)"} +
                 VisitingLeaf("press", "Station") + Calls{"cell nodes.RemNext(1)", "selection.RemNext(1)"});
}

TEST_F(WalkLevels, ALongerWayBackEndsToo)
{
    const auto hall = host.Node(L"hall", L"Hall", {cell, drill});
    SetChildren(lathe, MemoryObjects{hall});
    EXPECT_EQ(Walk(kAll, {hall}),
              (Calls{"BSTR 'Cell': cell", "BSTR 'Hall': hall hall", "BSTR 'Station': press lathe drill"}));
}

TEST_F(WalkLevels, AWayBackThroughARelationshipEndsToo)
{
    const auto uses = host.Relationship(L"uses", L"Uses", drill);
    SetChildren(uses, MemoryObjects{cell});
    SetChildren(cell, MemoryObjects{uses, press});
    EXPECT_EQ(Walk(kAll, {cell}), (Calls{"BSTR 'Cell': cell cell", "BSTR 'Station': drill press"}));
    candidates.clear();
    SetChildren(uses, MemoryObjects{uses});
    EXPECT_EQ(Walk(kAll, {cell}), (Calls{"BSTR 'Cell': cell", "BSTR 'Station': drill drill press"}));
}

TEST_F(WalkLevels, AnObjectInTwoBranchesIsEnteredInBoth)
{
    const auto left = host.Node(L"left", L"Hall", {cell});
    const auto right = host.Node(L"right", L"Hall", {cell});
    EXPECT_EQ(Walk(kAll, {left, right, cell}),
              (Calls{"BSTR 'Cell': cell cell cell", "BSTR 'Hall': left right",
                     "BSTR 'Station': press lathe press lathe press lathe"}));
}

TEST_F(WalkLevels, AnObjectThatCannotBeEnteredIsTriedEachTime)
{
    SetChildren(cell, ComPtr<MemoryEnum>(), E_FAIL);
    const auto hall = host.Node(L"hall", L"Hall", {cell, cell});
    EXPECT_EQ(Walk(kAll, {hall}), (Calls{"BSTR 'Cell': cell cell", "BSTR 'Hall': hall"}));
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "cell.GetChildren(nodes)"), 2);
}
} // namespace
