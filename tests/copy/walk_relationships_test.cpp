// Relationships: recorded as what they lead to, or the end of their level.
#include "BorrowedValues.h"
#include "ReferenceValues.h"
#include "WalkFixture.h"

namespace
{
class WalkRelationships : public WalkFixture
{
protected:
    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryObject> lathe = host.Node(L"lathe", L"Station");
    const ComPtr<MemoryObject> below = host.Node(L"below", L"Part");
    const ComPtr<MemoryObject> gauge = host.Node(L"gauge", L"Fixture", {host.Node(L"scale", L"Part")});
    const ComPtr<MemoryObject> uses = host.Relationship(L"uses", L"Uses", gauge, {below});
    const ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell", {press, uses, lathe});
    const ComPtr<MemoryObject> drill = host.Node(L"drill", L"Station");

    /// The relationship leads to its target; the others are there, too.
    const Calls followed = {"BSTR 'Cell': cell", "BSTR 'Fixture': gauge", "BSTR 'Part': below",
                            "BSTR 'Station': press lathe drill"};
    /// The relationship ends its level.
    const Calls abandoned = {"BSTR 'Cell': cell", "BSTR 'Station': press drill"};

    /// Walks with another answer for the target.
    Calls WalkTo(HRESULT status, const VARIANT& target)
    {
        candidates.clear();
        uses->Answer(L"relationobjecttarget", status, target);
        return Walk(kAll, {cell, drill});
    }
    Calls WalkTo(const VARIANT& target) { return WalkTo(S_OK, target); }

    VARIANT Gauge(VARTYPE type = VT_UNKNOWN) const
    {
        return ObjectReference(static_cast<IQP_BaseDataObject*>(gauge.get()), type);
    }
};

TEST_F(WalkRelationships, LeadToTheirTargetsInADeepCopy)
{
    EXPECT_EQ(Walk(kAll, {cell, drill}), followed);
    const Calls expected =
        Calls{"selection.RemNext(1)"} + Visiting("cell", "Cell") + Calls{"cell nodes.RemNext(1)"} +
        VisitingLeaf("press", "Station") +
        Calls{"cell nodes.RemNext(1)", "uses.IsDerivedFromClass(XDORelationship)",
              "uses.GetAttribute(relationobjecttarget)"} +
        Recording("gauge", "Fixture") + Calls{"uses.GetChildren(nodes)", "uses nodes.RemNext(1)"} +
        VisitingLeaf("below", "Part") + Calls{"uses nodes.RemNext(1)", "cell nodes.RemNext(1)"} +
        VisitingLeaf("lathe", "Station") + Calls{"cell nodes.RemNext(1)", "selection.RemNext(1)"} +
        VisitingLeaf("drill", "Station") + Calls{"selection.RemNext(1)"};
    EXPECT_EQ(host.calls, expected);
}

TEST_F(WalkRelationships, AreThemselvesInANormalCopy)
{
    EXPECT_EQ(Walk(kParents, {uses, drill}), (Calls{"BSTR 'Station': drill", "BSTR 'Uses': uses"}));
    EXPECT_CALLS(Calls{"selection.GetSingleNext()"} + Recording("uses", "Uses") +
                 Calls{"selection.GetSingleNext()"} + Recording("drill", "Station") +
                 Calls{"selection.GetSingleNext()"});
}

TEST_F(WalkRelationships, AreThoseWhoseClassTestGivesOkAlone)
{
    for (const HRESULT status : {E_FAIL, S_FALSE, HRESULT{2}})
    {
        candidates.clear();
        const auto other = host.Node(L"other", L"Uses");
        other->Is(L"XDORelationship", status)->Set(L"relationobjecttarget", gauge);
        EXPECT_EQ(Walk(kAll, {other}), Calls{"BSTR 'Uses': other"}) << status;
    }
}

TEST_F(WalkRelationships, WithoutAReadableTargetEndTheirLevel)
{
    for (const HRESULT status : {E_FAIL, S_FALSE, HRESULT{2}})
    {
        EXPECT_EQ(WalkTo(status, Gauge()), abandoned) << status;
        EXPECT_CALLS(Calls{"selection.RemNext(1)"} + Visiting("cell", "Cell") +
                     Calls{"cell nodes.RemNext(1)"} + VisitingLeaf("press", "Station") +
                     Calls{"cell nodes.RemNext(1)", "uses.IsDerivedFromClass(XDORelationship)",
                           "uses.GetAttribute(relationobjecttarget)", "selection.RemNext(1)"} +
                     VisitingLeaf("drill", "Station") + Calls{"selection.RemNext(1)"});
    }
}

TEST_F(WalkRelationships, WithoutAnObjectAsTargetEndTheirLevel)
{
    EXPECT_EQ(WalkTo(VARIANT{}), abandoned) << "no value";
    EXPECT_EQ(WalkTo(ObjectReference(nullptr)), abandoned) << "a null reference";
    EXPECT_EQ(WalkTo(NumberValue(7)), abandoned) << "a number";
    EXPECT_EQ(WalkTo(MemoryValue(L"gauge").Value()), abandoned) << "a text";
    for (const VARIANT& nothing : NullAddresses())
        EXPECT_EQ(WalkTo(nothing), abandoned) << nothing.vt;
}

TEST_F(WalkRelationships, ToWhatIsNoDataObjectEndTheirLevel)
{
    gauge->offersData = false;
    host.recordingQueries = true;
    EXPECT_EQ(Walk(kAll, {cell, drill}), abandoned);
    EXPECT_EQ(std::count(host.calls.begin(), host.calls.end(), "gauge.QueryInterface(IQP_BaseDataObject)"),
              1);
}

TEST_F(WalkRelationships, MayReferToTheirTargetInAnyWay)
{
    EXPECT_EQ(WalkTo(Gauge(VT_DISPATCH)), followed);
    IUnknown* address = static_cast<IQP_BaseDataObject*>(gauge.get());
    EXPECT_EQ(WalkTo(ByAddress(VT_UNKNOWN, &address)), followed);
    EXPECT_EQ(WalkTo(ByAddress(VT_DISPATCH, &address)), followed);
    VARIANT inner = Gauge();
    EXPECT_EQ(WalkTo(ByAddress(VT_VARIANT, &inner)), followed);
    const ComPtr<IUnknown> reference = host.ReferenceTo("reference", gauge);
    EXPECT_EQ(WalkTo(ObjectReference(reference.get())), followed);
    uses->Answer(L"relationobjecttarget", S_OK, VARIANT{});
}

TEST_F(WalkRelationships, EndAlsoTheSelectionItself)
{
    uses->Fail(L"relationobjecttarget", E_FAIL);
    EXPECT_EQ(Walk(kAll, {press, uses, drill}), Calls{"BSTR 'Station': press"});
    EXPECT_EQ(host.calls.back(), "uses.GetAttribute(relationobjecttarget)");
}

TEST_F(WalkRelationships, EndOneLevelOfSeveral)
{
    const auto hall = host.Node(L"hall", L"Hall", {cell, drill});
    uses->Fail(L"relationobjecttarget", E_FAIL);
    EXPECT_EQ(Walk(kAll, {hall, lathe}),
              (Calls{"BSTR 'Cell': cell", "BSTR 'Hall': hall", "BSTR 'Station': press drill lathe"}));
}

TEST_F(WalkRelationships, ToOneTargetRecordItTwice)
{
    const auto also = host.Relationship(L"also", L"Uses", gauge);
    EXPECT_EQ(Walk(kAll, {uses, also}), (Calls{"BSTR 'Fixture': gauge gauge", "BSTR 'Part': below"}));
}

TEST_F(WalkRelationships, ToARelationshipRecordItAsItIs)
{
    const auto chain = host.Relationship(L"chain", L"Chain", uses);
    EXPECT_EQ(Walk(kAll, {chain}), Calls{"BSTR 'Uses': uses"});
}

TEST_F(WalkRelationships, ToAnObjectWithoutATypeAreDescendedAllTheSame)
{
    gauge->Type(nullptr);
    EXPECT_EQ(Walk(kAll, {cell, drill}),
              (Calls{"BSTR 'Cell': cell", "BSTR 'Part': below", "BSTR 'Station': press lathe drill"}));
}

TEST_F(WalkRelationships, HoldNoReferenceButToTheTargetRecorded)
{
    const ULONG target = References(gauge);
    const ULONG relationship = References(uses);
    Walk(kAll, {cell});
    EXPECT_EQ(References(gauge), target + 1);
    EXPECT_EQ(References(uses), relationship);
    candidates.clear();
    EXPECT_EQ(References(gauge), target);
}
} // namespace
