// What lies under a point of a list view.
#include "ListViewHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace
{
// What a click tells of itself.
std::string ClickedAt(ListViewHost& list, int x, int y)
{
    list.ClickAt(x, y);
    const std::string told = list.Trace();
    return told.substr(std::min(told.find("click("), told.size()));
}
} // namespace

TEST(ListViewHit, FindsTheRowUnderThePoint)
{
    ListViewHost list;
    list.Fill(50);
    for (int i = 0; i < list.PerPage(); ++i)
    {
        const POINT point = list.MiddleOf(i);
        EXPECT_EQ(list.Hit(point.x, point.y).iItem, i);
    }
    list.Send(LVM_ENSUREVISIBLE, 40, FALSE);
    const POINT point = list.MiddleOf(40);
    EXPECT_EQ(list.Hit(point.x, point.y).iItem, 40);
}

TEST(ListViewHit, OnTheTextIsOnTheLabel)
{
    ListViewHost list;
    list.Fill(1);
    const RECT label = list.ItemRect(0, LVIR_LABEL);
    const LVHITTESTINFO hit = list.Hit(label.left + 6, (label.top + label.bottom) / 2);
    EXPECT_EQ(hit.iItem, 0);
    EXPECT_EQ(hit.flags, LVHT_ONITEMLABEL);
}

TEST(ListViewHit, BelowTheLastRowIsNowhere)
{
    ListViewHost list;
    list.Fill(2);
    const LVHITTESTINFO hit = list.Hit(5, list.ItemRect(1).bottom + 2);
    EXPECT_EQ(hit.iItem, -1);
    EXPECT_EQ(hit.flags, LVHT_NOWHERE);
}

TEST(ListViewHit, RightOfTheColumnsIsNowhere)
{
    ListViewHost list;
    list.Fill(2);
    EXPECT_EQ(list.Hit(200, list.MiddleOf(1).y).iItem, -1);
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
    EXPECT_EQ(list.Hit(200, list.MiddleOf(1).y).iItem, -1);
}

TEST(ListViewHit, OnASubItemIsTheRowOnlyIfFullRowsAreSelected)
{
    ListViewHost list(LVS_REPORT, 3);
    list.Fill(2);
    list.SetText(1, 1, L"sub");
    const POINT point = list.MiddleOf(1, 1);
    EXPECT_EQ(list.Hit(point.x, point.y).iItem, -1);
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    const LVHITTESTINFO hit = list.Hit(point.x, point.y);
    EXPECT_EQ(hit.iItem, 1);
    EXPECT_EQ(hit.flags, LVHT_ONITEM);
}

TEST(ListViewHit, OutsideOfTheListIsNoRow)
{
    ListViewHost list(LVS_REPORT, 3, 200, 60);
    list.Fill(20);
    const POINT point = list.MiddleOf(0);
    const RECT client = list.Client();
    EXPECT_EQ(list.Hit(point.x, client.bottom + 5).iItem, -1);
    EXPECT_EQ(list.Hit(-5, point.y).iItem, -1);
    EXPECT_EQ(list.Hit(point.x, -5).iItem, -1);
}

TEST(ListViewHit, AClickNotifiesTheColumnInEitherCase)
{
    ListViewHost list(LVS_REPORT, 3);
    list.Fill(2);
    for (const DWORD style : {DWORD{0}, DWORD{LVS_EX_FULLROWSELECT}})
    {
        list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, static_cast<LPARAM>(style));
        for (int column = 0; column < 3; ++column)
        {
            const POINT point = list.MiddleOf(1, column);
            EXPECT_EQ(ClickedAt(list, point.x, point.y), "click(1," + std::to_string(column) + ")");
        }
    }
}

TEST(ListViewHit, TheColumnOfAClickFollowsSidewaysScrolling)
{
    ListViewHost list(LVS_REPORT, 5);
    list.Fill(2);
    list.Send(LVM_SCROLL, 90, 0);
    EXPECT_EQ(ClickedAt(list, 2, list.MiddleOf(1).y), "click(1,1)");
}

TEST(ListViewHit, ColumnsEndWhereTheNextOnesStart)
{
    ListViewHost list(LVS_REPORT, 3);
    list.Fill(1);
    const int y = list.MiddleOf(0).y;
    const auto column = [&](int x) {
        const std::string told = ClickedAt(list, x, y);
        return told.substr(told.find(',') + 1, 1);
    };
    EXPECT_EQ(column(79), "0");
    EXPECT_EQ(column(80), "1");
    EXPECT_EQ(column(159), "1");
    EXPECT_EQ(column(160), "2");
}

TEST(ListViewHit, InAnEmptyListIsNowhere)
{
    const ListViewHost list;
    EXPECT_EQ(list.Hit(5, 40).iItem, -1);
}
