// A list view that is destroyed by the handler of its own notification.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
/// What is done, which notification of it destroys the list.
struct End
{
    const char* name;
    UINT code;
    void (*act)(ListViewHost&);
};

void InsertSelected(ListViewHost& list)
{
    list.Insert(1, L"new", 0, LVIS_SELECTED | LVIS_FOCUSED);
}

void SelectAnother(ListViewHost& list)
{
    list.SetState(2, LVIS_SELECTED | LVIS_FOCUSED);
}

void SelectAll(ListViewHost& list)
{
    list.SetState(-1, LVIS_SELECTED, LVIS_SELECTED);
}

void DeleteOne(ListViewHost& list)
{
    list.Send(LVM_DELETEITEM, 0);
}

void DeleteAll(ListViewHost& list)
{
    list.Send(LVM_DELETEALLITEMS);
}

void PressDown(ListViewHost& list)
{
    list.Send(WM_KEYDOWN, VK_DOWN, 1);
}

void ClickThird(ListViewHost& list)
{
    list.Click(2);
}

void ChangeText(ListViewHost& list)
{
    list.SetText(1, 0, L"new");
}

void BeginLabel(ListViewHost& list)
{
    list.Send(LVM_EDITLABELW, 1);
}

void LoseFocus(ListViewHost& list)
{
    SetFocus(list.Window());
}

void ClickHeading(ListViewHost& list)
{
    SendMessageW(list.Header(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG(40, 5));
    SendMessageW(list.Header(), WM_LBUTTONUP, 0, MAKELONG(40, 5));
}

class ListViewEnds : public testing::TestWithParam<End>
{
};
} // namespace

TEST_P(ListViewEnds, InTheHandlerOf)
{
    ListViewHost list(LVS_REPORT | LVS_EDITLABELS, 2);
    list.Fill(4);
    SetFocus(list.Control());
    list.SetState(0, LVIS_SELECTED | LVIS_FOCUSED);
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == GetParam().code)
            DestroyWindow(list.Control());
        return 0;
    };
    GetParam().act(list);
    EXPECT_FALSE(IsWindow(list.Control()));
}

INSTANTIATE_TEST_SUITE_P(
    , ListViewEnds,
    testing::Values(
        End{"InsertedItem", LVN_INSERTITEM, InsertSelected}, End{"DeletedItem", LVN_DELETEITEM, DeleteOne},
        End{"DeletedAll", LVN_DELETEALLITEMS, DeleteAll}, End{"SelectingAll", LVN_ITEMCHANGED, SelectAll},
        End{"ChangingItem", LVN_ITEMCHANGING, SelectAnother},
        End{"ChangedItem", LVN_ITEMCHANGED, SelectAnother},
        End{"InsertedSelectedItem", LVN_ITEMCHANGED, InsertSelected},
        End{"DeselectedDeletedItem", LVN_ITEMCHANGED, DeleteOne}, End{"PressedKey", LVN_KEYDOWN, PressDown},
        End{"SelectionByKey", LVN_ITEMCHANGED, PressDown},
        End{"SelectionByMouse", LVN_ITEMCHANGED, ClickThird}, End{"Click", NM_CLICK, ClickThird},
        End{"ChangedText", LVN_ITEMCHANGED, ChangeText}, End{"BegunLabel", LVN_BEGINLABELEDITW, BeginLabel},
        End{"LostFocus", NM_KILLFOCUS, LoseFocus}, End{"ColumnClick", LVN_COLUMNCLICK, ClickHeading}),
    [](const testing::TestParamInfo<End>& info) { return std::string(info.param.name); });
