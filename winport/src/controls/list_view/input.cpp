// Keyboard and mouse in a list view.
#include "list_view.h"

#include "base/text.h"

#include <algorithm>

namespace winport
{
// Returns the row to which a key moves the focus, -1 if the key moves nothing.
int ListView::TargetOf(WPARAM key) const
{
    const int step = PerPage() - 1;
    const int lastInSight = m_top + step;
    switch (key)
    {
    case VK_UP:
        return std::max(m_focus - 1, m_focus < 0 ? -1 : 0);
    case VK_DOWN:
        return std::min(m_focus + 1, Count() - 1);
    case VK_HOME:
        return std::min(0, Count() - 1);
    case VK_END:
        return Count() - 1;
    case VK_NEXT:
        return std::min(m_focus < lastInSight ? lastInSight : m_focus + step, Count() - 1);
    case VK_PRIOR:
        return std::max(m_focus > m_top ? m_top : m_focus - step, Count() ? 0 : -1);
    default:
        return -1;
    }
}

void ListView::MoveTo(int index)
{
    if (IsHeld(VK_SHIFT) && !IsSingle())
    {
        if (!Has(m_anchor))
            m_anchor = std::max(m_focus, 0);
        SelectRange(m_anchor, index);
    }
    else if (IsHeld(VK_CONTROL) && !IsSingle())
        SetState(index, LVIS_FOCUSED, LVIS_FOCUSED);
    else
    {
        m_anchor = index;
        SelectOnly(index);
    }
    OnEnsureVisible(static_cast<WPARAM>(index), FALSE);
}

LRESULT ListView::OnKeyDown(WPARAM key, LPARAM)
{
    NMLVKEYDOWN told{};
    told.wVKey = static_cast<WORD>(key);
    Notify(told.hdr, LVN_KEYDOWN);
    if (!Alive(Handle()))
        return 0;
    if (key == VK_RETURN)
        Notify(NM_RETURN);
    else if (key == VK_SPACE && Has(m_focus))
    {
        if (IsHeld(VK_CONTROL) && !IsSingle())
            Toggle(m_focus);
        else
            SelectOnly(m_focus);
    }
    else if (IsReport())
    {
        const int target = TargetOf(key);
        if (Has(target) && target != m_focus)
            MoveTo(target);
    }
    return 0;
}

// Characters typed in quick succession form a prefix to search for. The first one starts at the row after the
// focused one, the others at the focused one.
LRESULT ListView::OnChar(WPARAM character, LPARAM)
{
    constexpr ULONGLONG kPause = 450;
    if (character <= VK_SPACE)
        return 0;
    const ULONGLONG now = GetTickCount64();
    if (now - m_typedAt >= kPause)
        m_typed.clear();
    m_typedAt = now;
    m_typed += static_cast<wchar_t>(character);
    const int found = FindPrefix(m_typed, m_typed.size() == 1 ? m_focus + 1 : std::max(m_focus, 0));
    if (found >= 0)
        MoveTo(found);
    return 0;
}

// Searches from the row `first` and wraps around. Returns -1 if no text begins with the prefix.
int ListView::FindPrefix(std::wstring_view prefix, int first) const
{
    for (int step = 0; step < Count(); ++step)
    {
        const int index = (first + step) % Count();
        if (CompareNoCase(std::wstring_view(Row(index).text).substr(0, prefix.size()), prefix) == 0)
            return index;
    }
    return -1;
}

// One of several selected rows keeps the selection as it is until the mouse button is released.
void ListView::PressRow(int index, WPARAM keys)
{
    if ((keys & MK_SHIFT) && !IsSingle())
    {
        if (!Has(m_anchor))
            m_anchor = std::max(m_focus, 0);
        SelectRange(m_anchor, index);
        return;
    }
    m_anchor = index;
    if ((keys & MK_CONTROL) && !IsSingle())
        Toggle(index);
    else if (Row(index).selected)
    {
        m_keptSelected = index;
        SetState(index, LVIS_FOCUSED, LVIS_FOCUSED);
    }
    else
        SelectOnly(index);
}

LRESULT ListView::OnButtonDown(WPARAM keys, LPARAM point)
{
    const int index = Hit(PointOf(point));
    m_pressed = true;
    m_keptSelected = -1;
    if (index < 0)
        return PressNothing(keys);
    PressRow(index, keys);
    if (Alive(Handle()))
        SetFocus(Handle());
    return 0;
}

// Takes the focus first, so that an editor in the list ends before the selection changes.
LRESULT ListView::PressNothing(WPARAM keys)
{
    SetFocus(Handle());
    if (Alive(Handle()) && !(keys & (MK_SHIFT | MK_CONTROL)))
        DeselectOthers(-1);
    return 0;
}

LRESULT ListView::OnButtonUp(WPARAM, LPARAM point)
{
    if (!m_pressed)
        return 0;
    m_pressed = false;
    const int kept = m_keptSelected;
    TellClick(NM_CLICK, point);
    if (Alive(Handle()) && Has(kept))
        SelectOnly(kept);
    return 0;
}

LRESULT ListView::OnDoubleClick(WPARAM, LPARAM point)
{
    TellClick(NM_DBLCLK, point);
    return 0;
}

void ListView::TellClick(UINT code, LPARAM point)
{
    NMITEMACTIVATE told{};
    told.ptAction = PointOf(point);
    told.iSubItem = ColumnAt(static_cast<int>(told.ptAction.x));
    told.iItem = told.iSubItem < 0 ? -1 : RowAt(told.ptAction);
    Notify(told.hdr, code);
}
} // namespace winport
