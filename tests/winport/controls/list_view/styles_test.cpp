// Styles of a list view, and what becomes of it when they change.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
int HeaderHeight(const ListViewHost& list)
{
    RECT rect{};
    GetWindowRect(list.Header(), &rect);
    return rect.bottom - rect.top;
}
} // namespace

TEST(ListViewStyles, TheExtendedStyleIsSetWholeWithoutAMask)
{
    const ListViewHost list;
    EXPECT_EQ(list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), 0);
    EXPECT_EQ(list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_GRIDLINES | LVS_EX_REGIONAL), 0);
    EXPECT_EQ(list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), 0x201);
    EXPECT_EQ(list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP), 0x201);
    EXPECT_EQ(list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), 0x4020);
}

TEST(ListViewStyles, TheMaskSavesTheOtherBitsOfTheExtendedStyle)
{
    const ListViewHost list;
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_GRIDLINES | LVS_EX_REGIONAL);
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    EXPECT_EQ(list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), 0x221);
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_GRIDLINES, 0);
    EXPECT_EQ(list.Send(LVM_GETEXTENDEDLISTVIEWSTYLE), 0x220);
}

TEST(ListViewStyles, AListMadeWithoutAModeBecomesAReport)
{
    ListViewHost list(WS_BORDER, 0);
    SetWindowLongW(list.Control(), GWL_STYLE, GetWindowLongW(list.Control(), GWL_STYLE) | LVS_REPORT);
    EXPECT_EQ(list.InsertColumn(0, L"a"), 0);
    EXPECT_EQ(list.InsertColumn(1, L"b"), 1);
    list.Fill(3);
    list.SetText(1, 1, L"sub");
    EXPECT_NE(list.Header(), nullptr);
    EXPECT_EQ(list.Headings(), L"a|b");
    EXPECT_EQ(list.TextOf(1, 1), L"sub");
    EXPECT_EQ(list.ItemRect(0).top, HeaderHeight(list));
    EXPECT_TRUE(IsWindowVisible(list.Header()));
}

TEST(ListViewStyles, LabelEditingMayBeAddedLater)
{
    ListViewHost list;
    list.Fill(1);
    SetFocus(list.Control());
    EXPECT_EQ(list.Send(LVM_EDITLABELW, 0), 0);
    SetWindowLongW(list.Control(), GWL_STYLE, GetWindowLongW(list.Control(), GWL_STYLE) | LVS_EDITLABELS);
    EXPECT_NE(list.Send(LVM_EDITLABELW, 0), 0);
}

TEST(ListViewStyles, TheHeaderIsAsWideAsTheListOrWider)
{
    ListViewHost list(LVS_REPORT, 2);
    RECT window{};
    GetWindowRect(list.Header(), &window);
    EXPECT_GE(window.right - window.left, list.Client().right);
    MoveWindow(list.Control(), 10, 10, 350, 200, FALSE);
    GetWindowRect(list.Header(), &window);
    EXPECT_GE(window.right - window.left, list.Client().right);
}
