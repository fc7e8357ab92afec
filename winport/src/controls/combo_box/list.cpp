// The items, the list and the keys of a combo box.
#include "combo_box.h"

#include "automation/names.h"
#include "base/text.h"

#include <winnls.h>

#include <algorithm>
#include <utility>

namespace winport
{
LRESULT CComboBox::Add(const wchar_t* text)
{
    if (!(Style() & CBS_SORT))
        return Insert(-1, text);
    const auto place = std::lower_bound(m_items.begin(), m_items.end(), std::wstring(text),
                                        [](const Item& item, const std::wstring& added) {
                                            return CompareNames(item.text, added, NORM_IGNORECASE) < 0;
                                        });
    return Insert(static_cast<int>(place - m_items.begin()), text);
}

LRESULT CComboBox::Insert(int at, const wchar_t* text)
{
    if (at < -1 || at > Count())
        return CB_ERR;
    if (at == -1)
        at = Count();
    m_items.insert(m_items.begin() + at, {text});
    if (m_selected >= at)
        ++m_selected;
    return at;
}

LRESULT CComboBox::Delete(WPARAM index)
{
    if (!Has(index))
        return CB_ERR;
    const int at = static_cast<int>(index);
    m_items.erase(m_items.begin() + at);
    if (m_selected > at)
        --m_selected;
    else if (m_selected == at)
    {
        m_selected = -1;
        m_window.text.clear(); // the field keeps its text
    }
    return Count();
}

LRESULT CComboBox::Reset()
{
    m_items.clear();
    m_caret = 0;
    Select(-1);
    return 0;
}

// Searches from the item after `after`, wraps around, and checks `after` last. An `after` out of range starts
// at the first item.
int CComboBox::Find(int after, const wchar_t* text) const
{
    const std::wstring_view wanted = text;
    const int count = Count();
    if (wanted.empty())
        return CB_ERR;
    if (after < 0 || after >= count)
        after = -1;
    for (int step = 1; step <= count; ++step)
    {
        const int index = (after + step) % count;
        const std::wstring_view candidate = m_items[static_cast<std::size_t>(index)].text;
        if (CompareNoCase(candidate.substr(0, wanted.size()), wanted) == 0)
            return index;
    }
    return CB_ERR;
}

LRESULT CComboBox::Select(int index)
{
    if (index >= Count())
        return CB_ERR;
    m_selected = std::max(index, -1);
    if (m_selected >= 0)
        m_caret = m_selected;
    ShowSelected();
    return m_selected;
}

void CComboBox::ShowSelected()
{
    SetShownText(m_selected >= 0 ? At(static_cast<WPARAM>(m_selected)).text : std::wstring());
}

void CComboBox::SetShownText(const std::wstring& text)
{
    if (!m_field)
    {
        m_window.text = text;
        return;
    }
    ToField(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    if (GetFocus() == m_field)
        ToField(EM_SETSEL, 0, -1);
}

std::wstring CComboBox::TextOfField() const
{
    const Window* field = FindWindowOf(m_field);
    return field ? field->text : std::wstring();
}

// The text of the field is looked up after CBN_DROPDOWN, because its handler may fill the list.
void CComboBox::Open()
{
    if (m_open || !NotifyCommand(CBN_DROPDOWN) || m_open)
        return;
    m_open = true;
    if (!m_field)
        return;
    m_picked = false;
    MatchField(true);
    if (m_selected >= 0)
        ShowSelected();
}

// Keys continue from the item that begins with the text of the field.
void CComboBox::MatchField(bool select)
{
    const int found = Find(-1, TextOfField().c_str());
    m_caret = std::max(found, 0);
    m_selected = select ? found : -1;
}

void CComboBox::Close(bool accepted)
{
    if (!m_open || !NotifyCommand(accepted ? CBN_SELENDOK : CBN_SELENDCANCEL))
        return;
    m_open = false;
    NotifyCommand(CBN_CLOSEUP);
}

// Returns false if the list does not handle the key. A field handles Left, Right, Home and End itself.
bool CComboBox::OnListKey(WPARAM key, bool alt)
{
    const bool turns = key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT;
    const bool runs = key == VK_LEFT || key == VK_RIGHT || key == VK_HOME || key == VK_END;
    if (alt ? key == VK_UP || key == VK_DOWN : key == VK_F4)
        m_open ? Close(false) : Open();
    else if (alt)
        return false;
    else if (key == VK_RETURN || key == VK_ESCAPE)
        Close(key == VK_RETURN);
    else if (!turns && (!runs || m_field))
        return false;
    else if (!m_items.empty())
        Pick(TargetOf(key));
    return true;
}

int CComboBox::TargetOf(WPARAM key) const
{
    const int last = Count() - 1;
    const auto within = [last, this](int step) {
        return std::clamp(m_selected + step, 0, last);
    };
    if (m_selected != m_caret)
        return std::min(m_caret, last);
    switch (key)
    {
    case VK_HOME:
        return 0;
    case VK_END:
        return last;
    case VK_PRIOR:
        return within(1 - m_rows);
    case VK_NEXT:
        return within(m_rows - 1);
    case VK_UP:
    case VK_LEFT:
        return within(-1);
    default:
        return within(1);
    }
}

// The text of a field changes after CBN_SELCHANGE.
void CComboBox::Pick(int index)
{
    m_selected = m_caret = index;
    m_picked = m_field != nullptr;
    if (!m_field)
        ShowSelected();
    if (!m_open && !NotifyCommand(CBN_SELENDOK))
        return;
    if (NotifyCommand(CBN_SELCHANGE) && m_field)
        ShowSelected();
}

void CComboBox::OnClick(int x)
{
    const HWND box = Handle();
    const HWND focused = m_field ? m_field : box;
    if (GetFocus() != focused)
        SetFocus(focused);
    if (!Alive(box) || (m_field && x < FieldPlace().right))
        return;
    m_open ? Close(true) : Open();
}

void CComboBox::OnCharacter(WPARAM character)
{
    if (m_field)
        ToField(WM_CHAR, character, 0);
    else
        Search(static_cast<wchar_t>(character));
}

// Selects the next item that begins with the character, and closes an open list.
void CComboBox::Search(wchar_t character)
{
    const wchar_t typed[] = {character, 0};
    const int found = Find(m_caret, typed);
    if (found < 0)
        return;
    if (!m_open)
        return Pick(found);
    m_selected = m_caret = found;
    ShowSelected();
    Close(true);
    if (Alive(Handle()))
        NotifyCommand(CBN_SELCHANGE);
}

void CComboBox::OnFieldCommand(int code)
{
    switch (code)
    {
    case EN_SETFOCUS:
        NotifyCommand(CBN_SETFOCUS);
        break;
    case EN_KILLFOCUS:
        LoseFocus();
        break;
    case EN_UPDATE:
        NotifyCommand(CBN_EDITUPDATE);
        break;
    case EN_CHANGE:
        if (!std::exchange(m_picked, false))
            MatchField(m_open);
        NotifyCommand(CBN_EDITCHANGE);
        break;
    default:
        break;
    }
}

void CComboBox::LoseFocus()
{
    const HWND box = Handle();
    if (m_open)
        Close(false);
    else
        NotifyCommand(CBN_SELENDCANCEL);
    if (Alive(box))
        NotifyCommand(CBN_KILLFOCUS);
}
} // namespace winport
