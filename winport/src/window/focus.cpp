// Activation and focus.
#include "thread.h"

#include <algorithm>

namespace winport
{
namespace
{
bool MayBeActive(const Window& window)
{
    return window.Visible() && window.Enabled();
}

// Returns the next window that can be active, from top to bottom and then from the top, null if there is
// none.
const Window* NextBelow(const Window& leaving)
{
    std::vector<Window*> others = TopLevelWindows();
    const auto place = std::find(others.begin(), others.end(), &leaving);
    if (place != others.end())
        std::rotate(others.begin(), place, others.end());
    for (const Window* window : others)
    {
        if (window != &leaving && MayBeActive(*window))
            return window;
    }
    return nullptr;
}

// Moves the focus to `next`, which may be null.
void MoveFocus(HWND next)
{
    ThreadState& state = ThisThread();
    const HWND before = std::exchange(state.focus, next);
    if (before == next)
        return;
    if (FindWindowOf(before))
        SendMessageW(before, WM_KILLFOCUS, reinterpret_cast<WPARAM>(next), 0);
    if (next && state.focus == next && FindWindowOf(next))
        SendMessageW(next, WM_SETFOCUS, reinterpret_cast<WPARAM>(before), 0);
}

bool Refused(int code, HWND window, LPARAM parameter)
{
    return CallHooks(code, reinterpret_cast<WPARAM>(window), parameter) != 0;
}

void Deactivate(HWND before, HWND next)
{
    const auto other = reinterpret_cast<LPARAM>(next);
    const HWND outer = std::exchange(ThisThread().deactivated, before);
    if (FindWindowOf(before))
        SendMessageW(before, WM_NCACTIVATE, FALSE, other);
    if (FindWindowOf(before))
        SendMessageW(before, WM_ACTIVATE, WA_INACTIVE, other);
    ThisThread().deactivated = outer;
}

void TellActive(HWND next, HWND before)
{
    const auto other = reinterpret_cast<LPARAM>(before);
    SendMessageW(next, WM_NCACTIVATE, TRUE, other);
    if (ThisThread().active == next)
        SendMessageW(next, WM_ACTIVATE, WA_ACTIVE, other);
}

// A window that is disabled or minimised, or inside of one, cannot get the focus.
bool IsAbleInside(const Window& window)
{
    for (const Window* at = &window; at; at = at->parent)
    {
        if (!at->Enabled() || (at->style & WS_MINIMIZE))
            return false;
    }
    return true;
}
} // namespace

bool Activate(HWND next)
{
    ThreadState& state = ThisThread();
    if (state.active == next)
        return true;
    CBTACTIVATESTRUCT asked{FALSE, state.active};
    if (Refused(HCBT_ACTIVATE, next, reinterpret_cast<LPARAM>(&asked)))
        return false;
    Deactivate(state.active, next);
    Window* window = FindWindowOf(next);
    const HWND before = std::exchange(state.active, window ? next : nullptr);
    if (window)
        TellActive(next, before);
    if (state.active != (window ? next : nullptr))
        return false;
    // A window that handles the message without taking the focus is given the focus nevertheless.
    window = FindWindowOf(next);
    if (!window || !IsWithin(*window, FindWindowOf(state.focus)))
        MoveFocus(window ? next : nullptr);
    return true;
}

void ActivateNext(const Window& leaving)
{
    const Window* next = leaving.owner && MayBeActive(*leaving.owner) ? leaving.owner : NextBelow(leaving);
    Activate(next ? next->handle : nullptr);
}

void TakeFocusFrom(HWND handle)
{
    const Window* window = FindWindowOf(handle);
    if (window && ThisThread().active == handle)
        ActivateNext(*window);
    window = FindWindowOf(handle);
    if (window && GetFocus() == handle)
        SetFocus(window->parent ? window->parent->handle : nullptr);
}
} // namespace winport

using namespace winport;

HWND GetActiveWindow()
{
    return ThisThread().active;
}

HWND SetActiveWindow(HWND handle)
{
    const HWND before = GetActiveWindow();
    if (handle)
    {
        Window* window = OwnWindow(handle, "active window of another thread");
        if (!window)
            return nullptr;
        handle = RootOf(*window).handle;
    }
    Activate(handle);
    return before;
}

HWND GetFocus()
{
    return ThisThread().focus;
}

HWND SetFocus(HWND handle)
{
    const HWND before = GetFocus();
    if (handle == before)
        return before;
    Window* window = handle ? OwnWindow(handle, "focus of a window of another thread") : nullptr;
    if (handle && (!window || !IsAbleInside(*window)))
        return nullptr;
    if (Refused(HCBT_SETFOCUS, handle, reinterpret_cast<LPARAM>(before)))
        return nullptr;
    if (handle)
    {
        const HWND root = RootOf(*window).handle;
        if (!Activate(root) || GetActiveWindow() != root || !FindWindowOf(handle))
            return nullptr;
    }
    MoveFocus(handle);
    return before;
}

BOOL IsWindowEnabled(HWND handle)
{
    const Window* window = AnyWindow(handle);
    return window && window->Enabled();
}

BOOL EnableWindow(HWND handle, BOOL enable)
{
    Window* window = OwnWindow(handle, "state of a window of another thread");
    if (!window)
        return FALSE;
    const bool disabled = !window->Enabled();
    if (disabled != (enable != FALSE))
        return disabled;
    if (!enable)
        SendMessageW(handle, WM_CANCELMODE, 0, 0);
    if (!(window = FindWindowOf(handle)))
        return disabled;
    window->style = enable ? window->style & ~WS_DISABLED : window->style | WS_DISABLED;
    if (!enable && GetFocus() == handle)
        SetFocus(nullptr);
    if (FindWindowOf(handle))
        SendMessageW(handle, WM_ENABLE, enable != FALSE, 0);
    return disabled;
}
