// What tests of the choosers share.
#pragma once

#include "DialogFixture.h"

class NoLists : public NoneOf
{
public:
    NoLists() : NoneOf(WC_LISTVIEWW) {}
};

/// While it exists, the frame at whose position a chooser creates its list has this width, in pixels.
class FrameWidth
{
public:
    explicit FrameWidth(int width)
        : m_hook(SetWindowsHookExW(WH_CBT, &FrameWidth::OnEvent, nullptr, GetCurrentThreadId()))
    {
        s_width = width;
    }
    ~FrameWidth() { UnhookWindowsHookEx(m_hook); }
    FrameWidth(const FrameWidth&) = delete;
    FrameWidth& operator=(const FrameWidth&) = delete;

private:
    static constexpr LONG_PTR kFrame = 206;

    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
    {
        if (code == HCBT_CREATEWND)
        {
            const CREATESTRUCTW& made = *reinterpret_cast<CBT_CREATEWNDW*>(details)->lpcs;
            const auto control = reinterpret_cast<HWND>(window);
            wchar_t name[32] = {};
            GetClassNameW(control, name, 32);
            if (reinterpret_cast<LONG_PTR>(made.hMenu) == kFrame && std::wstring(name) == L"Button")
                s_previous = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
                    control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&FrameWidth::Procedure)));
        }
        return CallNextHookEx(nullptr, code, window, details);
    }

    /// Restores the frame's own procedure once the frame is created.
    static LRESULT CALLBACK Procedure(HWND frame, UINT message, WPARAM first, LPARAM second)
    {
        const WNDPROC previous = s_previous;
        const LRESULT result = CallWindowProcW(previous, frame, message, first, second);
        if (message == WM_CREATE)
        {
            SetWindowLongPtrW(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
            RECT place{};
            GetWindowRect(frame, &place);
            SetWindowPos(frame, nullptr, 0, 0, s_width, place.bottom - place.top,
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        }
        return result;
    }

    static inline int s_width = 0;
    static inline WNDPROC s_previous = nullptr;
    HHOOK m_hook;
};

class ChooserFixture : public DialogFixture
{
};
