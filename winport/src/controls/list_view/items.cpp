// The rows of a list view and their texts.
#include "list_view.h"

#include "automation/names.h"

#include <algorithm>

namespace winport
{
void ListView::CheckItem(const LVITEMW& item) const
{
    constexpr UINT kParts = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
    constexpr UINT kStates = LVIS_FOCUSED | LVIS_SELECTED;
    RefuseBits(&m_window, "part of a list view item", item.mask & ~kParts);
    if ((item.mask & LVIF_STATE) && (item.state & item.stateMask & ~kStates))
        Missing(&m_window, "state of a list view item", item.state);
    if ((item.mask & LVIF_TEXT) && item.pszText == LPSTR_TEXTCALLBACKW)
        Missing(&m_window, "text that the parent is asked for", 0);
}

// A sorted list inserts a row before the first one that is not less. While the rows are known to be sorted, a
// binary search finds it.
int ListView::PlaceFor(const ListRow& row, int asked) const
{
    if (!(Style() & LVS_SORTASCENDING))
        return asked < 0 ? -1 : std::min(asked, Count());
    const auto comesBefore = [&](const std::unique_ptr<ListRow>& other) {
        return CompareNames(other->text, row.text, 0) < 0;
    };
    const auto place = m_ordered ? std::partition_point(m_rows.begin(), m_rows.end(), comesBefore)
                                 : std::find_if_not(m_rows.begin(), m_rows.end(), comesBefore);
    return static_cast<int>(place - m_rows.begin());
}

LRESULT ListView::OnInsertItem(WPARAM, LPARAM parameter)
{
    const auto& item = *reinterpret_cast<const LVITEMW*>(parameter);
    CheckItem(item);
    if (item.iSubItem != 0)
        return -1;
    auto added = std::make_unique<ListRow>();
    if ((item.mask & LVIF_TEXT) && item.pszText)
        added->text = item.pszText;
    if (item.mask & LVIF_PARAM)
        added->param = item.lParam;
    const int index = PlaceFor(*added, item.iItem);
    if (index < 0)
        return -1;
    m_ordered = m_ordered && (Style() & LVS_SORTASCENDING);
    m_rows.insert(m_rows.begin() + index, std::move(added));
    for (int* place : {&m_focus, &m_anchor})
        *place += *place >= index;
    if (item.mask & LVIF_STATE)
        SetState(index, item.state, item.stateMask);
    if (Has(index))
        Tell(LVN_INSERTITEM, index);
    return index;
}

LRESULT ListView::OnDeleteItem(WPARAM parameter, LPARAM)
{
    const auto index = static_cast<int>(parameter);
    if (!Has(index))
        return FALSE;
    const bool focused = index == m_focus;
    if (Has(index))
        SetState(index, 0, LVIS_FOCUSED | LVIS_SELECTED);
    if (Has(index))
        Tell(LVN_DELETEITEM, index);
    if (Has(index))
        RemoveRow(index);
    if (focused && m_focus < 0)
        m_focus = std::min(index, Count() - 1);
    ScrollTo(m_top, m_left);
    return TRUE;
}

// A handler may have refused the loss of selection or focus.
void ListView::RemoveRow(int index)
{
    m_selected -= Row(index).selected;
    m_rows.erase(m_rows.begin() + index);
    for (int* place : {&m_focus, &m_anchor})
        *place = *place == index ? -1 : *place - (*place > index);
}

LRESULT ListView::OnDeleteAllItems(WPARAM, LPARAM)
{
    const bool silent = Tell(LVN_DELETEALLITEMS, -1) != 0;
    for (int i = Count() - 1; i >= 0 && !silent; --i)
    {
        if (Has(i))
            Tell(LVN_DELETEITEM, i);
    }
    m_rows.clear();
    m_focus = m_anchor = -1;
    m_selected = 0;
    m_ordered = true;
    ScrollTo(0, m_left);
    return TRUE;
}

LRESULT ListView::OnGetItem(WPARAM, LPARAM parameter)
{
    auto& item = *reinterpret_cast<LVITEMW*>(parameter);
    CheckItem(item);
    if (!Has(item.iItem))
        return FALSE;
    if (item.mask & LVIF_TEXT)
        CopyText(TextOf(item.iItem, item.iSubItem), item.pszText, item.cchTextMax);
    if (item.mask & LVIF_STATE)
        item.state = StateOf(item.iItem) & item.stateMask;
    if (item.mask & LVIF_PARAM)
        item.lParam = Row(item.iItem).param;
    return TRUE;
}

LRESULT ListView::OnSetItem(WPARAM, LPARAM parameter)
{
    const auto& item = *reinterpret_cast<const LVITEMW*>(parameter);
    CheckItem(item);
    if (!Has(item.iItem))
        return FALSE;
    if (item.iSubItem == 0)
        return Change(item.iItem, item);
    const bool textAlone = item.mask == LVIF_TEXT;
    return textAlone && SetText(item.iItem, item.iSubItem, item.pszText);
}

LRESULT ListView::OnGetItemText(WPARAM index, LPARAM parameter)
{
    auto& item = *reinterpret_cast<LVITEMW*>(parameter);
    if (!Has(static_cast<int>(index)))
        return 0;
    return CopyText(TextOf(static_cast<int>(index), item.iSubItem), item.pszText, item.cchTextMax);
}

LRESULT ListView::OnSetItemText(WPARAM index, LPARAM parameter)
{
    LVITEMW item = *reinterpret_cast<const LVITEMW*>(parameter);
    item.mask = LVIF_TEXT;
    item.iItem = static_cast<int>(index);
    return OnSetItem(0, reinterpret_cast<LPARAM>(&item));
}

// A text without a column is not stored.
bool ListView::SetText(int index, int subItem, LPCWSTR text)
{
    ListRow& row = Row(index);
    const std::wstring kept = text ? text : L"";
    if (subItem == 0)
    {
        row.text = kept;
        m_ordered = false;
        return true;
    }
    const auto at = static_cast<std::size_t>(subItem) - 1;
    if (subItem < 0 || at + 1 >= ColumnCount())
        return false;
    if (row.subTexts.size() <= at)
        row.subTexts.resize(at + 1);
    row.subTexts[at] = kept;
    return true;
}

const std::wstring& ListView::TextOf(int index, int subItem) const
{
    static const std::wstring none;
    const ListRow& row = Row(index);
    if (subItem == 0)
        return row.text;
    const auto at = static_cast<std::size_t>(subItem) - 1;
    return subItem > 0 && at < row.subTexts.size() ? row.subTexts[at] : none;
}

// The comparison may call the list, so the rows are moved after the sort.
LRESULT ListView::OnSortItems(WPARAM parameter, LPARAM function)
{
    const auto compare = reinterpret_cast<PFNLVCOMPARE>(function);
    std::vector<ListRow*> order;
    order.reserve(m_rows.size());
    for (const auto& row : m_rows)
        order.push_back(row.get());
    const ListRow* focused = m_focus < 0 ? nullptr : &Row(m_focus);
    std::stable_sort(order.begin(), order.end(), [&](const ListRow* one, const ListRow* other) {
        return compare(one->param, other->param, static_cast<LPARAM>(parameter)) < 0;
    });
    for (std::size_t i = 0; i < order.size(); ++i)
    {
        static_cast<void>(m_rows[i].release());
        if (order[i] == focused)
            m_focus = static_cast<int>(i);
    }
    for (std::size_t i = 0; i < order.size(); ++i)
        m_rows[i].reset(order[i]);
    m_ordered = false;
    return TRUE;
}
} // namespace winport
