#include "combo_box.h"

#include <algorithm>
#include <cwchar>

namespace winport
{
namespace
{
constexpr int kFrame = 3;
constexpr int kClosedHeight = kCharacterHeight + 8;
constexpr int kFieldId = 1001;
constexpr DWORD kKind = CBS_DROPDOWNLIST; // all bits of the kind

int ButtonWidth()
{
    return kScrollBarWidth;
}

const wchar_t* TextIn(LPARAM text)
{
    return text ? reinterpret_cast<const wchar_t*>(text) : L"";
}
} // namespace

CComboBox::CComboBox(Window& window) : Control(window)
{
    const DWORD kind = window.style & kKind;
    if (kind != CBS_DROPDOWN && kind != CBS_DROPDOWNLIST)
        Missing(&window, "style", kind);
}

LRESULT CComboBox::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_CREATE:
        Create();
        return 0;
    case WM_WINDOWPOSCHANGING:
        KeepClosedHeight(reinterpret_cast<WINDOWPOS*>(lParam));
        return 0;
    case WM_SIZE:
        PlaceField();
        return 0;
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
        return HandleText(message, wParam, lParam);
    case WM_SETFONT:
        ToField(message, wParam, lParam);
        return Default(message, wParam, lParam);
    case WM_ENABLE:
        if (m_field)
            EnableWindow(m_field, wParam != 0);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        return HandleFocus(message);
    case WM_GETDLGCODE:
        return DialogCode(reinterpret_cast<const MSG*>(lParam));
    case WM_COMMAND:
        if (m_field && reinterpret_cast<HWND>(lParam) == m_field)
            OnFieldCommand(HIWORD(wParam));
        return 0;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (OnListKey(wParam, message == WM_SYSKEYDOWN))
            return 0;
        return message == WM_KEYDOWN && m_field ? ToField(message, wParam, lParam)
                                                : Default(message, wParam, lParam);
    case WM_CHAR:
        OnCharacter(wParam);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        OnClick(static_cast<short>(LOWORD(lParam)));
        return 0;
    default:
        return HandleOwn(message, wParam, lParam);
    }
}

LRESULT CComboBox::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case CB_ADDSTRING:
        return Add(TextIn(lParam));
    case CB_INSERTSTRING:
        return Insert(static_cast<int>(wParam), TextIn(lParam));
    case CB_DELETESTRING:
        return Delete(wParam);
    case CB_RESETCONTENT:
        return Reset();
    case CB_GETCOUNT:
        return Count();
    case CB_GETCURSEL:
        return m_selected;
    case CB_SETCURSEL:
        return Select(static_cast<int>(wParam));
    case CB_FINDSTRING:
        return Find(static_cast<int>(wParam), TextIn(lParam));
    case CB_SELECTSTRING:
        if (const int found = Find(static_cast<int>(wParam), TextIn(lParam)); found >= 0)
            return Select(found);
        return CB_ERR;
    case CB_SHOWDROPDOWN:
        wParam ? Open() : Close(false);
        return TRUE;
    case CB_GETDROPPEDSTATE:
        return m_open;
    case CB_GETLBTEXT:
    case CB_GETLBTEXTLEN:
    case CB_GETITEMDATA:
    case CB_SETITEMDATA:
        return HandleItem(message, wParam, lParam);
    default:
        return Default(message, wParam, lParam);
    }
}

LRESULT CComboBox::HandleItem(UINT message, WPARAM index, LPARAM lParam)
{
    if (!Has(index))
        return CB_ERR;
    Item& item = At(index);
    switch (message)
    {
    case CB_GETITEMDATA:
        return item.data;
    case CB_SETITEMDATA:
        item.data = lParam;
        return TRUE;
    case CB_GETLBTEXT:
        std::wmemcpy(reinterpret_cast<wchar_t*>(lParam), item.text.c_str(), item.text.size() + 1);
        [[fallthrough]];
    default:
        return static_cast<LRESULT>(item.text.size());
    }
}

LRESULT CComboBox::HandleText(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_field)
        return ToField(message, wParam, lParam);
    return message == WM_SETTEXT ? CB_ERR : Default(message, wParam, lParam);
}

// A box with a field passes the focus on to it.
LRESULT CComboBox::HandleFocus(UINT message)
{
    if (message == WM_SETFOCUS && m_field)
    {
        SetFocus(m_field);
        ToField(EM_SETSEL, 0, -1);
    }
    else if (message == WM_SETFOCUS)
        NotifyCommand(CBN_SETFOCUS);
    else if (!m_field)
        LoseFocus();
    return 0;
}

LRESULT CComboBox::ToField(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return m_field ? SendMessageW(m_field, message, wParam, lParam) : 0;
}

// The height given at creation includes the open list.
void CComboBox::Create()
{
    const RECT& rect = m_window.rect;
    m_rows = std::max(2, static_cast<int>(rect.bottom - rect.top - kClosedHeight - 2) / kCharacterHeight);
    m_window.rect.bottom = rect.top + kClosedHeight;
    m_window.text.clear();
    if ((Style() & kKind) != CBS_DROPDOWN)
        return;
    const DWORD style =
        WS_CHILD | WS_VISIBLE | (Style() & WS_DISABLED) | (Style() & CBS_AUTOHSCROLL ? ES_AUTOHSCROLL : 0);
    const RECT place = FieldPlace();
    m_field = CreateWindowExW(0, WC_EDITW, L"", style, place.left, place.top, place.right - place.left,
                              place.bottom - place.top, Handle(),
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFieldId)), nullptr, nullptr);
}

void CComboBox::KeepClosedHeight(WINDOWPOS* place)
{
    if (place->flags & SWP_NOSIZE)
        return;
    m_rows = std::max(2, (place->cy - kClosedHeight - 2) / kCharacterHeight);
    place->cy = kClosedHeight;
}

RECT CComboBox::FieldPlace() const
{
    const RECT client = ClientSize();
    return {kFrame, kFrame, std::max<LONG>(client.right - ButtonWidth() - kFrame, kFrame),
            client.bottom - kFrame};
}

void CComboBox::PlaceField() const
{
    const RECT place = FieldPlace();
    if (m_field)
        MoveWindow(m_field, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
}

LRESULT CComboBox::DialogCode(const MSG* message) const
{
    constexpr LRESULT code = DLGC_WANTCHARS | DLGC_WANTARROWS;
    const bool closes = m_open && message && message->message == WM_KEYDOWN &&
                        (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
    return closes ? code | DLGC_WANTMESSAGE : code;
}

std::unique_ptr<Control> MakeComboBox(Window& window)
{
    return std::make_unique<CComboBox>(window);
}
} // namespace winport
