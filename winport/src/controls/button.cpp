// Push buttons, check boxes, radio buttons and group boxes.
#include "dialog/dialog.h"

namespace winport
{
namespace
{
class Button final : public Control
{
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    using Control::Handle;

    LRESULT HandleOwn(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleFocus(bool has);
    LRESULT HandleMouse(UINT message, LPARAM at);
    LRESULT HandleKey(UINT message, WPARAM key);
    DWORD Kind() const { return Style() & BS_TYPEMASK; }
    bool IsRadio() const { return Kind() == BS_AUTORADIOBUTTON; }
    LRESULT DialogCode() const;
    void SetCheck(WPARAM check);
    void UncheckOthers() const;
    bool IsInside(LPARAM at) const;
    void Press(bool byMouse);
    void ComeUp();
    void Release(bool click);
    void CheckByClick();

    UINT m_check = BST_UNCHECKED;
    bool m_pushed = false;
    bool m_focus = false;
    bool m_pressing = false; ///< the mouse button or the space key was pressed here and is still down
};

LRESULT Button::DialogCode() const
{
    switch (Kind())
    {
    case BS_PUSHBUTTON:
        return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    case BS_DEFPUSHBUTTON:
        return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
    case BS_GROUPBOX:
        return DLGC_STATIC;
    default:
        return DLGC_BUTTON | (IsRadio() ? DLGC_RADIOBUTTON : 0);
    }
}

LRESULT Button::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_NCCREATE:
        if (Kind() > BS_DEFPUSHBUTTON && Kind() != BS_AUTOCHECKBOX && !IsRadio() && Kind() != BS_GROUPBOX)
            Missing(&m_window, "style", Kind());
        return Default(message, wParam, lParam);
    case WM_GETDLGCODE:
        return DialogCode();
    case WM_NCHITTEST:
        return Kind() == BS_GROUPBOX ? HTTRANSPARENT : Default(message, wParam, lParam);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        return HandleFocus(message == WM_SETFOCUS);
    case WM_KEYDOWN:
    case WM_KEYUP:
        return HandleKey(message, wParam);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_CAPTURECHANGED:
        return HandleMouse(message, lParam);
    default:
        return HandleOwn(message, wParam, lParam);
    }
}

LRESULT Button::HandleOwn(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case BM_GETCHECK:
        return m_check;
    case BM_SETCHECK:
        SetCheck(wParam);
        return 0;
    case BM_GETSTATE:
        return m_check | (m_pushed ? BST_PUSHED : 0) | (m_focus ? BST_FOCUS : 0);
    case BM_SETSTATE:
        m_pushed = wParam != 0;
        return 0;
    case BM_SETSTYLE:
        m_window.style = (Style() & ~BS_TYPEMASK) | (static_cast<DWORD>(wParam) & BS_TYPEMASK);
        return 0;
    case BM_CLICK:
        SendMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
        if (Alive(Handle()))
            SendMessageW(Handle(), WM_LBUTTONUP, 0, 0);
        return 0;
    default:
        return Default(message, wParam, lParam);
    }
}

LRESULT Button::HandleFocus(bool has)
{
    m_focus = has;
    if (!has)
        ComeUp();
    return 0;
}

LRESULT Button::HandleKey(UINT message, WPARAM key)
{
    if (key == VK_SPACE && message == WM_KEYDOWN)
        Press(false);
    else if (key == VK_SPACE)
        Release(m_pushed);
    return 0;
}

LRESULT Button::HandleMouse(UINT message, LPARAM at)
{
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK)
        Press(true);
    else if (message == WM_LBUTTONUP)
        Release(m_pushed && IsInside(at));
    else if (message == WM_MOUSEMOVE && m_pressing)
        m_pushed = IsInside(at);
    else if (message == WM_CAPTURECHANGED)
        ComeUp();
    return 0;
}

bool Button::IsInside(LPARAM at) const
{
    const RECT client = ClientSize();
    return PtInRect(&client, PointOf(at));
}

void Button::Press(bool byMouse)
{
    if (byMouse)
    {
        SetCapture(Handle());
        SetFocus(Handle());
    }
    m_pressing = true;
    m_pushed = true;
}

// Releases the button without a click.
void Button::ComeUp()
{
    m_pressing = false;
    m_pushed = false;
    if (GetCapture() == Handle())
        ReleaseCapture();
}

void Button::Release(bool click)
{
    if (!m_pressing)
        return;
    const HWND self = Handle();
    ComeUp();
    if (!click || !Alive(self))
        return;
    CheckByClick();
    NotifyCommand(BN_CLICKED);
}

void Button::CheckByClick()
{
    if (Kind() == BS_AUTOCHECKBOX)
        SetCheck(m_check == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
    else if (IsRadio())
        SetCheck(BST_CHECKED);
}

// Only the checked button of a radio group is a tab stop.
void Button::SetCheck(WPARAM check)
{
    if (Kind() != BS_AUTOCHECKBOX && !IsRadio())
        return;
    m_check = check == BST_UNCHECKED ? BST_UNCHECKED : BST_CHECKED;
    if (IsRadio())
        m_window.style = m_check ? Style() | WS_TABSTOP : Style() & ~WS_TABSTOP;
    if (IsRadio() && m_check)
        UncheckOthers();
}

void Button::UncheckOthers() const
{
    std::vector<HWND> others;
    for (const Window* member : GroupOf(m_window))
    {
        if (member != &m_window && member->windowClass == m_window.windowClass &&
            (member->style & BS_TYPEMASK) == BS_AUTORADIOBUTTON)
            others.push_back(member->handle);
    }
    for (const HWND other : others)
        SendMessageW(other, BM_SETCHECK, BST_UNCHECKED, 0);
}
} // namespace

std::unique_ptr<Control> MakeButton(Window& window)
{
    return std::make_unique<Button>(window);
}
} // namespace winport
