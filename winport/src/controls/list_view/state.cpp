// Selection and focus of the rows of a list view, and the notifications of changes.
#include "list_view.h"

#include <algorithm>

namespace winport
{
LRESULT ListView::Tell(UINT code, int index, UINT changed, UINT before, UINT after)
{
    NMLISTVIEW told{};
    told.iItem = index;
    told.uChanged = changed;
    told.uOldState = before;
    told.uNewState = after;
    told.lParam = Has(index) ? Row(index).param : 0;
    return Notify(told.hdr, code);
}

UINT ListView::StateOf(int index) const
{
    return (index == m_focus ? LVIS_FOCUSED : 0) | (Row(index).selected ? LVIS_SELECTED : 0);
}

bool ListView::SetState(int index, UINT state, UINT mask)
{
    LVITEMW item{};
    item.mask = LVIF_STATE;
    item.state = state;
    item.stateMask = mask;
    return Change(index, item);
}

UINT ListView::ChangesBy(int index, const LVITEMW& item) const
{
    const ListRow& row = Row(index);
    UINT changed = 0;
    if ((item.mask & LVIF_STATE) &&
        ((StateOf(index) ^ item.state) & item.stateMask & (LVIS_FOCUSED | LVIS_SELECTED)))
        changed |= LVIF_STATE;
    if ((item.mask & LVIF_TEXT) && row.text != (item.pszText ? item.pszText : L""))
        changed |= LVIF_TEXT;
    if ((item.mask & LVIF_PARAM) && row.param != item.lParam)
        changed |= LVIF_PARAM;
    return changed;
}

// Returns false if the parent refused the change or a handler removed the item.
bool ListView::Change(int index, const LVITEMW& item)
{
    const UINT changed = ChangesBy(index, item);
    if (!changed)
        return true;
    const UINT before = StateOf(index);
    const UINT mask = changed & LVIF_STATE ? item.stateMask & (LVIS_FOCUSED | LVIS_SELECTED) : 0;
    const UINT after = (before & ~mask) | (item.state & mask);
    if (Tell(LVN_ITEMCHANGING, index, changed, before, after) || !Has(index))
        return false;
    TakeFromOthers(index, after & ~before);
    if (!Has(index))
        return false;
    ApplyState(index, after);
    if (changed & LVIF_TEXT)
        SetText(index, 0, item.pszText);
    if (changed & LVIF_PARAM)
        Row(index).param = item.lParam;
    Tell(LVN_ITEMCHANGED, index, changed, before, after);
    return true;
}

void ListView::TakeFromOthers(int index, UINT gained)
{
    if ((gained & LVIS_SELECTED) && IsSingle())
        DeselectOthers(index);
    if ((gained & LVIS_FOCUSED) && Has(m_focus))
        SetState(m_focus, 0, LVIS_FOCUSED);
}

void ListView::ApplyState(int index, UINT state)
{
    ListRow& row = Row(index);
    const bool selected = (state & LVIS_SELECTED) != 0;
    m_selected += static_cast<int>(selected) - static_cast<int>(row.selected);
    row.selected = selected;
    if (state & LVIS_FOCUSED)
        m_focus = index;
    else if (m_focus == index)
        m_focus = -1;
}

void ListView::DeselectOthers(int index)
{
    for (int i = 0; i < Count() && m_selected > (Has(index) && Row(index).selected); ++i)
    {
        if (i != index)
            SetState(i, 0, LVIS_SELECTED);
    }
}

void ListView::SelectOnly(int index)
{
    DeselectOthers(index);
    if (Has(index))
        SetState(index, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
}

void ListView::SelectRange(int from, int to)
{
    const int first = std::min(from, to);
    const int last = std::max(from, to);
    for (int i = 0; i < Count(); ++i)
        SetState(i, i >= first && i <= last ? LVIS_SELECTED : 0, LVIS_SELECTED);
    if (Has(to))
        SetState(to, LVIS_FOCUSED, LVIS_FOCUSED);
}

void ListView::Toggle(int index)
{
    SetState(index, LVIS_FOCUSED | (~StateOf(index) & LVIS_SELECTED), LVIS_FOCUSED | LVIS_SELECTED);
}

LRESULT ListView::OnSetItemState(WPARAM parameter, LPARAM pointer)
{
    LVITEMW item = *reinterpret_cast<const LVITEMW*>(pointer);
    item.mask = LVIF_STATE;
    CheckItem(item);
    const auto index = static_cast<int>(parameter);
    if (index != -1)
        return Has(index) && Change(index, item);
    if (IsSingle() && (item.state & item.stateMask & LVIS_SELECTED))
        return FALSE;
    for (int i = 0; i < Count(); ++i)
        Change(i, item);
    return TRUE;
}

LRESULT ListView::OnGetItemState(WPARAM index, LPARAM mask)
{
    return Has(static_cast<int>(index))
               ? static_cast<LRESULT>(StateOf(static_cast<int>(index)) & static_cast<UINT>(mask))
               : 0;
}

LRESULT ListView::OnGetNextItem(WPARAM start, LPARAM parameter)
{
    const UINT flags = LOWORD(parameter);
    RefuseBits(&m_window, "list view search flag", flags & ~(LVNI_FOCUSED | LVNI_SELECTED));
    const int first = std::max(static_cast<int>(start), -1) + 1;
    if (flags & LVNI_FOCUSED)
        return m_focus >= first && (StateOf(m_focus) & flags) == flags ? m_focus : -1;
    for (int i = first; i < Count() && (m_selected > 0 || !flags); ++i)
    {
        if ((StateOf(i) & flags) == flags)
            return i;
    }
    return -1;
}
} // namespace winport
