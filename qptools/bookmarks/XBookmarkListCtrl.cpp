#include "XBookmarkListCtrl.h"

#include "Translation.h"

#include "HeaderCtrl.h"

#include <utility>

namespace qptools
{
namespace
{
constexpr int kNameColumn = 0;
constexpr int kComponentColumn = 1;
constexpr int kNameWidth = 250;
constexpr int kComponentWidth = 500;

/// In pixels. A column cannot be made narrower.
constexpr int kLeastWidth = 20;

struct Order
{
    int column;
    bool ascending;
};

/// Case-sensitive.
int Compare(const XBookmarkListCtrl::Row& left, const XBookmarkListCtrl::Row& right, int column)
{
    switch (column)
    {
    case kNameColumn:
        return left.name.View().compare(right.name.View());
    case kComponentColumn:
        return left.component.View().compare(right.component.View());
    default:
        return 0;
    }
}

int CALLBACK CompareRows(LPARAM left, LPARAM right, LPARAM order)
{
    const auto& [column, ascending] = *reinterpret_cast<const Order*>(order);
    const auto& first = *reinterpret_cast<const XBookmarkListCtrl::Row*>(left);
    const auto& second = *reinterpret_cast<const XBookmarkListCtrl::Row*>(right);
    const int compared = ascending ? Compare(first, second, column) : Compare(second, first, column);
    return compared != 0 ? compared : first.place - second.place;
}
} // namespace

const CMessageMap& XBookmarkListCtrl::GetMessageMap() const
{
    // The notifications of the header, whose identifier is 0. The list passes on some of them to its parent,
    // and which ones depends on the system.
    static const CMessageMapEntry entries[] = {
        OnMessage<&XBookmarkListCtrl::OnButtonDown>(WM_LBUTTONDOWN),
        OnNotify<&XBookmarkListCtrl::OnColumnClick>(HDN_ITEMCLICKW, 0),
        OnNotify<&XBookmarkListCtrl::OnColumnChanging>(HDN_ITEMCHANGINGW, 0),
        OnNotify<&XBookmarkListCtrl::OnColumnChanging>(HDN_ITEMCHANGINGA, 0),
    };
    static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
    return map;
}

void XBookmarkListCtrl::Open()
{
    InsertColumn(1, CoTranslateText(L"Component Name"), LVCFMT_LEFT, kComponentWidth);
    InsertColumn(0, CoTranslateText(L"Bookmark Name"), LVCFMT_LEFT, kNameWidth);
    SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    ModifyStyle(0, LVS_EDITLABELS);
}

void XBookmarkListCtrl::AddRow(int index, Row row)
{
    const Row& kept = m_rows.emplace_back(std::move(row));
    const int placed = InsertItem(index, kept.name, reinterpret_cast<LPARAM>(&kept));
    SetItemText(placed, kComponentColumn, kept.component);
}

// A rename applies to the selected row, so the editing ends before the click selects another one.
LRESULT XBookmarkListCtrl::OnButtonDown(WPARAM, LPARAM)
{
    EndEditing();
    return Default();
}

/// Ends the editing of a label by taking the focus from it. Not every system's list does so at a click.
void XBookmarkListCtrl::EndEditing() const
{
    if (GetEditControl())
        ::SetFocus(m_hWnd);
}

void XBookmarkListCtrl::OnColumnClick(NMHDR* notification, LRESULT* result)
{
    EndEditing();
    Sort(reinterpret_cast<const NMHEADERW*>(notification)->iItem);
    *result = 0;
}

// Only a change of the width can be refused: the arrows change the format.
void XBookmarkListCtrl::OnColumnChanging(NMHDR* notification, LRESULT* result)
{
    const HDITEMW* item = reinterpret_cast<const NMHEADERW*>(notification)->pitem;
    const bool isTooNarrow = item && (item->mask & HDI_WIDTH) && item->cxy < kLeastWidth;
    *result = isTooNarrow ? 1 : Default();
}

void XBookmarkListCtrl::Sort(int column)
{
    m_ascending = !m_ascending;
    // Rows that are equal keep their order.
    for (int row = 0; row < GetItemCount(); ++row)
        RowAt(row)->place = row;
    const Order order{column, m_ascending};
    SortItems(&CompareRows, reinterpret_cast<LPARAM>(&order));
    ShowOrder(column);
}

/// Marks the heading of the column with an arrow, and takes it from the other one.
void XBookmarkListCtrl::ShowOrder(int column) const
{
    const auto setFormat = [this](int item, int format) {
        HDITEMW change{};
        change.mask = HDI_FORMAT;
        change.fmt = format;
        ::SendMessageW(GetHeader(), HDM_SETITEMW, static_cast<WPARAM>(item),
                       reinterpret_cast<LPARAM>(&change));
    };
    setFormat(column, HDF_STRING | (m_ascending ? HDF_SORTUP : HDF_SORTDOWN));
    setFormat(column != kNameColumn ? kNameColumn : kComponentColumn, HDF_STRING);
}
} // namespace qptools
