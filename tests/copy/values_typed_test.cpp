// Values that are typed into the grid: what of them is kept, and under which names.
#include "ValuesFixture.h"

namespace
{
using namespace copy_dialog;

class ValuesTyped : public ValuesFixture
{
};

TEST_F(ValuesTyped, ReachTheCopiesAsTexts)
{
    EnterForStations(Sets(kOrder, L"next") + Sets(kMass, L"12"));
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..1, 0..1: BSTR 'Mass' = BSTR '12'; BSTR 'Order' = BSTR 'next'");
}

TEST_F(ValuesTyped, TheLastOneOfACellCounts)
{
    EnterForStations(Sets(kOrder, L"first") + SetsAgain(kOrder, L"last"));
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'last'");
}

TEST_F(ValuesTyped, AnEmptiedCellIsAnEmptyText)
{
    EnterForStations(Sets(kOrder, L"first") + Steps{ClicksCell(kOrder, 1), Types("Delete", EditorShows(L"")),
                                                    Types("Return"), Sees(InRow(kOrder, {L"Order", L""}))});
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR ''");
}

TEST_F(ValuesTyped, OpeningAnEditorIsAValue)
{
    EnterForStations(OpensEditor(kOrder) +
                     Steps{Types("Escape"), Sees(NoEditor()), Sees(InRow(kOrder, {L"Order", L"X"}))});
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'X'");
}

TEST_F(ValuesTyped, EscapeReplacesAnEarlierValueByTheMark)
{
    EnterForStations(Sets(kOrder, L"first") + Steps{ClicksCell(kOrder, 1), TypesInEditor(L"second"),
                                                    Types("Escape"), Sees(NoEditor())});
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'X'");
}

TEST_F(ValuesTyped, OkTakesWhatAnOpenEditorHolds)
{
    EnterForStations(OpensEditor(kOrder) + Steps{TypesInEditor(L"open")});
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'open'");
}

TEST_F(ValuesTyped, MayHoldAnyCharacter)
{
    EnterForStations(Sets(kOrder, L" \x00C4\x4E2D\x05D0 & %s '\" "));
    EXPECT_EQ(AppliedToPress(),
              "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR ' \xC3\x84\xE4\xB8\xAD\xD7\x90 & %s '\" '");
}

TEST_F(ValuesTyped, AreNotCut)
{
    EnterForStations(Sets(kOrder, std::wstring(400, L'm')));
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR '" + std::string(400, 'm') + "'");
}

TEST_F(ValuesTyped, ATypeCodeThatCannotBeReadMeansText)
{
    host.Config().Find(L"Station")->attributes.objects[0]->Fail(3, E_FAIL);
    EnterForStations(Sets(kOrder, L"next"));
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'next'");
}

TEST_F(ValuesTyped, GoInTheOrderOfTheirNamesByCodeUnit)
{
    MemoryType* type = host.Config().Type(L"Part");
    Steps steps;
    int row = 0;
    // Each row comes in above the one before.
    for (const wchar_t* name : {L"a1", L"\x00E4", L"B", L"a", L"b", L"A"})
        type->Attribute(name);
    for (const wchar_t* value : {L"1", L"2", L"3", L"4", L"5", L"6"})
        steps = steps + Sets(row++, value);
    const auto part = host.Node(L"part", L"Part");
    Enter({part}, L"Part", steps);
    Apply({part});
    EXPECT_EQ(part->written, "VARIANT 0..5, 0..1: BSTR 'A' = BSTR '1'; BSTR 'B' = BSTR '4'; "
                             "BSTR 'a' = BSTR '3'; BSTR 'a1' = BSTR '6'; BSTR 'b' = BSTR '2'; "
                             "BSTR '\xC3\xA4' = BSTR '5'");
}

TEST_F(ValuesTyped, BelongToThePlanTypeThatIsShown)
{
    Enter({cell, press}, L"Station",
          Sets(kOrder, L"of a station") + Steps{Chooses(kPlanType, L"Cell")} + Sets(0, L"of a cell"));
    Apply({cell, press});
    EXPECT_EQ(press->written, "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'of a station'");
    EXPECT_EQ(cell->written, "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'of a cell'");
    host.calls.clear(); // which of the two comes first follows addresses
}

TEST_F(ValuesTyped, ForANormalCopyCountForADeepOne)
{
    Enter({cell, press}, L"Station", Sets(kOrder, L"next") + Steps{Checks(kDeepRadio), Sees(RowCount(0))});
    EXPECT_EQ(Clicked(), 8);
    Apply({cell});
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(lathe->ValueText(L"Order"), "BSTR 'next'");
}

TEST_F(ValuesTyped, ForADeepCopyCountForANormalOne)
{
    Initialize({cell, press});
    Show(Steps{Presses(kAdvanced), Checks(kDeepRadio), Chooses(kPlanType, L"Station")} +
         Sets(kOrder, L"next") + Steps{Checks(kNormalRadio), Presses(kAdvancedOk)});
    EXPECT_EQ(Clicked(), 0);
    Apply({cell, press});
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'next'");
    EXPECT_EQ(lathe->ValueText(L"Order"), "EMPTY");
}

TEST_F(ValuesTyped, AreKeptInTheContractedForm)
{
    Initialize({press});
    Show(ShowsGrid(L"Station") + Sets(kOrder, L"next") +
         Steps{Presses(kAdvanced), Forgets(), Presses(kNormal)});
    EXPECT_EQ(Clicked(), 0);
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'next'");
}

TEST_F(ValuesTyped, ForAnEmptyCaptionAreKeptLikeOthers)
{
    host.Config().Find(L"Station")->Set(L"captionsingular", L"");
    Enter({press}, L"", Sets(kOrder, L"next"));
    EXPECT_EQ(AppliedToPress(), "VARIANT 0..0, 0..1: BSTR 'Order' = BSTR 'next'");
}
} // namespace
