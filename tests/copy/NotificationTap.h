// Records the notifications that a window of this thread receives.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <utility>

/// Calls `seen` with each WM_NOTIFY of a window before the window gets it. One object at a time.
class NotificationTap
{
public:
    using Seen = std::function<void(WPARAM id, const NMHDR& header)>;

    NotificationTap(HWND window, Seen seen) : m_window(window)
    {
        s_seen = std::move(seen);
        s_previous = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NotificationTap::Procedure)));
    }
    ~NotificationTap()
    {
        if (IsWindow(m_window))
            SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_previous));
    }
    NotificationTap(const NotificationTap&) = delete;
    NotificationTap& operator=(const NotificationTap&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message == WM_NOTIFY)
            s_seen(wParam, *reinterpret_cast<const NMHDR*>(lParam));
        return CallWindowProcW(s_previous, window, message, wParam, lParam);
    }

    static inline Seen s_seen;
    static inline WNDPROC s_previous = nullptr;
    HWND m_window;
};
