#include "DialogHost.h"

#include <utility>

namespace
{
void Hold(int key, bool down)
{
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[key] = down ? 0x80 : 0;
    SetKeyboardState(keys);
}
} // namespace

DialogHost::DialogHost(DialogTemplate description, Handler handler, HWND owner)
    : m_description(std::move(description)), m_handler(std::move(handler))
{
    m_window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), m_description.Get(), owner, Procedure,
                                          reinterpret_cast<LPARAM>(this));
}

DialogHost::~DialogHost()
{
    m_handler = {};
    if (m_window)
        DestroyWindow(m_window);
}

int DialogHost::Focus() const
{
    const HWND focus = GetFocus();
    if (!focus)
        return 0;
    return focus == m_window ? -1 : GetDlgCtrlID(focus);
}

void DialogHost::Deliver(UINT message, WPARAM key, LPARAM details) const
{
    if (m_window)
        PostMessageW(GetFocus() ? GetFocus() : m_window, message, key, details);
    Pump();
}

void DialogHost::Press(int key) const
{
    Deliver(WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    Deliver(WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
}

void DialogHost::PressWithShift(int key) const
{
    Hold(VK_SHIFT, true);
    Press(key);
    Hold(VK_SHIFT, false);
}

void DialogHost::PressWithAlt(int key) const
{
    Hold(VK_MENU, true);
    Deliver(WM_SYSKEYDOWN, static_cast<WPARAM>(key), 0x20000001);
    Deliver(WM_SYSKEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xE0000001));
    Hold(VK_MENU, false);
}

void DialogHost::Pump() const
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        if (!m_window || !IsDialogMessageW(m_window, &message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
}

std::vector<std::string> DialogHost::Commands()
{
    return std::exchange(m_commands, {});
}

INT_PTR CALLBACK DialogHost::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
    {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        reinterpret_cast<DialogHost*>(lParam)->m_window = dialog;
    }
    auto* host = reinterpret_cast<DialogHost*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return host ? host->OnMessage(dialog, message, wParam, lParam) : FALSE;
}

INT_PTR DialogHost::OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND)
        m_commands.push_back(std::to_string(LOWORD(wParam)) + ":" + std::to_string(HIWORD(wParam)));
    if (message == WM_NCDESTROY)
        m_window = nullptr;
    if (m_handler)
        return m_handler(dialog, message, wParam, lParam);
    return message == WM_INITDIALOG;
}
