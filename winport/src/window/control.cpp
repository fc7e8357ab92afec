// The common part of the built-in controls.
#include "thread.h"

namespace winport
{
LRESULT Control::Default(UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowClass& own = *m_window.windowClass;
    if ((message >= own.firstOwn && message <= own.lastOwn) || (message >= WM_USER && message < WM_APP))
        Missing(&m_window, "message", message);
    switch (message)
    {
    case WM_SETFONT:
        m_window.font = reinterpret_cast<HFONT>(wParam);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(m_window.font);
    default:
        return DefWindowProcW(m_window.handle, message, wParam, lParam);
    }
}

bool Control::NotifyCommand(WORD code)
{
    const HWND self = m_window.handle;
    SendMessageW(GetParent(self), WM_COMMAND, MAKEWPARAM(m_window.id, code), reinterpret_cast<LPARAM>(self));
    return Alive(self);
}

LRESULT Control::Notify(NMHDR& header, UINT code)
{
    header.hwndFrom = m_window.handle;
    header.idFrom = static_cast<UINT_PTR>(m_window.id);
    header.code = code;
    return SendMessageW(GetParent(m_window.handle), WM_NOTIFY, header.idFrom,
                        reinterpret_cast<LPARAM>(&header));
}

LRESULT Control::Notify(UINT code)
{
    NMHDR header{};
    return Notify(header, code);
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
        window->control = window->windowClass->make(*window);
    return window->control ? window->control->Handle(message, wParam, lParam)
                           : DefWindowProcW(handle, message, wParam, lParam);
}
} // namespace winport
