// Keyboard and focus in a list view.
#include "ListViewHost.h"

#include <gtest/gtest.h>

TEST(ListViewKeys, ArrowsMoveFocusAndSelection)
{
    FilledHost list(5);
    list.SelectAndFocus(1);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(list.Focused(), 2);
    list.Press(VK_UP);
    list.Press(VK_UP);
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_EQ(list.Focused(), 0);
}

TEST(ListViewKeys, ArrowsStopAtTheEnds)
{
    FilledHost list(2);
    list.SelectAndFocus(1);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Selected(), "1");
    list.Press(VK_UP);
    list.Press(VK_UP);
    EXPECT_EQ(list.Selected(), "0");
}

TEST(ListViewKeys, AnArrowInAListWithoutFocusedItemTakesTheFirst)
{
    FilledHost list(3);
    list.SetState(-1, 0);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_EQ(list.Focused(), 0);
}

TEST(ListViewKeys, HomeAndEndGoToTheEnds)
{
    FilledHost list(50);
    list.SelectAndFocus(3);
    list.Press(VK_END);
    EXPECT_EQ(list.Selected(), "49");
    EXPECT_EQ(list.Top(), 50 - list.PerPage());
    list.Press(VK_HOME);
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_EQ(list.Top(), 0);
}

TEST(ListViewKeys, PageDownGoesToTheLastVisibleRowThenAPageFurther)
{
    FilledHost list(60);
    list.SelectAndFocus(0);
    list.Press(VK_NEXT);
    EXPECT_EQ(list.Focused(), list.PerPage() - 1);
    list.Press(VK_NEXT);
    EXPECT_EQ(list.Focused(), 2 * (list.PerPage() - 1));
    EXPECT_EQ(list.Selected(), std::to_string(list.Focused()));
}

TEST(ListViewKeys, PageUpGoesToTheFirstRowInSightAndThenAPageBack)
{
    FilledHost list(60);
    list.SelectAndFocus(59);
    list.Send(LVM_ENSUREVISIBLE, 59);
    const int top = list.Top();
    list.Press(VK_PRIOR);
    EXPECT_EQ(list.Focused(), top);
    list.Press(VK_PRIOR);
    EXPECT_EQ(list.Focused(), top - (list.PerPage() - 1));
}

TEST(ListViewKeys, PagesStopAtTheEnds)
{
    FilledHost list(3);
    list.SelectAndFocus(1);
    list.Press(VK_NEXT);
    EXPECT_EQ(list.Focused(), 2);
    list.Press(VK_PRIOR);
    EXPECT_EQ(list.Focused(), 0);
}

TEST(ListViewKeys, MovingBringsTheRowIntoSight)
{
    FilledHost list(50);
    list.SelectAndFocus(list.PerPage() - 1);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Top(), 1);
}

TEST(ListViewKeys, MovingEndsTheOldSelectionBeforeItMakesTheNew)
{
    FilledHost list(3, LVS_REPORT | LVS_SINGLESEL);
    list.SelectAndFocus(0);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Trace(), "key(40) changing(0:3>1) changed(0:3>1) "
                            "changing(1:0>3) changing(0:1>0) changed(0:1>0) changed(1:0>3)");
}

TEST(ListViewKeys, ShiftExtendsTheSelection)
{
    FilledHost list(5);
    list.Click(1);
    const HeldKeys keys(true, false);
    list.Press(VK_DOWN);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Selected(), "1 2 3");
    EXPECT_EQ(list.Focused(), 3);
    list.Press(VK_UP);
    EXPECT_EQ(list.Selected(), "1 2");
}

TEST(ListViewKeys, ShiftExtendsNothingInASingleSelectionList)
{
    FilledHost list(5, LVS_REPORT | LVS_SINGLESEL);
    list.Click(1);
    const HeldKeys keys(true, false);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Selected(), "2");
}

TEST(ListViewKeys, ControlMovesTheFocusAlone)
{
    FilledHost list(5);
    list.SelectAndFocus(1);
    const HeldKeys keys(false, true);
    list.Press(VK_DOWN);
    EXPECT_EQ(list.Selected(), "1");
    EXPECT_EQ(list.Focused(), 2);
}

TEST(ListViewKeys, AKeyThatMovesNothingSelectsNothing)
{
    FilledHost list(1);
    list.SetState(0, LVIS_FOCUSED);
    list.Press(VK_DOWN);
    list.Press(VK_HOME);
    EXPECT_EQ(list.Selected(), "");
    list.SetState(0, 0);
    list.Press(VK_UP);
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewKeys, SpaceSelectsTheFocusedRow)
{
    FilledHost list(3);
    list.SelectAndFocus(0);
    list.SetState(2, LVIS_FOCUSED, LVIS_FOCUSED);
    list.Press(VK_SPACE);
    EXPECT_EQ(list.Selected(), "2");
}

TEST(ListViewKeys, ControlAndSpaceToggleTheFocusedRow)
{
    FilledHost list(3);
    list.SelectAndFocus(0);
    const HeldKeys keys(false, true);
    list.Press(VK_DOWN);
    list.Press(VK_SPACE);
    EXPECT_EQ(list.Selected(), "0 1");
    list.Press(VK_SPACE);
    EXPECT_EQ(list.Selected(), "0");
}

TEST(ListViewKeys, ReturnIsNotified)
{
    FilledHost list(1);
    list.SelectAndFocus(0);
    list.Codes();
    list.Send(WM_KEYDOWN, VK_RETURN, 1);
    const std::vector<int> codes = list.Codes();
    ASSERT_GE(codes.size(), 2U);
    EXPECT_EQ(codes[0], static_cast<int>(LVN_KEYDOWN));
    EXPECT_EQ(codes[1], static_cast<int>(NM_RETURN));
}

TEST(ListViewKeys, EveryKeyIsNotified)
{
    FilledHost list(2);
    list.SelectAndFocus(0);
    list.Send(WM_KEYDOWN, VK_DELETE, 1);
    list.Send(WM_KEYDOWN, VK_F2, 1);
    EXPECT_EQ(list.Trace(), "key(46) key(113)");
}

TEST(ListViewKeys, AnEmptyListOnlyNotifiesOfKeys)
{
    FilledHost list(0);
    list.Send(WM_KEYDOWN, VK_DOWN, 1);
    list.Send(WM_KEYDOWN, VK_END, 1);
    EXPECT_EQ(list.Trace(), "key(40) key(35)");
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewKeys, TheListWantsArrowsAndCharactersOfADialog)
{
    const ListViewHost list;
    EXPECT_EQ(list.Send(WM_GETDLGCODE), DLGC_WANTCHARS | DLGC_WANTARROWS);
}

TEST(ListViewKeys, TheListMayBeDestroyedByTheHandlerOfAKey)
{
    FilledHost list(2);
    list.SelectAndFocus(0);
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_KEYDOWN)
            DestroyWindow(list.Control());
        return 0;
    };
    list.Send(WM_KEYDOWN, VK_DELETE, 1);
    EXPECT_FALSE(IsWindow(list.Control()));
}

TEST(ListViewFocus, IsNotifiedWhenItIsSetAndLost)
{
    ListViewHost list;
    list.Fill(2);
    SetFocus(list.Control());
    EXPECT_NE(list.Trace().find("setfocus"), std::string::npos);
    SetFocus(list.Window());
    EXPECT_NE(list.Trace().find("killfocus"), std::string::npos);
}

TEST(ListViewFocus, MakesNoItemTheFocusedOne)
{
    ListViewHost list;
    list.Fill(2);
    SetFocus(list.Control());
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewFocus, LeavesTheSelectionAlone)
{
    FilledHost list(3);
    list.SelectAndFocus(1);
    SetFocus(list.Window());
    EXPECT_EQ(list.Selected(), "1");
    SetFocus(list.Control());
    EXPECT_EQ(list.Selected(), "1");
    EXPECT_EQ(list.Focused(), 1);
}

TEST(ListViewFocus, ComesByAClick)
{
    FilledHost list(2);
    SetFocus(list.Window());
    list.Click(1);
    EXPECT_EQ(GetFocus(), list.Control());
}
