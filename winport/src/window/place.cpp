// Moving, sizing, stacking, showing and hiding of windows.
#include "thread.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr UINT kNothing = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER;
constexpr UINT kSomething = SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED;

// Clears the flags of changes that change nothing. A minimised window cannot be moved.
void Reduce(Window& window, WINDOWPOS* change)
{
    if (window.style & WS_MINIMIZE)
    {
        change->x = kMinimisedPlace.left;
        change->y = kMinimisedPlace.top;
        change->cx = kMinimisedPlace.right - kMinimisedPlace.left;
        change->cy = kMinimisedPlace.bottom - kMinimisedPlace.top;
    }
    const POINT origin = OriginOf(window);
    const RECT& rect = window.rect;
    change->cx = std::max(change->cx, 0);
    change->cy = std::max(change->cy, 0);
    if (change->x == rect.left - origin.x && change->y == rect.top - origin.y)
        change->flags |= SWP_NOMOVE;
    if (change->cx == rect.right - rect.left && change->cy == rect.bottom - rect.top)
        change->flags |= SWP_NOSIZE;
    if (window.style & WS_VISIBLE)
        change->flags &= ~SWP_SHOWWINDOW;
    else
        change->flags &= ~SWP_HIDEWINDOW;
    if (change->flags & SWP_NOMOVE)
    {
        change->x = rect.left - origin.x;
        change->y = rect.top - origin.y;
    }
    if (change->flags & SWP_NOSIZE)
    {
        change->cx = rect.right - rect.left;
        change->cy = rect.bottom - rect.top;
    }
}

void Apply(Window& window, WINDOWPOS* change)
{
    const RECT before = window.ClientOnScreen();
    const POINT origin = OriginOf(window);
    if ((change->flags & SWP_FRAMECHANGED) || !(change->flags & SWP_NOSIZE))
        Reframe(window);
    Place(window, origin.x + change->x, origin.y + change->y, change->cx, change->cy);
    if (!(change->flags & SWP_NOZORDER))
        Restack(window, change->hwndInsertAfter);
    if (change->flags & SWP_SHOWWINDOW)
        window.style |= WS_VISIBLE;
    if (change->flags & SWP_HIDEWINDOW)
        window.style &= ~WS_VISIBLE;
    const RECT after = window.ClientOnScreen();
    if (after.right - after.left == before.right - before.left &&
        after.bottom - after.top == before.bottom - before.top)
        change->flags |= kSameClientSize;
    if (after.left == before.left && after.top == before.top)
        change->flags |= kSameClientPlace;
}

// Sends the first WM_SIZE and WM_MOVE of a new top-level window.
void TellFirstPlace(HWND handle)
{
    Window* window = FindWindowOf(handle);
    if (!window || !window->placeUntold)
        return;
    window->placeUntold = false;
    SendSize(handle);
    SendMove(handle);
}

UINT FlagsToShow(const Window& window, int how)
{
    UINT flags = SWP_NOSIZE | SWP_NOMOVE;
    switch (how)
    {
    case SW_HIDE:
        flags |= SWP_HIDEWINDOW;
        break;
    case SW_SHOWNA:
    case SW_SHOWNOACTIVATE:
        flags |= SWP_SHOWWINDOW | SWP_NOACTIVATE;
        break;
    case SW_SHOW:
    case SW_SHOWNORMAL:
    case SW_SHOWMAXIMIZED:
    case SW_RESTORE:
    case SW_MINIMIZE:
        flags |= SWP_SHOWWINDOW;
        break;
    default:
        Missing(&window, "way to show", static_cast<unsigned>(how));
    }
    return window.parent ? flags | SWP_NOACTIVATE | SWP_NOZORDER : flags;
}

// Maximises, minimises or restores the window. Returns false if that way to show does not change its state.
bool ChangeState(const Window& window, int how)
{
    const bool maximised = window.style & WS_MAXIMIZE;
    const bool minimised = window.style & WS_MINIMIZE;
    if ((how == SW_SHOWMAXIMIZED || how == SW_MINIMIZE) && window.parent)
        Missing(&window, "way to show a child", static_cast<unsigned>(how));
    if (how == SW_SHOWNOACTIVATE && minimised)
        Missing(&window, "way to show a minimised window", static_cast<unsigned>(how));
    const bool restores = how == SW_SHOWNORMAL || how == SW_RESTORE;
    const bool toMaximised = restores && minimised && window.restoresToMaximised;
    if (toMaximised || (how == SW_SHOWMAXIMIZED && !maximised))
        Maximise(window.handle);
    else if (how == SW_MINIMIZE && !minimised)
        Minimise(window.handle);
    else if (restores && (maximised || minimised))
        Restore(window.handle);
    else
        return false;
    return true;
}
} // namespace
} // namespace winport

using namespace winport;

BOOL SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags)
{
    Window* window = OwnWindow(handle, "place of a window of another thread");
    if (!window)
        return FALSE;
    WINDOWPOS change{handle, after, x, y, width, height, flags};
    if (!(flags & SWP_NOSENDCHANGING))
        SendMessageW(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&change));
    if (!(window = FindWindowOf(handle)))
        return FALSE;
    Reduce(*window, &change);
    const bool activates =
        !(change.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) && !window->parent && !window->messageOnly;
    if (activates)
    {
        change.hwndInsertAfter = HWND_TOP;
        change.flags &= ~SWP_NOZORDER;
    }
    if ((change.flags & kNothing) == kNothing && !(change.flags & kSomething))
        return TRUE;
    Apply(*window, &change);
    if (activates)
        Activate(handle);
    if (FindWindowOf(handle))
        SendMessageW(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&change));
    if (change.flags & SWP_HIDEWINDOW)
        TakeFocusFrom(handle);
    return TRUE;
}

BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint)
{
    const UINT flags = SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0 : SWP_NOREDRAW);
    return SetWindowPos(window, nullptr, x, y, width, height, flags);
}

BOOL ShowWindow(HWND handle, int how)
{
    Window* window = OwnWindow(handle, "show of a window of another thread");
    if (!window)
        return FALSE;
    const UINT flags = FlagsToShow(*window, how);
    const bool visible = window->style & WS_VISIBLE;
    if (ChangeState(*window, how) || visible == (how != SW_HIDE))
        return visible;
    SendMessageW(handle, WM_SHOWWINDOW, how != SW_HIDE, 0);
    if (FindWindowOf(handle))
        SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, flags);
    TellFirstPlace(handle);
    return visible;
}

BOOL IsWindowVisible(HWND handle)
{
    const Window* window = AnyWindow(handle);
    return window && window->Visible();
}

// There is nothing to paint.
BOOL InvalidateRect(HWND window, const RECT*, BOOL)
{
    return !window || AnyWindow(window) != nullptr;
}
