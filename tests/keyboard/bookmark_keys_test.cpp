// The bookmark dialog, used by a real keyboard and a real mouse.
#include "BookmarkByKeyboard.h"

namespace
{
using namespace bookmark_dialog;
} // namespace

TEST_F(BookmarkByKeyboard, TabGoesRoundWithoutTheDisabledButtonsAndBack)
{
    Show(GoesRound({kProject, kList, kDeleteAll, IDCANCEL}) + Steps{Ends("Escape")});
}

TEST_F(BookmarkByKeyboard, TabGoesToTheButtonsOfASelectedRow)
{
    Show(PointsAtRow(1, RowSelected(1)) + Steps{Types("Tab", FocusOn(kOpen)), Types("Tab", FocusOn(kDelete)),
                                                Types("Tab", FocusOn(kDeleteAll)), Ends("Escape")});
}

TEST_F(BookmarkByKeyboard, EnterOpensTheSelectedBookmark)
{
    Show(GoesToWeld() + Steps{Ends("Return")});
    EXPECT_EQ(Expanded(), "expander.ExpandTree(BrowserTree:$71);, $7))");
}

TEST_F(BookmarkByKeyboard, EnterWithoutARowClosesTheDialog)
{
    Show({Sees(FocusOn(kProject)), Ends("Return")});
    EXPECT_EQ(Expanded(), "");
}

TEST_F(BookmarkByKeyboard, ADoubleClickOpensABookmark)
{
    Show({DoubleClicksRow(0)});
    EXPECT_EQ(Expanded(), "expander.ExpandTree(BrowserTree:$72);, $7))");
}

TEST_F(BookmarkByKeyboard, ArrowsChooseAnotherProject)
{
    Show({Sees(FocusOn(kProject)), Types("Down", Chosen(kProject, L"South")), Sees(InColumn(0, {L"Paint"})),
          Ends("Escape")});
}

TEST_F(BookmarkByKeyboard, F2RenamesABookmark)
{
    Show(GoesToWeld() + Steps{Types("F2", LabelEdited(L"Weld")), Types("a s 2", LabelEdited(L"as2")),
                              Types("Return", InColumn(0, {L"as2", L"Drill"})), Sees(FocusOn(kList)),
                              Sees(Disabled(kOpen)), Ends("Escape")});
    EXPECT_EQ(Name(0), "as2");
}

TEST_F(BookmarkByKeyboard, EscapeLeavesTheNameAndTheDialogOpen)
{
    Show(GoesToWeld() + Steps{Types("F2", LabelEdited(L"Weld")), Types("a", LabelEdited(L"a")),
                              Types("Escape", NoLabelEdited()), Sees(InColumn(0, {L"Drill", L"Weld"})),
                              Ends("Escape")});
    EXPECT_EQ(Name(0), "Weld");
}

TEST_F(BookmarkByKeyboard, ASlowSecondClickRenamesABookmark)
{
    Show(
        PointsAtRow(1, RowSelected(1)) + Steps{Waits(900)} + PointsAtRow(1, LabelEdited(L"Weld")) +
        Steps{Types("x", LabelEdited(L"x")), Types("Return", InColumn(0, {L"Drill", L"x"})), Ends("Escape")});
    EXPECT_EQ(Name(0), "x");
}

TEST_F(BookmarkByKeyboard, AClickOnAnotherRowTakesTheNameThatIsTyped)
{
    Show(GoesToWeld() + Steps{Types("F2", LabelEdited(L"Weld")), Types("a", LabelEdited(L"a"))} +
         PointsAtRow(0, InColumn(0, {L"a", L"Drill"})) + Steps{Ends("Escape")});
    EXPECT_EQ(Name(0), "a");
    EXPECT_EQ(Name(1), "Drill");
}

TEST_F(BookmarkByKeyboard, DeleteAsksAndDeletes)
{
    Show(GoesToWeld() + Steps{Types("Delete", Box(kDeleteTitle)), Ends("Return"),
                              Sees(InColumn(0, {L"Drill"})), Ends("Escape")});
    EXPECT_EQ(Name(0), "Drill");
}

TEST_F(BookmarkByKeyboard, SpaceOnDeleteAllDeletesTheProject)
{
    Show({Types("shift+Tab", FocusOn(IDCANCEL)), Types("shift+Tab", FocusOn(kDeleteAll)),
          Types("space", Box(kDeleteAllTitle)), Ends("Return"), Sees(Offers(kProject, {L"South"})),
          Sees(InColumn(0, {L"Paint"})), Ends("Escape")});
    EXPECT_EQ(Name(0), "");
}

TEST_F(BookmarkByKeyboard, EnterOnAButtonPressesThatAndOpensNothing)
{
    Show(GoesToWeld() +
         Steps{Types("shift+Tab", FocusOn(kProject)), Types("shift+Tab", FocusOn(IDCANCEL)), Ends("Return")});
    EXPECT_EQ(Expanded(), "");
}

TEST_F(BookmarkByKeyboard, ShiftAndArrowsSelectSeveralToDelete)
{
    Show(GoesToWeld() + Steps{Types("shift+Up", SelectedCount(2)), Types("Delete", Box(kDeleteTitle)),
                              Ends("Return"), Sees(Offers(kProject, {L"South"})),
                              Sees(InColumn(0, {L"Paint"})), Ends("Escape")});
}

TEST_F(BookmarkByKeyboard, AClickOnAHeadingSorts)
{
    Show(PointsAtHeading(0, InColumn(0, {L"Weld", L"Drill"})) +
         PointsAtHeading(1, InColumn(0, {L"Drill", L"Weld"})) + Steps{Ends("Escape")});
}

TEST_F(BookmarkByKeyboard, AColumnIsDraggedButNotBelowItsLeastWidth)
{
    Show(DragsHeading(0, 120, ColumnWidths(120, 500)) + DragsHeading(0, 4, ColumnWidths(120, 500)) +
         Steps{Ends("Escape")});
}
