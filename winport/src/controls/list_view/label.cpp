// Editing of a label in place.
#include "list_view.h"

#include <utility>

namespace winport
{
namespace
{
constexpr WPARAM kLongestLabel = 259;
} // namespace

LRESULT ListView::TellLabel(UINT code, LPWSTR text)
{
    NMLVDISPINFOW told{};
    told.item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
    told.item.iItem = m_edited;
    told.item.stateMask = ~0U;
    told.item.pszText = text;
    told.item.cchTextMax = text ? static_cast<int>(std::wcslen(text)) : 0;
    if (Has(m_edited))
    {
        told.item.state = StateOf(m_edited);
        told.item.lParam = Row(m_edited).param;
    }
    return Notify(told.hdr, code);
}

LRESULT ListView::OnEditLabel(WPARAM parameter, LPARAM)
{
    const auto index = static_cast<int>(parameter);
    if (!(Style() & LVS_EDITLABELS))
        return 0;
    EndEdit(false);
    if (!Has(index))
        return 0;
    SelectOnly(index);
    OnEnsureVisible(parameter, FALSE);
    if (!Has(index) || !OpenEdit(index))
        return 0;
    SetFocus(m_edit);
    SendMessageW(m_edit, EM_SETSEL, 0, -1);
    return reinterpret_cast<LRESULT>(m_edit);
}

// LVN_BEGINLABELEDIT is sent when the edit control exists, so that the parent can change its text.
bool ListView::OpenEdit(int index)
{
    const RECT place = IsReport() ? LabelRect(index) : RECT{};
    m_edit = CreateWindowExW(0, WC_EDITW, Row(index).text.c_str(),
                             WS_CHILD | WS_VISIBLE | WS_BORDER | ES_LEFT | ES_AUTOHSCROLL, place.left,
                             place.top, place.right - place.left, place.bottom - place.top, Handle(), nullptr,
                             m_window.instance, nullptr);
    SetWindowLongPtrW(m_edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditProcedure));
    SendMessageW(m_edit, WM_SETFONT, reinterpret_cast<WPARAM>(m_window.font), FALSE);
    SendMessageW(m_edit, EM_SETLIMITTEXT, kLongestLabel, 0);
    m_edited = index;
    std::wstring text = Row(index).text;
    const bool refused = TellLabel(LVN_BEGINLABELEDITW, text.data()) != 0;
    if (refused)
        CloseEdit();
    return !refused && Alive(m_edit);
}

// If the row was deleted meanwhile, the edit ends in the row that now has its index, or without a
// notification if there is none.
void ListView::EndEdit(bool cancelled)
{
    if (!m_edit || m_ending)
        return;
    m_ending = true;
    if (Has(m_edited))
        CommitLabel(cancelled);
    CloseEdit();
    m_ending = false;
}

// An unchanged text is notified like a cancelled edit.
void ListView::CommitLabel(bool cancelled)
{
    std::wstring text = winport::TextOf(m_edit);
    const bool changed = !cancelled && text != Row(m_edited).text;
    const bool granted = TellLabel(LVN_ENDLABELEDITW, changed ? text.data() : nullptr) != 0;
    if (!granted || !changed || !Has(m_edited))
        return;
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.pszText = text.data();
    Change(m_edited, item);
}

// While a label is edited, the parent receives the notifications of the edit control except EN_UPDATE and
// EN_KILLFOCUS.
LRESULT ListView::OnCommand(WPARAM parameter, LPARAM control)
{
    const int code = HIWORD(parameter);
    if (!m_edit || code == EN_UPDATE || code == EN_KILLFOCUS)
        return 0;
    return SendMessageW(GetParent(Handle()), WM_COMMAND, parameter, control);
}

void ListView::CloseEdit()
{
    const HWND edit = std::exchange(m_edit, nullptr);
    m_edited = -1;
    if (edit && GetFocus() == edit)
        SetFocus(Handle());
    if (Alive(edit))
        DestroyWindow(edit);
}

// If the list is hidden or destroyed while a label is edited, there is no notification of the end.
LRESULT CALLBACK ListView::EditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND list = GetParent(edit);
    if (message == WM_GETDLGCODE)
        return DLGC_WANTARROWS | DLGC_WANTALLKEYS;
    const bool ends = message == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_ESCAPE);
    const LRESULT result = ends ? 0 : ControlProcedure(edit, message, wParam, lParam);
    const bool left =
        message == WM_KILLFOCUS && (GetWindowLongW(list, GWL_STYLE) & static_cast<LONG>(WS_VISIBLE));
    if (ends || left)
        SendMessageW(list, kEndLabel, ends && wParam == VK_ESCAPE, 0);
    return result;
}
} // namespace winport
