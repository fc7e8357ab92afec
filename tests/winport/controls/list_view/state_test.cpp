// Selection and focus of the rows of a list view, and the notifications of their changes.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
constexpr UINT kBoth = LVIS_FOCUSED | LVIS_SELECTED;
}

TEST(ListViewState, IsSetOnOneItem)
{
    ListViewHost list;
    list.Fill(3);
    EXPECT_TRUE(list.SetState(1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(list.State(0), 0U);
    EXPECT_EQ(list.State(1), LVIS_SELECTED);
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 1);
}

TEST(ListViewState, OnlyTheBitsOfTheMaskAreSetAndGiven)
{
    ListViewHost list;
    list.Fill(1);
    list.SetState(0, kBoth, LVIS_SELECTED);
    EXPECT_EQ(list.State(0), LVIS_SELECTED);
    list.SetState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(list.State(0), kBoth);
    EXPECT_EQ(list.Send(LVM_GETITEMSTATE, 0, LVIS_FOCUSED), static_cast<LRESULT>(LVIS_FOCUSED));
}

TEST(ListViewState, IndexMinusOneSelectsAll)
{
    ListViewHost list;
    list.Fill(3);
    EXPECT_TRUE(list.SetState(-1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(list.Selected(), "0 1 2");
    EXPECT_TRUE(list.SetState(-1, 0, LVIS_SELECTED));
    EXPECT_EQ(list.Selected(), "");
}

TEST(ListViewState, IndexMinusOneNotifiesForEveryChangedItem)
{
    ListViewHost list;
    list.Fill(3);
    list.SetState(1, LVIS_SELECTED, LVIS_SELECTED);
    list.Trace();
    list.SetState(-1, 0, LVIS_SELECTED);
    EXPECT_EQ(list.Trace(), "changing(1:2>0) changed(1:2>0)");
}

TEST(ListViewState, ASelectedItemLeavesTheOthersSelected)
{
    ListViewHost list;
    list.Fill(3);
    list.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetState(2, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.Selected(), "0 2");
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 2);
}

TEST(ListViewState, ASingleSelectionEndsTheOldOneWithinItsChange)
{
    ListViewHost list(LVS_REPORT | LVS_SINGLESEL);
    list.Fill(3);
    list.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.Trace();
    list.SetState(2, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 1);
    EXPECT_EQ(list.Trace(), "changing(2:0>2) changing(0:2>0) changed(0:2>0) changed(2:0>2)");
}

TEST(ListViewState, TheFocusIsUnique)
{
    ListViewHost list;
    list.Fill(3);
    list.SetState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    list.SetState(2, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(list.State(0), 0U);
    EXPECT_EQ(list.State(2), LVIS_FOCUSED);
    EXPECT_EQ(list.Focused(), 2);
}

TEST(ListViewState, TheFocusIsIndependentOfTheSelection)
{
    ListViewHost list;
    list.Fill(3);
    list.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetState(1, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_EQ(list.Focused(), 1);
}

TEST(ListViewState, TheFocusCanBeTakenAway)
{
    ListViewHost list;
    list.Fill(2);
    list.SetState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    list.SetState(0, 0, LVIS_FOCUSED);
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewState, AChangeIsNotifiedBeforeAndAfter)
{
    ListViewHost list;
    list.Fill(2);
    std::string states;
    list.answer = [&](NMHDR& header) -> LRESULT {
        states +=
            (header.code == LVN_ITEMCHANGING ? "before " : "after ") + std::to_string(list.State(1)) + " ";
        return 0;
    };
    list.SetState(1, kBoth);
    EXPECT_EQ(list.Trace(), "changing(1:0>3) changed(1:0>3)");
    EXPECT_EQ(states, "before 0 after 3 ");
}

TEST(ListViewState, TheNotificationsCarryTheParameter)
{
    ListViewHost list;
    list.Fill(2);
    LPARAM sum = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        sum += reinterpret_cast<NMLISTVIEW&>(header).lParam;
        return 0;
    };
    list.SetState(1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(sum, 2);
}

TEST(ListViewState, TheNotificationsComeFromTheListWithItsIdentifier)
{
    ListViewHost list;
    list.Fill(1);
    int told = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        EXPECT_EQ(header.hwndFrom, list.Control());
        EXPECT_EQ(header.idFrom, 100U);
        ++told;
        return 0;
    };
    list.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(told, 2);
}

TEST(ListViewState, AChangeAnsweredTrueIsRefused)
{
    ListViewHost list;
    list.Fill(2);
    list.answer = [](NMHDR& header) -> LRESULT {
        return header.code == LVN_ITEMCHANGING ? TRUE : 0;
    };
    list.SetState(1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.Trace(), "changing(1:0>2)");
    EXPECT_EQ(list.Selected(), "");
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 0);
}

TEST(ListViewState, AnUnchangedStateIsNotNotified)
{
    ListViewHost list;
    list.Fill(2);
    list.SetState(1, kBoth);
    list.Trace();
    EXPECT_TRUE(list.SetState(1, kBoth));
    EXPECT_EQ(list.Trace(), "");
}

TEST(ListViewState, TheOldItemsFocusChangesWithinTheNewItemsChange)
{
    ListViewHost list;
    list.Fill(2);
    list.SetState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    list.Trace();
    list.SetState(1, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(list.Trace(), "changing(1:0>1) changing(0:1>0) changed(0:1>0) changed(1:0>1)");
}

TEST(ListViewState, InASingleSelectionListNotAllCanBeSelected)
{
    ListViewHost list(LVS_REPORT | LVS_SINGLESEL);
    list.Fill(3);
    EXPECT_FALSE(list.SetState(-1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(list.Selected(), "");
    list.SetState(1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_TRUE(list.SetState(-1, 0, LVIS_SELECTED));
    EXPECT_EQ(list.Selected(), "");
}

TEST(ListViewState, ASingleSelectionMovesSelectionThenFocus)
{
    ListViewHost list(LVS_REPORT | LVS_SINGLESEL);
    list.Fill(2);
    list.SetState(0, kBoth);
    list.Trace();
    list.SetState(1, kBoth);
    EXPECT_EQ(list.Trace(), "changing(1:0>3) changing(0:3>1) changed(0:3>1) changing(0:1>0) changed(0:1>0) "
                            "changed(1:0>3)");
}

TEST(ListViewState, OfAnItemThatDoesNotExist)
{
    ListViewHost list;
    list.Fill(2);
    EXPECT_FALSE(list.SetState(2, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(list.State(2), 0U);
    EXPECT_EQ(list.Trace(), "");
}

TEST(ListViewState, AnItemMayBeInsertedSelectedAndFocused)
{
    ListViewHost list;
    list.Insert(0, L"a", 0, kBoth);
    EXPECT_EQ(list.State(0), kBoth);
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 1);
    EXPECT_EQ(list.Focused(), 0);
    EXPECT_EQ(list.Trace(), "changing(0:0>3) changed(0:0>3) insert(0)");
}

TEST(ListViewState, TextParameterAndStateSetTogetherAreOneChange)
{
    ListViewHost list;
    list.Fill(1);
    wchar_t text[] = L"new";
    LVITEMW item{};
    item.mask = LVIF_STATE | LVIF_TEXT | LVIF_PARAM;
    item.state = item.stateMask = LVIS_SELECTED;
    item.pszText = text;
    item.lParam = 9;
    UINT changed = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_ITEMCHANGED)
            changed = reinterpret_cast<NMLISTVIEW&>(header).uChanged;
        return 0;
    };
    EXPECT_TRUE(list.Send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(list.Trace(), "changing(0:0>2) changed(0:0>2)");
    EXPECT_EQ(changed, LVIF_STATE | LVIF_TEXT | LVIF_PARAM);
    EXPECT_EQ(list.TextOf(0), L"new");
    EXPECT_EQ(list.ParamOf(0), 9);
}

TEST(ListViewState, SetItemChangesTheStateToo)
{
    ListViewHost list;
    list.Fill(1);
    LVITEMW item{};
    item.mask = LVIF_STATE;
    item.state = LVIS_SELECTED;
    item.stateMask = LVIS_SELECTED;
    EXPECT_TRUE(list.Send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item)));
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_EQ(list.Trace(), "changing(0:0>2) changed(0:0>2)");
}

TEST(ListViewNextItem, StartsBehindTheItemGiven)
{
    ListViewHost list;
    list.Fill(3);
    EXPECT_EQ(list.Next(-1, LVNI_ALL), 0);
    EXPECT_EQ(list.Next(0, LVNI_ALL), 1);
    EXPECT_EQ(list.Next(2, LVNI_ALL), -1);
}

TEST(ListViewNextItem, DoesNotWrap)
{
    ListViewHost list;
    list.Fill(4);
    list.SetState(1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.Next(-1, LVNI_SELECTED), 1);
    EXPECT_EQ(list.Next(1, LVNI_SELECTED), -1);
    EXPECT_EQ(list.Next(3, LVNI_SELECTED), -1);
}

TEST(ListViewNextItem, CombinesItsFlags)
{
    ListViewHost list;
    list.Fill(4);
    list.SetState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetState(2, kBoth);
    EXPECT_EQ(list.Next(-1, LVNI_SELECTED), 0);
    EXPECT_EQ(list.Next(-1, LVNI_SELECTED | LVNI_FOCUSED), 2);
    list.SetState(3, LVIS_FOCUSED, LVIS_FOCUSED);
    EXPECT_EQ(list.Next(-1, LVNI_SELECTED | LVNI_FOCUSED), -1);
    EXPECT_EQ(list.Next(-1, LVNI_FOCUSED), 3);
}

TEST(ListViewNextItem, OfAnEmptyListIsNone)
{
    const ListViewHost list;
    EXPECT_EQ(list.Next(-1, LVNI_ALL), -1);
    EXPECT_EQ(list.Next(-1, LVNI_SELECTED), -1);
}
