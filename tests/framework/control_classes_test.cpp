// The classes of controls, and what a dialog does with its controls by their numbers.
#include "DialogTest.h"

#include "HeaderCtrl.h"

#include <utility>

namespace
{
class ControlClasses : public DialogTest
{
protected:
    /// Runs the dialog with `list` as its list.
    void RunWithList(DialogStep step)
    {
        dialog.exchange = [this](CDataExchange* pDX) {
            DDX_Control(pDX, kList, list);
        };
        Run(std::move(step));
    }

    CListCtrl list;
};
} // namespace

TEST_F(ControlClasses, ItemsAreShownEnabledAndMeasuredByTheirNumber)
{
    Run([&](DialogView& view) {
        dialog.ShowItem(kApply, false);
        dialog.EnableItem(kSwitch, false);
        EXPECT_FALSE(view.IsVisible(kApply));
        EXPECT_FALSE(view.IsEnabled(kSwitch));
        dialog.ShowItem(kApply, true);
        dialog.EnableItem(kSwitch, true);
        EXPECT_TRUE(view.IsVisible(kApply));
        EXPECT_TRUE(view.IsEnabled(kSwitch));
        RECT units{7, 95, 130, 50}; // position and size, which are rounded each by itself
        MapDialogRect(view.Window(), &units);
        const CRect place = dialog.ItemRect(kList);
        EXPECT_EQ(place.left, units.left);
        EXPECT_EQ(place.top, units.top);
        EXPECT_EQ(place.Width(), units.right);
        EXPECT_EQ(place.Height(), units.bottom);
    });
}

TEST_F(ControlClasses, AComboBoxIsReadAndFilled)
{
    CComboBox combo;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kCombo, combo);
    };
    Run([&](DialogView&) {
        EXPECT_EQ(combo.AddString(L"beta"), 0);
        EXPECT_EQ(combo.AddString(L"alpha"), 0) << "sorted";
        EXPECT_EQ(combo.InsertString(-1, L"Gamma ray"), 2);
        combo.SetItemData(1, 77);
        EXPECT_EQ(combo.GetItemData(1), 77);
        EXPECT_EQ(combo.GetCount(), 3);
        EXPECT_EQ(combo.SelectString(-1, L"gam"), 2);
        EXPECT_EQ(combo.GetWindowText(), L"Gamma ray");
        EXPECT_EQ(combo.FindString(-1, L"B"), 1);
        EXPECT_EQ(combo.GetLBText(0), L"alpha");
        EXPECT_EQ(combo.GetLBText(9), L"");
        EXPECT_EQ(combo.SetCurSel(-1), CB_ERR);
        EXPECT_EQ(combo.GetCurSel(), CB_ERR);
        EXPECT_EQ(combo.DeleteString(0), 2);
        combo.ResetContent();
        EXPECT_EQ(combo.GetCount(), 0);
    });
}

TEST_F(ControlClasses, AListIsReadAndFilled)
{
    RunWithList([&](DialogView&) {
        EXPECT_EQ(list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80), 0);
        EXPECT_EQ(list.InsertColumn(5, L"Value", LVCFMT_RIGHT, 40), 1) << "appended";
        EXPECT_EQ(list.GetColumnWidth(1), 40);
        EXPECT_EQ(list.GetColumnFormat(1), LVCFMT_RIGHT);
        EXPECT_EQ(list.GetColumnFormat(7), LVCFMT_LEFT);
        EXPECT_EQ(list.InsertItem(0, L"first", 11), 0);
        EXPECT_EQ(list.InsertItem(9, L"second", 12), 1);
        EXPECT_TRUE(list.SetItemText(1, 1, L"twelve"));
        EXPECT_FALSE(list.SetItemText(1, 4, L"nowhere"));
        EXPECT_EQ(list.GetItemText(1, 1), L"twelve");
        EXPECT_EQ(list.GetItemText(1, 4), L"");
        EXPECT_EQ(list.GetItemData(0), 11);
        EXPECT_TRUE(list.SetItemData(0, 13));
        EXPECT_EQ(list.GetItemData(0), 13);
        EXPECT_EQ(list.GetItemData(5), 0) << "no such row";
        EXPECT_TRUE(list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
        EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 1);
        EXPECT_EQ(list.GetSelectedCount(), 1);
        RECT row;
        ASSERT_TRUE(list.GetItemRect(1, LVIR_LABEL, row));
        EXPECT_EQ(list.HitTest({row.left + 3, (row.top + row.bottom) / 2}), 1);
        EXPECT_FALSE(list.GetItemRect(5, LVIR_BOUNDS, row));
        CHeaderCtrl header;
        ASSERT_TRUE(header.SubclassWindow(list.GetHeader()));
        EXPECT_EQ(header.GetItemCount(), 2);
        EXPECT_TRUE(header.SetItemFormat(1, HDF_STRING | HDF_SORTUP));
        EXPECT_TRUE(list.DeleteItem(0));
        EXPECT_TRUE(list.DeleteAllItems());
        EXPECT_EQ(list.GetItemCount(), 0);
    });
}

TEST_F(ControlClasses, ATextOfTenThousandCharactersIsReadFromACell)
{
    RunWithList([&](DialogView&) {
        const std::wstring text(10'000, L'x');
        list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80);
        ASSERT_EQ(list.InsertItem(0, text.c_str()), 0);
        EXPECT_EQ(list.GetItemText(0, 0), text);
    });
}

TEST_F(ControlClasses, RowsTellTheirStatesAndAListItsColumns)
{
    RunWithList([&](DialogView&) {
        list.InsertColumn(0, L"Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, L"Value", LVCFMT_LEFT, 100);
        list.InsertItem(0, L"row");
        constexpr UINT both = LVIS_FOCUSED | LVIS_SELECTED;
        list.SetItemState(0, LVIS_FOCUSED, both);
        EXPECT_EQ(list.GetItemState(0, both), static_cast<UINT>(LVIS_FOCUSED));
        EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED), 0U);
        EXPECT_EQ(list.GetItemState(1, both), 0U);
        EXPECT_EQ(list.GetColumnCount(), 2);
    });
}

TEST_F(ControlClasses, ATextIsAsWideAsItsCharacters)
{
    RunWithList([&](DialogView&) {
        EXPECT_EQ(list.TextExtent(L"").cx, 0);
        const SIZE one = list.TextExtent(L"m");
        EXPECT_GT(one.cx, 0);
        EXPECT_GT(one.cy, 0);
        EXPECT_EQ(list.TextExtent(L"mmm").cx, 3 * one.cx);
        EXPECT_EQ(list.TextExtent(L"mmm").cy, one.cy);
    });
}
