// Columns of a list view in report mode.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
int WidthOf(const ListViewHost& list, int column)
{
    return static_cast<int>(list.Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
}

LVCOLUMNW ColumnOf(const ListViewHost& list, int index, UINT mask)
{
    LVCOLUMNW column{};
    column.mask = mask;
    if (!list.Send(LVM_GETCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column)))
        column.mask = 0;
    return column;
}
} // namespace

TEST(ListViewColumns, AreInsertedWhereAsked)
{
    const ListViewHost list(LVS_REPORT, 0);
    EXPECT_EQ(list.InsertColumn(0, L"b"), 0);
    EXPECT_EQ(list.InsertColumn(0, L"a"), 0);
    EXPECT_EQ(list.InsertColumn(2, L"c"), 2);
    EXPECT_EQ(list.Headings(), L"a|b|c");
}

TEST(ListViewColumns, AnIndexPastTheEndAppendsAndReturnsTheRealIndex)
{
    const ListViewHost list(LVS_REPORT, 0);
    EXPECT_EQ(list.InsertColumn(1, L"Component Name"), 0);
    EXPECT_EQ(list.InsertColumn(7, L"x"), 1);
    EXPECT_EQ(list.Headings(), L"Component Name|x");
}

TEST(ListViewColumns, ANegativeIndexIsRefused)
{
    const ListViewHost list(LVS_REPORT, 1);
    EXPECT_EQ(list.InsertColumn(-1, L"x"), -1);
    EXPECT_EQ(list.ColumnCount(), 1);
}

TEST(ListViewColumns, InsertingOneShiftsTheTextsOfSubItemsRight)
{
    const ListViewHost list(LVS_REPORT, 3);
    list.Insert(0, L"a");
    list.SetText(0, 1, L"one");
    list.SetText(0, 2, L"two");
    EXPECT_EQ(list.InsertColumn(1, L"new"), 1);
    EXPECT_EQ(list.TextOf(0, 0), L"a");
    EXPECT_EQ(list.TextOf(0, 1), L"");
    EXPECT_EQ(list.TextOf(0, 2), L"one");
    EXPECT_EQ(list.TextOf(0, 3), L"two");
}

TEST(ListViewColumns, InsertingTheFirstLeavesTheItemTextWhereItIs)
{
    const ListViewHost list(LVS_REPORT, 2);
    list.Insert(0, L"a");
    list.SetText(0, 1, L"one");
    EXPECT_EQ(list.InsertColumn(0, L"new"), 0);
    EXPECT_EQ(list.Headings(), L"new|c0|c1");
    EXPECT_EQ(list.TextOf(0, 0), L"a");
    EXPECT_EQ(list.TextOf(0, 1), L"");
    EXPECT_EQ(list.TextOf(0, 2), L"one");
}

TEST(ListViewColumns, HaveTheWidthTheyWereGiven)
{
    const ListViewHost list(LVS_REPORT, 0);
    list.InsertColumn(0, L"a", 120);
    list.InsertColumn(1, L"b", 0);
    EXPECT_EQ(WidthOf(list, 0), 120);
    EXPECT_EQ(WidthOf(list, 1), 0);
    EXPECT_EQ(ColumnOf(list, 0, LVCF_WIDTH).cx, 120);
}

TEST(ListViewColumns, AWidthOfWhatDoesNotExistIsZero)
{
    const ListViewHost list(LVS_REPORT, 1);
    EXPECT_EQ(WidthOf(list, 1), 0);
    EXPECT_EQ(WidthOf(list, -1), 0);
}

TEST(ListViewColumns, TheWidthCanBeSet)
{
    const ListViewHost list(LVS_REPORT, 2);
    EXPECT_TRUE(list.Send(LVM_SETCOLUMNWIDTH, 1, 33));
    EXPECT_EQ(WidthOf(list, 0), 80);
    EXPECT_EQ(WidthOf(list, 1), 33);
    EXPECT_FALSE(list.Send(LVM_SETCOLUMNWIDTH, 2, 33));
}

TEST(ListViewColumns, KeepTheirAlignment)
{
    const ListViewHost list(LVS_REPORT, 0);
    list.InsertColumn(0, L"a", 80, LVCFMT_LEFT);
    list.InsertColumn(1, L"b", 80, LVCFMT_RIGHT);
    list.InsertColumn(2, L"c", 80, LVCFMT_CENTER);
    list.InsertColumn(3, L"d", 80, LVCFMT_LEFT);
    EXPECT_EQ(ColumnOf(list, 0, LVCF_FMT).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
    EXPECT_EQ(ColumnOf(list, 1, LVCF_FMT).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
    EXPECT_EQ(ColumnOf(list, 2, LVCF_FMT).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_CENTER);
    EXPECT_EQ(ColumnOf(list, 3, LVCF_FMT).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
}

TEST(ListViewColumns, WithNothingSaidHaveNoTextAndSomeWidth)
{
    const ListViewHost list(LVS_REPORT, 0);
    LVCOLUMNW column{};
    EXPECT_EQ(list.Send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column)), 0);
    EXPECT_EQ(list.Headings(), L"");
    EXPECT_EQ(list.ColumnCount(), 1);
}

TEST(ListViewColumns, TellTheNumberOfTheirSubItem)
{
    const ListViewHost list(LVS_REPORT, 3);
    EXPECT_EQ(ColumnOf(list, 0, LVCF_SUBITEM).iSubItem, 0);
    LVCOLUMNW column{};
    column.mask = LVCF_SUBITEM | LVCF_WIDTH;
    column.iSubItem = 5;
    column.cx = 10;
    list.Send(LVM_INSERTCOLUMNW, 3, reinterpret_cast<LPARAM>(&column));
    EXPECT_EQ(ColumnOf(list, 3, LVCF_SUBITEM).iSubItem, 5);
}

TEST(ListViewColumns, QueriesForMissingColumnsFail)
{
    const ListViewHost list(LVS_REPORT, 1);
    EXPECT_EQ(ColumnOf(list, 0, LVCF_WIDTH).mask, LVCF_WIDTH);
    EXPECT_EQ(ColumnOf(list, 1, LVCF_WIDTH).mask, 0U);
    EXPECT_EQ(ColumnOf(list, -1, LVCF_WIDTH).mask, 0U);
}

TEST(ListViewColumns, AHeadingIsCutToTheBuffer)
{
    const ListViewHost list(LVS_REPORT, 0);
    list.InsertColumn(0, L"abcdef");
    wchar_t text[8] = L"#######";
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = text;
    column.cchTextMax = 4;
    EXPECT_TRUE(list.Send(LVM_GETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column)));
    EXPECT_STREQ(text, L"abc");
}
