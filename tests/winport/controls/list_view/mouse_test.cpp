// The mouse in a list view.
#include "ListViewHost.h"

#include <gtest/gtest.h>

TEST(ListViewMouse, AClickSelectsAndFocusesTheRowAlone)
{
    FilledHost list(5);
    list.SetState(-1, LVIS_SELECTED, LVIS_SELECTED);
    list.Click(2);
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(list.Focused(), 2);
}

TEST(ListViewMouse, TheButtonSelectsOnPressAndClicksOnRelease)
{
    FilledHost list(3, LVS_REPORT | LVS_SINGLESEL);
    list.SelectAndFocus(0);
    list.Click(2);
    EXPECT_EQ(list.Trace(), "changing(0:3>1) changed(0:3>1) "
                            "changing(2:0>3) changing(0:1>0) changed(0:1>0) changed(2:0>3) click(2,0)");
}

TEST(ListViewMouse, ControlTogglesARow)
{
    FilledHost list(5);
    list.Click(1);
    const HeldKeys keys(false, true);
    list.Click(3, 0, MK_CONTROL);
    EXPECT_EQ(list.Selected(), "1 3");
    list.Click(1, 0, MK_CONTROL);
    EXPECT_EQ(list.Selected(), "3");
    EXPECT_EQ(list.Focused(), 1);
}

TEST(ListViewMouse, ShiftSelectsTheRangeFromTheLastPlainClick)
{
    FilledHost list(5);
    list.Click(1);
    const HeldKeys keys(true, false);
    list.Click(3, 0, MK_SHIFT);
    EXPECT_EQ(list.Selected(), "1 2 3");
    EXPECT_EQ(list.Focused(), 3);
    list.Click(0, 0, MK_SHIFT);
    EXPECT_EQ(list.Selected(), "0 1");
}

TEST(ListViewMouse, ControlAndShiftSelectOneInASingleSelectionList)
{
    FilledHost list(5, LVS_REPORT | LVS_SINGLESEL);
    list.Click(1);
    list.Click(3, 0, MK_SHIFT);
    EXPECT_EQ(list.Selected(), "3");
    list.Click(2, 0, MK_CONTROL);
    EXPECT_EQ(list.Selected(), "2");
}

TEST(ListViewMouse, AClickOnNothingEndsTheSelection)
{
    FilledHost list(2);
    list.SelectAndFocus(1);
    list.ClickAt(5, list.ItemRect(1).bottom + 3);
    EXPECT_EQ(list.Selected(), "");
    EXPECT_EQ(list.Focused(), 1);
    EXPECT_EQ(list.Trace(), "changing(1:3>1) changed(1:3>1) click(-1,0)");
}

TEST(ListViewMouse, OneOfSeveralSelectedRowsStaysAloneOnButtonUp)
{
    FilledHost list(3);
    list.SetState(-1, LVIS_SELECTED, LVIS_SELECTED);
    const POINT point = list.MiddleOf(1);
    const LPARAM place = MAKELONG(point.x, point.y);
    list.Trace();
    list.Send(WM_LBUTTONDOWN, MK_LBUTTON, place);
    EXPECT_EQ(list.Trace(), "changing(1:2>3) changed(1:2>3)");
    EXPECT_EQ(list.Selected(), "0 1 2");
    list.Send(WM_LBUTTONUP, 0, place);
    EXPECT_EQ(list.Trace(), "click(1,0) changing(0:2>0) changed(0:2>0) changing(2:2>0) changed(2:2>0)");
    EXPECT_EQ(list.Selected(), "1");
}

TEST(ListViewMouse, TheFocusComesAfterTheSelection)
{
    FilledHost list(2);
    SetFocus(list.Window());
    list.Trace();
    list.Click(1);
    EXPECT_EQ(list.Trace(), "changing(1:0>3) changed(1:0>3) setfocus click(1,0)");
}

TEST(ListViewMouse, ControlOnNothingKeepsTheSelection)
{
    FilledHost list(2);
    list.SelectAndFocus(1);
    list.ClickAt(5, list.ItemRect(1).bottom + 3, MK_CONTROL);
    EXPECT_EQ(list.Selected(), "1");
}

TEST(ListViewMouse, AClickBesideTheLabelNotifiesButSelectsNothing)
{
    FilledHost list(3, LVS_REPORT, 3);
    list.SelectAndFocus(0);
    list.Click(1, 2);
    EXPECT_EQ(list.Trace(), "changing(0:3>1) changed(0:3>1) click(1,2)");
}

TEST(ListViewMouse, AButtonThatOnlyComesUpIsNoClick)
{
    FilledHost list(2);
    const POINT point = list.MiddleOf(1);
    list.Send(WM_LBUTTONUP, 0, MAKELONG(point.x, point.y));
    EXPECT_EQ(list.Trace(), "");
}

TEST(ListViewMouse, AClickOnASubItemSelectsOnlyWithFullRows)
{
    FilledHost list(3, LVS_REPORT, 3);
    list.SetText(1, 2, L"sub");
    list.Click(1, 2);
    EXPECT_EQ(list.Selected(), "");
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    list.Click(1, 2);
    EXPECT_EQ(list.Selected(), "1");
}

TEST(ListViewMouse, AClickNotifiesOfRowAndColumn)
{
    FilledHost list(3, LVS_REPORT, 3);
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    POINT point{};
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == NM_CLICK)
            point = reinterpret_cast<NMITEMACTIVATE&>(header).ptAction;
        return 0;
    };
    const POINT middle = list.MiddleOf(1, 2);
    list.ClickAt(middle.x, middle.y);
    const std::string trace = list.Trace();
    EXPECT_NE(trace.find("click(1,2)"), std::string::npos) << trace;
    EXPECT_EQ(point.x, middle.x);
    EXPECT_EQ(point.y, middle.y);
}

TEST(ListViewMouse, ADoubleClickNotifiesOfRowAndColumn)
{
    FilledHost list(3, LVS_REPORT, 3);
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    const POINT middle = list.MiddleOf(2, 1);
    list.DoubleClickAt(middle.x, middle.y);
    const std::string trace = list.Trace();
    EXPECT_NE(trace.find("click(2,1) dblclk(2,1)"), std::string::npos) << trace;
}

TEST(ListViewMouse, TheListMayBeDestroyedByTheHandlerOfADoubleClick)
{
    FilledHost list(3);
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == NM_DBLCLK)
            DestroyWindow(list.Control());
        return 0;
    };
    const POINT middle = list.MiddleOf(1);
    list.DoubleClickAt(middle.x, middle.y);
    EXPECT_FALSE(IsWindow(list.Control()));
}

TEST(ListViewMouse, ARefusedChangeLeavesTheSelection)
{
    FilledHost list(3);
    list.SelectAndFocus(0);
    list.answer = [](NMHDR& header) -> LRESULT {
        return header.code == LVN_ITEMCHANGING ? TRUE : 0;
    };
    list.Click(2);
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_EQ(list.Focused(), 0);
}
