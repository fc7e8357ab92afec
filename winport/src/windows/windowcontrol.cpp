// What the built-in controls have in common.
#include "wpthread.h"

namespace winport
{
LRESULT Control::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcW(m_window.handle, message, wParam, lParam);
}

void Control::NotifyCommand(WORD code)
{
    const HWND parent = GetParent(m_window.handle);
    const auto id = static_cast<WORD>(m_window.id);
    SendMessageW(parent, WM_COMMAND, static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(id, code))),
                 reinterpret_cast<LPARAM>(m_window.handle));
}

LRESULT Control::Notify(NMHDR& header, UINT code)
{
    header.hwndFrom = m_window.handle;
    header.idFrom = static_cast<UINT_PTR>(m_window.id);
    header.code = code;
    return SendMessageW(GetParent(m_window.handle), WM_NOTIFY, header.idFrom,
                        reinterpret_cast<LPARAM>(&header));
}

void Control::Unsupported(UINT message) const
{
    Missing(&m_window, "message", message);
}

RECT Control::ClientSize() const
{
    const RECT place = m_window.ClientOnScreen();
    return {0, 0, place.right - place.left, place.bottom - place.top};
}

LRESULT CALLBACK ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* window = FindWindowOf(handle);
    if (!window)
        return 0;
    if (message == WM_NCCREATE && !window->control)
    {
        window->control = window->windowClass->make(*window);
        if (!window->control)
            Missing(window, "class", 0);
    }
    return window->control ? window->control->Handle(message, wParam, lParam)
                           : DefWindowProcW(handle, message, wParam, lParam);
}
} // namespace winport
