#include "DialogView.h"

#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{
LPARAM KeyDetails(UINT message, bool alt)
{
    const DWORD up = message == WM_KEYUP || message == WM_SYSKEYUP ? 0xC0000000 : 0;
    return static_cast<LPARAM>(1 | up | (alt ? 0x20000000u : 0u));
}

thread_local bool t_holding = false;

void HoldKeys(unsigned held)
{
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    const std::pair<int, unsigned> holdable[] = {
        {VK_SHIFT, DialogView::kShift}, {VK_CONTROL, DialogView::kControl}, {VK_MENU, DialogView::kAlt}};
    for (const auto& [key, flag] : holdable)
        keys[key] = held & flag ? 0x80 : 0;
    SetKeyboardState(keys);
    t_holding = held != 0;
}

LPARAM CentreOf(HWND window)
{
    RECT area{};
    GetClientRect(window, &area);
    return MAKELPARAM(area.right / 2, area.bottom / 2);
}
} // namespace

std::wstring DialogView::Title() const
{
    return TextOf(m_dialog);
}

HWND DialogView::Control(DialogControl control) const
{
    const HWND window = control.In(m_dialog);
    if (!window || !IsWindow(window))
        ADD_FAILURE() << "there is no control " << control.Id() << " in\n" << Dump();
    return window;
}

std::vector<HWND> DialogView::Controls() const
{
    return ChildrenOf(m_dialog);
}

std::wstring DialogView::Text(DialogControl control) const
{
    const HWND window = Control(control);
    return window ? TextOf(window) : std::wstring();
}

bool DialogView::IsVisible(DialogControl control) const
{
    const HWND window = Control(control);
    return window && IsShown(window);
}

bool DialogView::IsEnabled(DialogControl control) const
{
    const HWND window = Control(control);
    return window && IsWindowEnabled(window);
}

bool DialogView::IsChecked(DialogControl control) const
{
    const HWND window = Control(control);
    return window && SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

DWORD DialogView::Style(DialogControl control) const
{
    return static_cast<DWORD>(GetWindowLongW(Control(control), GWL_STYLE));
}

DWORD DialogView::ExStyle(DialogControl control) const
{
    return static_cast<DWORD>(GetWindowLongW(Control(control), GWL_EXSTYLE));
}

RECT DialogView::Rect(DialogControl control) const
{
    RECT rect{};
    GetWindowRect(Control(control), &rect);
    MapWindowPoints(nullptr, m_dialog, reinterpret_cast<LPPOINT>(&rect), 2);
    return rect;
}

int DialogView::Focus() const
{
    HWND window = GetFocus();
    while (window && window != m_dialog && GetParent(window) != m_dialog)
        window = GetParent(window);
    return window && window != m_dialog ? GetDlgCtrlID(window) : 0;
}

HWND DialogView::Usable(DialogControl control) const
{
    const HWND window = Control(control);
    if (!window)
        return nullptr;
    if (IsWindowVisible(window) && IsWindowEnabled(window) && IsWindowEnabled(m_dialog))
        return window;
    ADD_FAILURE() << "no user can use the control " << GetDlgCtrlID(window) << " in\n" << Dump();
    return nullptr;
}

void DialogView::ComeToFront() const
{
    if (GetActiveWindow() != m_dialog)
        SetActiveWindow(m_dialog);
}

void DialogView::GiveFocus(DialogControl control) const
{
    const HWND window = Usable(control);
    if (!window)
        return;
    ComeToFront();
    if (GetFocus() != window && !IsChild(window, GetFocus()))
        SendMessageW(m_dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
}

void DialogView::Click(DialogControl control) const
{
    const HWND window = Usable(control);
    if (!window)
        return;
    ComeToFront();
    if (ClassOf(window) == L"Button")
    {
        SendMessageW(window, BM_CLICK, 0, 0);
        return;
    }
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, CentreOf(window));
    SendMessageW(window, WM_LBUTTONUP, 0, CentreOf(window));
}

// The window that gets the characters: the edit field of a combo box.
HWND DialogView::Typing(DialogControl control) const
{
    const HWND window = Usable(control);
    if (!window)
        return nullptr;
    GiveFocus(window);
    const HWND edit = ClassOf(window) == L"ComboBox" ? GetWindow(window, GW_CHILD) : nullptr;
    return edit ? edit : window;
}

void DialogView::TypeInto(HWND window, const std::wstring& text) const
{
    for (const wchar_t character : text)
        SendMessageW(window, WM_CHAR, static_cast<WPARAM>(character), 1);
}

void DialogView::Type(DialogControl control, const std::wstring& text) const
{
    if (const HWND window = Typing(control))
        TypeInto(window, text);
}

void DialogView::SetText(DialogControl control, const std::wstring& text) const
{
    const HWND window = Typing(control);
    if (!window)
        return;
    SendMessageW(window, EM_SETSEL, 0, -1);
    if (text.empty())
        SendMessageW(window, WM_KEYDOWN, VK_DELETE, 1);
    TypeInto(window, text);
}

void DialogView::Press(WORD key, unsigned held) const
{
    const HWND focus = GetFocus();
    const HWND window = focus ? focus : m_dialog;
    const bool alt = (held & kAlt) != 0;
    if (held)
        HoldKeys(held);
    const UINT down = alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
    const UINT up = alt ? WM_SYSKEYUP : WM_KEYUP;
    PostMessageW(window, down, key, KeyDetails(down, alt));
    PostMessageW(window, up, key, KeyDetails(up, alt));
}

void DialogView::LetGoOfKeys()
{
    if (t_holding)
        HoldKeys(0);
}

void DialogView::Close() const
{
    const auto style = static_cast<DWORD>(GetWindowLongW(m_dialog, GWL_STYLE));
    if ((style & (WS_CAPTION | WS_SYSMENU)) != (WS_CAPTION | WS_SYSMENU) || !IsWindowEnabled(m_dialog))
        ADD_FAILURE() << "no user can press the close box of\n" << Dump();
    else
        PostMessageW(m_dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
}

std::string DialogView::Line(HWND control) const
{
    std::ostringstream line;
    line << "  " << GetDlgCtrlID(control) << " " << Utf8Text(ClassOf(control)) << " style " << std::hex
         << Style(control) << std::dec << (IsShown(control) ? "" : " hidden")
         << (IsWindowEnabled(control) ? "" : " disabled") << (control == GetFocus() ? " focus" : "");
    if (ClassOf(control) == L"Button" && IsChecked(control))
        line << " checked";
    line << " \"" << Utf8Text(TextOf(control)) << "\"\n";
    return line.str();
}
