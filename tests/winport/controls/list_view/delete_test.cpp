// Deleting rows of a list view: the other rows, and the notifications.
#include "ListViewHost.h"

#include <gtest/gtest.h>

TEST(ListViewItems, DeleteShiftsWhatFollows)
{
    ListViewHost list(LVS_REPORT, 2);
    list.Fill(4);
    list.SetText(2, 1, L"sub");
    EXPECT_TRUE(list.Send(LVM_DELETEITEM, 1));
    EXPECT_EQ(list.Texts(), L"r0|r2|r3");
    EXPECT_EQ(list.Texts(1), L"|sub|");
    EXPECT_EQ(list.ParamOf(1), 2);
}

TEST(ListViewItems, DeletingWhatDoesNotExistFails)
{
    ListViewHost list;
    EXPECT_FALSE(list.Send(LVM_DELETEITEM, 0));
    list.Fill(1);
    EXPECT_FALSE(list.Send(LVM_DELETEITEM, 1));
    EXPECT_FALSE(list.Send(LVM_DELETEITEM, static_cast<WPARAM>(-1)));
    EXPECT_EQ(list.Count(), 1);
    EXPECT_EQ(list.Trace(), "");
}

TEST(ListViewItems, DeleteNotifiesTheParentWhileTheItemIsStillThere)
{
    ListViewHost list;
    list.Fill(2);
    int count = 0;
    LPARAM param = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_DELETEITEM)
        {
            count = list.Count();
            param = reinterpret_cast<NMLISTVIEW&>(header).lParam;
        }
        return 0;
    };
    list.Send(LVM_DELETEITEM, 1);
    EXPECT_EQ(list.Trace(), "delete(1)");
    EXPECT_EQ(count, 2);
    EXPECT_EQ(param, 1);
}

TEST(ListViewItems, DeletingAnItemDeselectsItWithANotification)
{
    ListViewHost list;
    list.Fill(3);
    list.SetState(1, LVIS_SELECTED);
    list.Trace();
    list.Send(LVM_DELETEITEM, 1);
    EXPECT_EQ(list.Trace(), "changing(1:2>0) changed(1:2>0) delete(1)");
    EXPECT_EQ(list.Selected(), "");
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 0);
}

TEST(ListViewItems, OtherItemsKeepTheirSelectionWhenOneIsDeleted)
{
    ListViewHost list;
    list.Fill(4);
    list.SetState(0, LVIS_SELECTED);
    list.SetState(3, LVIS_SELECTED);
    list.Send(LVM_DELETEITEM, 1);
    EXPECT_EQ(list.Selected(), "0 2");
}

TEST(ListViewItems, TheFocusOfADeletedItemGoesSilentlyToTheSameIndex)
{
    ListViewHost list;
    list.Fill(3);
    list.SetState(1, LVIS_FOCUSED);
    list.Trace();
    list.Send(LVM_DELETEITEM, 1);
    EXPECT_EQ(list.Focused(), 1);
    EXPECT_EQ(list.Trace(), "changing(1:1>0) changed(1:1>0) delete(1)");
}

TEST(ListViewItems, TheFocusOfTheDeletedLastItemGoesToTheNewLast)
{
    ListViewHost list;
    list.Fill(3);
    list.SetState(2, LVIS_FOCUSED);
    list.Trace();
    list.Send(LVM_DELETEITEM, 2);
    EXPECT_EQ(list.Focused(), 1);
    list.Send(LVM_DELETEITEM, 0);
    EXPECT_EQ(list.Focused(), 0);
    list.Send(LVM_DELETEITEM, 0);
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewItems, DeleteAllNotifiesOnceAndThenForEachFromTheLast)
{
    ListViewHost list;
    list.Fill(3);
    EXPECT_TRUE(list.Send(LVM_DELETEALLITEMS));
    EXPECT_EQ(list.Trace(), "clear delete(2) delete(1) delete(0)");
    EXPECT_EQ(list.Count(), 0);
}

TEST(ListViewItems, DeleteAllNotifiesOnceIfTheHandlerReturnsTrue)
{
    ListViewHost list;
    list.Fill(3);
    list.answer = [](NMHDR& header) -> LRESULT {
        return header.code == LVN_DELETEALLITEMS ? TRUE : 0;
    };
    EXPECT_TRUE(list.Send(LVM_DELETEALLITEMS));
    EXPECT_EQ(list.Trace(), "clear");
    EXPECT_EQ(list.Count(), 0);
}

TEST(ListViewItems, DeleteAllLosesSelectionFocusAndScrolling)
{
    ListViewHost list;
    list.Fill(50);
    list.SetState(40, LVIS_SELECTED | LVIS_FOCUSED);
    list.Send(LVM_ENSUREVISIBLE, 49);
    list.Send(LVM_DELETEALLITEMS);
    EXPECT_EQ(list.Send(LVM_GETSELECTEDCOUNT), 0);
    list.Fill(2);
    EXPECT_EQ(list.Top(), 0);
    EXPECT_EQ(list.Selected(), "");
    EXPECT_EQ(list.Focused(), -1);
}

TEST(ListViewItems, DeleteAllOfAnEmptyListIsGranted)
{
    ListViewHost list;
    EXPECT_TRUE(list.Send(LVM_DELETEALLITEMS));
    EXPECT_EQ(list.Count(), 0);
}

TEST(ListViewItems, DestroyingTheListDeletesItsItems)
{
    ListViewHost list;
    list.Fill(2);
    list.SetState(0, LVIS_SELECTED);
    list.Trace();
    DestroyWindow(list.Control());
    EXPECT_EQ(list.Trace(), "clear delete(1) delete(0)");
}
