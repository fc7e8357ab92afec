// Rows of a list view: their order and their content.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
LVITEMW ItemOf(UINT mask, int item, int subItem)
{
    LVITEMW description{};
    description.mask = mask;
    description.iItem = item;
    description.iSubItem = subItem;
    return description;
}

LRESULT SendItem(const ListViewHost& list, UINT message, LVITEMW& item)
{
    return list.Send(message, 0, reinterpret_cast<LPARAM>(&item));
}
} // namespace

TEST(ListViewItems, ANewListIsEmpty)
{
    const ListViewHost list;
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 0);
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewItems, InsertReturnsTheIndexAndShiftsWhatFollows)
{
    const ListViewHost list;
    EXPECT_EQ(list.Insert(0, L"a"), 0);
    EXPECT_EQ(list.Insert(1, L"c"), 1);
    EXPECT_EQ(list.Insert(1, L"b"), 1);
    EXPECT_EQ(list.Insert(0, L"first"), 0);
    EXPECT_EQ(list.Texts(), L"first|a|b|c");
}

TEST(ListViewItems, InsertPastTheEndAppends)
{
    const ListViewHost list;
    EXPECT_EQ(list.Insert(5, L"a"), 0);
    EXPECT_EQ(list.Insert(0x7FFFFFFF, L"b"), 1);
    EXPECT_EQ(list.Texts(), L"a|b");
}

TEST(ListViewItems, InsertAtANegativeIndexFails)
{
    const ListViewHost list;
    list.Insert(0, L"a");
    EXPECT_EQ(list.Insert(-1, L"b"), -1);
    EXPECT_EQ(list.Texts(), L"a");
}

TEST(ListViewItems, InsertOfASubItemFails)
{
    const ListViewHost list(LVS_REPORT, 2);
    wchar_t text[] = L"a";
    LVITEMW item = ItemOf(LVIF_TEXT, 0, 1);
    item.pszText = text;
    EXPECT_EQ(SendItem(list, LVM_INSERTITEMW, item), -1);
    EXPECT_EQ(list.Count(), 0);
}

TEST(ListViewItems, InsertNotifiesTheParentOnceTheItemIsThere)
{
    ListViewHost list;
    list.Insert(0, L"a");
    list.Trace();
    int count = 0;
    LPARAM param = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        count = list.Count();
        param = reinterpret_cast<NMLISTVIEW&>(header).lParam;
        return 0;
    };
    list.Insert(1, L"b", 42);
    EXPECT_EQ(list.Trace(), "insert(1)");
    EXPECT_EQ(count, 2);
    EXPECT_EQ(param, 42);
}

TEST(ListViewItems, AnItemInsertedWithoutTextReadsEmpty)
{
    const ListViewHost list;
    LVITEMW item = ItemOf(0, 0, 0);
    EXPECT_EQ(SendItem(list, LVM_INSERTITEMW, item), 0);
    EXPECT_EQ(list.TextOf(0), L"");
    EXPECT_EQ(list.ParamOf(0), 0);
    EXPECT_EQ(list.Insert(1, nullptr), 1);
    EXPECT_EQ(list.TextOf(1), L"");
}

TEST(ListViewItems, ASortedListIgnoresTheIndexAndInsertsByText)
{
    const ListViewHost list(LVS_REPORT | LVS_SORTASCENDING);
    EXPECT_EQ(list.Insert(0, L"beta"), 0);
    EXPECT_EQ(list.Insert(0, L"delta"), 1);
    EXPECT_EQ(list.Insert(9, L"Alpha"), 0);
    EXPECT_EQ(list.Insert(0, L"CHI"), 2);
    EXPECT_EQ(list.Texts(), L"Alpha|beta|CHI|delta");
}

TEST(ListViewItems, ASortedListInsertsBeforeTheFirstItemThatIsNotLess)
{
    const ListViewHost list(LVS_REPORT | LVS_SORTASCENDING);
    list.Insert(0, L"a", 1);
    list.Insert(0, L"b", 2);
    list.Insert(0, L"c", 3);
    EXPECT_EQ(list.Insert(9, L"b", 4), 1);
    EXPECT_EQ(list.Insert(9, L"b", 5), 1);
    EXPECT_EQ(list.ParamOf(1), 5);
    EXPECT_EQ(list.ParamOf(2), 4);
    EXPECT_EQ(list.ParamOf(3), 2);
    EXPECT_EQ(list.ParamOf(4), 3);
}

TEST(ListViewItems, ChangingATextNeverSortsAgain)
{
    const ListViewHost list(LVS_REPORT | LVS_SORTASCENDING);
    list.Insert(0, L"a");
    list.Insert(0, L"b");
    list.SetText(0, 0, L"z");
    EXPECT_EQ(list.Texts(), L"z|b");
}

TEST(ListViewItems, AnUnsetSubItemTextReadsEmpty)
{
    const ListViewHost list(LVS_REPORT, 3);
    list.Insert(0, L"a");
    EXPECT_EQ(list.TextOf(0, 1), L"");
    EXPECT_EQ(list.TextOf(0, 2), L"");
}

TEST(ListViewItems, SubItemTextsBelongToTheirColumn)
{
    const ListViewHost list(LVS_REPORT, 3);
    list.Insert(0, L"a");
    EXPECT_TRUE(list.SetText(0, 2, L"third"));
    EXPECT_TRUE(list.SetText(0, 1, L"second"));
    EXPECT_EQ(list.TextOf(0, 0), L"a");
    EXPECT_EQ(list.TextOf(0, 1), L"second");
    EXPECT_EQ(list.TextOf(0, 2), L"third");
}

TEST(ListViewItems, ASubItemTextBeyondTheColumnsIsNotStored)
{
    const ListViewHost list(LVS_REPORT, 2);
    list.Insert(0, L"a");
    EXPECT_FALSE(list.SetText(0, 2, L"lost"));
    EXPECT_EQ(list.TextOf(0, 2), L"");
    list.InsertColumn(2, L"new");
    EXPECT_EQ(list.TextOf(0, 2), L"");
}

TEST(ListViewItems, ATextOfAnItemThatDoesNotExistIsRefused)
{
    const ListViewHost list;
    list.Insert(0, L"a");
    EXPECT_FALSE(list.SetText(1, 0, L"lost"));
    EXPECT_FALSE(list.SetText(-1, 0, L"lost"));
    EXPECT_EQ(list.TextOf(1), L"");
    EXPECT_EQ(list.Texts(), L"a");
}

TEST(ListViewItems, TextsAreCutToTheBufferAndTheCopiedLengthReturned)
{
    const ListViewHost list;
    list.Insert(0, L"abcdef");
    wchar_t text[8] = L"#######";
    LVITEMW item{};
    item.pszText = text;
    item.cchTextMax = 4;
    EXPECT_EQ(list.Send(LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item)), 3);
    EXPECT_STREQ(text, L"abc");
}

TEST(ListViewItems, ATextOfTenThousandCharactersIsReadBackWhole)
{
    const ListViewHost list(LVS_REPORT, 2);
    const std::wstring longText(10000, L'x');
    list.Insert(0, longText.c_str());
    list.SetText(0, 1, longText.c_str());
    EXPECT_EQ(list.TextOf(0), longText);
    EXPECT_EQ(list.TextOf(0, 1), longText);
}

TEST(ListViewItems, GetItemGivesTextParameterAndStateTogether)
{
    const ListViewHost list(LVS_REPORT, 2);
    list.Insert(0, L"a", 7, LVIS_SELECTED);
    wchar_t text[16] = L"";
    LVITEMW item = ItemOf(LVIF_TEXT | LVIF_PARAM | LVIF_STATE, 0, 0);
    item.pszText = text;
    item.cchTextMax = 16;
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    EXPECT_TRUE(SendItem(list, LVM_GETITEMW, item));
    EXPECT_STREQ(item.pszText, L"a");
    EXPECT_EQ(item.lParam, 7);
    EXPECT_EQ(item.state, LVIS_SELECTED);
}

TEST(ListViewItems, ASubItemHasItsTextAndTheItemsParameter)
{
    const ListViewHost list(LVS_REPORT, 2);
    list.Insert(0, L"a", 7);
    list.SetText(0, 1, L"sub");
    wchar_t text[16] = L"";
    LVITEMW item = ItemOf(LVIF_TEXT | LVIF_PARAM, 0, 1);
    item.pszText = text;
    item.cchTextMax = 16;
    EXPECT_TRUE(SendItem(list, LVM_GETITEMW, item));
    EXPECT_STREQ(item.pszText, L"sub");
    EXPECT_EQ(item.lParam, 7);
}

TEST(ListViewItems, GetItemOfAnItemThatDoesNotExistFails)
{
    const ListViewHost list;
    LVITEMW item = ItemOf(LVIF_PARAM, 0, 0);
    EXPECT_FALSE(SendItem(list, LVM_GETITEMW, item));
    list.Insert(0, L"a");
    item.iItem = -1;
    EXPECT_FALSE(SendItem(list, LVM_GETITEMW, item));
    item.iItem = 1;
    EXPECT_FALSE(SendItem(list, LVM_GETITEMW, item));
}

TEST(ListViewItems, SetItemChangesTextAndParameter)
{
    const ListViewHost list;
    list.Insert(0, L"a", 1);
    wchar_t text[] = L"b";
    LVITEMW item = ItemOf(LVIF_TEXT | LVIF_PARAM, 0, 0);
    item.pszText = text;
    item.lParam = 2;
    EXPECT_TRUE(SendItem(list, LVM_SETITEMW, item));
    EXPECT_EQ(list.TextOf(0), L"b");
    EXPECT_EQ(list.ParamOf(0), 2);
}

TEST(ListViewItems, TheParameterCannotBeSetThroughASubItem)
{
    const ListViewHost list(LVS_REPORT, 2);
    list.Insert(0, L"a", 1);
    LVITEMW item = ItemOf(LVIF_PARAM, 0, 1);
    item.lParam = 2;
    EXPECT_FALSE(SendItem(list, LVM_SETITEMW, item));
    EXPECT_EQ(list.ParamOf(0), 1);
    wchar_t text[] = L"sub";
    item.mask = LVIF_PARAM | LVIF_TEXT;
    item.pszText = text;
    EXPECT_FALSE(SendItem(list, LVM_SETITEMW, item));
    EXPECT_EQ(list.ParamOf(0), 1);
    EXPECT_EQ(list.TextOf(0, 1), L"");
}

TEST(ListViewItems, ANewTextIsNotifiedAsAChange)
{
    ListViewHost list;
    list.Fill(2);
    list.SetText(1, 0, L"new");
    EXPECT_EQ(list.Trace(), "text(1)");
}

TEST(ListViewItems, TheTextMayBeSetToNothing)
{
    const ListViewHost list;
    list.Insert(0, L"a");
    EXPECT_TRUE(list.SetText(0, 0, nullptr));
    EXPECT_EQ(list.TextOf(0), L"");
}

TEST(ListViewItems, AnInsertMovesSelectionAndFocusWithTheirItems)
{
    ListViewHost list;
    list.Fill(2);
    list.SetState(1, LVIS_SELECTED | LVIS_FOCUSED);
    list.Insert(0, L"first");
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(list.Focused(), 2);
}

TEST(ListViewItems, RedrawSwitchedOffChangesNothingButThePicture)
{
    const ListViewHost list;
    list.Send(WM_SETREDRAW, FALSE);
    list.Insert(0, L"a");
    list.Insert(1, L"b");
    EXPECT_EQ(list.Texts(), L"a|b");
    list.Send(WM_SETREDRAW, TRUE);
    EXPECT_EQ(list.Texts(), L"a|b");
}

TEST(ListViewItems, ManyItemsInNoOrderAreSortedAsTheyCome)
{
    const ListViewHost list(LVS_REPORT | LVS_SORTASCENDING);
    list.Send(WM_SETREDRAW, FALSE);
    constexpr int kCount = 1000;
    for (int i = 0; i < kCount; ++i)
    {
        const int number = (i * 377) % kCount;
        list.Insert(i, (L"n" + std::to_wstring(10000 + number)).c_str(), number);
    }
    list.Send(WM_SETREDRAW, TRUE);
    for (int i = 0; i < kCount; ++i)
        ASSERT_EQ(list.ParamOf(i), i);
}

TEST(ListViewItems, ASortedListWithChangedTextsInsertsBeforeTheNotLess)
{
    const ListViewHost list(LVS_REPORT | LVS_SORTASCENDING);
    for (const wchar_t* text : {L"a", L"b", L"c", L"d"})
        list.Insert(0, text);
    list.SetText(0, 0, L"z");
    EXPECT_EQ(list.Insert(0, L"bb"), 0);
    EXPECT_EQ(list.Texts(), L"bb|z|b|c|d");
}

TEST(ListViewItems, ManyItemsKeepTheirOrderAndTexts)
{
    ListViewHost list(LVS_REPORT, 2);
    list.Send(WM_SETREDRAW, FALSE);
    for (int i = 0; i < 10000; ++i)
    {
        list.Insert(i, std::to_wstring(i).c_str(), i);
        list.SetText(i, 1, L"sub");
    }
    list.Send(WM_SETREDRAW, TRUE);
    EXPECT_EQ(list.Count(), 10000);
    EXPECT_EQ(list.TextOf(9999), L"9999");
    EXPECT_EQ(list.TextOf(9999, 1), L"sub");
    EXPECT_EQ(list.ParamOf(5000), 5000);
    list.Send(LVM_DELETEITEM, 0);
    EXPECT_EQ(list.TextOf(0), L"1");
}
