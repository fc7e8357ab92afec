// The host calls of the two walks, one by one, and the order of what they find.
#include "WalkFixture.h"

namespace
{
class WalkCalls : public WalkFixture
{
protected:
    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryObject> lathe = host.Node(L"lathe", L"Station");
    const ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell", {press, lathe});
    const ComPtr<MemoryObject> drill = host.Node(L"drill", L"Station");
};

TEST_F(WalkCalls, FourForEachObjectOfANormalCopy)
{
    EXPECT_EQ(Walk(kParents, {cell, drill}), (Calls{"BSTR 'Cell': cell", "BSTR 'Station': drill"}));
    EXPECT_CALLS(Calls{"selection.GetSingleNext()"} + Recording("cell", "Cell") +
                 Calls{"selection.GetSingleNext()"} + Recording("drill", "Station") +
                 Calls{"selection.GetSingleNext()"});
}

TEST_F(WalkCalls, TwoMoreForEachObjectOfADeepCopy)
{
    EXPECT_EQ(Walk(kAll, {cell, drill}), (Calls{"BSTR 'Cell': cell", "BSTR 'Station': press lathe drill"}));
    EXPECT_CALLS(Calls{"selection.RemNext(1)"} + Visiting("cell", "Cell") + Calls{"cell nodes.RemNext(1)"} +
                 VisitingLeaf("press", "Station") + Calls{"cell nodes.RemNext(1)"} +
                 VisitingLeaf("lathe", "Station") + Calls{"cell nodes.RemNext(1)", "selection.RemNext(1)"} +
                 VisitingLeaf("drill", "Station") + Calls{"selection.RemNext(1)"});
}

TEST_F(WalkCalls, OneForAnEmptyList)
{
    EXPECT_EQ(Walk(kParents, MemoryObjects{}), Calls{});
    EXPECT_CALLS(Calls{"selection.GetSingleNext()"});
    EXPECT_EQ(Walk(kAll, MemoryObjects{}), Calls{});
    EXPECT_CALLS(Calls{"selection.RemNext(1)"});
}

TEST_F(WalkCalls, AnEmptyListChangesNoRecord)
{
    const Calls records = Walk(kAll, {cell});
    EXPECT_EQ(Walk(kAll, MemoryObjects{}), records);
    EXPECT_EQ(Walk(kParents, MemoryObjects{}), records);
}

TEST_F(WalkCalls, AnInterfaceIsAskedForOfATargetOnly)
{
    const auto uses = host.Relationship(L"uses", L"Uses", drill);
    host.recordingQueries = true;
    Walk(kParents, {cell, uses});
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "drill.QueryInterface(IQP_BaseDataObject)"),
              0);
    EXPECT_EQ(host.calls.size(), 3u + 2u * 4u);
    Walk(kAll, {cell, uses});
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "drill.QueryInterface(IQP_BaseDataObject)"),
              1);
    // 4 objects with 6 calls and a list of their own, each list with one call more than it has objects, the
    // selection, and the target with its interface.
    EXPECT_EQ(host.calls.size(), 4u * 6u + 4u + 2u + 3u + 2u);
}

TEST_F(WalkCalls, AWalkBeginsWhereTheListStands)
{
    for (const auto route : {kParents, kAll})
    {
        candidates.clear();
        const auto list = host.List({press, lathe, drill}, "selection");
        ComPtr<IQP_BaseDataObject> first;
        EXPECT_EQ(list->GetSingleNext(first.put()), S_OK);
        EXPECT_EQ(Walk(route, list), Calls{"BSTR 'Station': lathe drill"});
        EXPECT_EQ(list->GetSingleNext(first.put()), S_FALSE) << "and leaves it at its end";
    }
}

TEST_F(WalkCalls, AParentComesBeforeWhatIsBelowIt)
{
    const auto deep = host.Node(L"deep", L"Station", {host.Node(L"deepest", L"Station")});
    const auto first = host.Node(L"first", L"Station", {deep, host.Node(L"next", L"Station")});
    EXPECT_EQ(Walk(kAll, {first, drill}), Calls{"BSTR 'Station': first deep deepest next drill"});
}

TEST_F(WalkCalls, AnObjectFoundTwiceIsKeptTwice)
{
    const auto other = host.Node(L"other", L"Cell", {press});
    EXPECT_EQ(Walk(kAll, {cell, other, press}),
              (Calls{"BSTR 'Cell': cell other", "BSTR 'Station': press lathe press press"}));
    candidates.clear();
    EXPECT_EQ(Walk(kParents, {cell, cell}), Calls{"BSTR 'Cell': cell cell"});
}

TEST_F(WalkCalls, ASecondWalkAddsToTheRecordsOfTheFirst)
{
    Walk(kAll, {cell});
    EXPECT_EQ(Walk(kAll, {cell}),
              (Calls{"BSTR 'Cell': cell cell", "BSTR 'Station': press lathe press lathe"}));
    EXPECT_EQ(Walk(kParents, {drill}),
              (Calls{"BSTR 'Cell': cell cell", "BSTR 'Station': press lathe press lathe drill"}));
}

TEST_F(WalkCalls, ARecordHoldsItsTypeAndItsObjects)
{
    const ULONG before = References(press);
    Walk(kAll, {cell});
    EXPECT_EQ(References(press), before + 1);
    Walk(kAll, {cell});
    EXPECT_EQ(References(press), before + 2);
    const ComPtr<MemoryType> station(Type(L"Station"));
    const ULONG held = References(station);
    candidates.clear();
    EXPECT_EQ(References(press), before);
    EXPECT_EQ(References(station), held - 1) << "the type was held once, as the key";
}

TEST_F(WalkCalls, EqualTypesThatAreDifferentObjectsAreDifferentRecords)
{
    host.Config().typeCopies = true;
    EXPECT_EQ(Walk(kAll, {cell}),
              (Calls{"BSTR 'Cell': cell", "BSTR 'Station': lathe", "BSTR 'Station': press"}));
}

TEST_F(WalkCalls, DifferentTypesWithOneCaptionAreDifferentRecords)
{
    Type(L"Cell")->Set(L"captionsingular", L"Station");
    EXPECT_EQ(Walk(kAll, {cell}), (Calls{"BSTR 'Station': cell", "BSTR 'Station': press lathe"}));
}

TEST_F(WalkCalls, ARecordKeepsTheCaptionOfItsFirstObject)
{
    host.onCall = [this](const std::string& call) {
        if (call == "lathe.GetTypeName()")
            Type(L"Station")->Set(L"captionsingular", L"Renamed");
    };
    EXPECT_EQ(Walk(kAll, {cell, drill}), (Calls{"BSTR 'Cell': cell", "BSTR 'Station': press lathe drill"}));
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "Station.Get(captionsingular)"), 3)
        << "it is read for each object";
}
} // namespace
