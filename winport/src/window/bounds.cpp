// The least and the greatest size of a window, and the maximised and the minimised window.
#include "thread.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr int kLeastWidth = 116;
constexpr int kLeastHeight = 27;
constexpr int kBeyondScreen = 12; // how much larger than the screen a window can be

// The system's sizes as WM_GETMINMAXINFO lets the window change them.
MINMAXINFO BoundsOf(const Window& window)
{
    const int frame = window.frame;
    const LONG width = kScreenWidth;
    const LONG height = kScreenHeight;
    const bool captioned = window.style & WS_DLGFRAME;
    MINMAXINFO bounds{};
    bounds.ptMaxSize = {width + 2 * frame, height + 2 * frame};
    bounds.ptMaxPosition = {-frame, -frame};
    bounds.ptMinTrackSize = {captioned ? kLeastWidth : 2 * frame, captioned ? kLeastHeight : 2 * frame};
    bounds.ptMaxTrackSize = {width + kBeyondScreen, height + kBeyondScreen};
    SendMessageW(window.handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&bounds));
    return bounds;
}

int Within(int size, LONG least, LONG greatest)
{
    return std::max(std::min(size, static_cast<int>(greatest)), static_cast<int>(least));
}

// Sets the style. Children keep their position in the client area, whose origin depends on the style.
void SetState(Window& window, DWORD state)
{
    const RECT before = window.ClientOnScreen();
    window.style = (window.style & ~(WS_MAXIMIZE | WS_MINIMIZE)) | state;
    const RECT after = window.ClientOnScreen();
    for (Window* child : window.children)
    {
        const RECT& rect = child->rect;
        Place(*child, rect.left + after.left - before.left, rect.top + after.top - before.top,
              rect.right - rect.left, rect.bottom - rect.top);
    }
}

// `state` is WS_MAXIMIZE, WS_MINIMIZE or 0.
void ChangeState(Window& window, DWORD state, const RECT& to, UINT flags)
{
    const bool visible = window.style & WS_VISIBLE;
    SetState(window, state);
    window.placeUntold = false;
    SetWindowPos(window.handle, HWND_TOP, to.left, to.top, to.right - to.left, to.bottom - to.top,
                 flags | kStateChanged | SWP_FRAMECHANGED | (visible ? 0 : SWP_SHOWWINDOW));
}

void KeepPlace(Window& window)
{
    if (!(window.style & (WS_MAXIMIZE | WS_MINIMIZE)))
        window.restored = window.rect;
}

// A restored window gets the focus and WM_ACTIVATE, even if it was active while it was minimised.
void ActivateRestored(HWND handle)
{
    SetFocus(handle);
    if (FindWindowOf(handle))
        SendMessageW(handle, WM_ACTIVATE, WA_ACTIVE, 0);
}
} // namespace

// A popup or child without a sizing frame has no bounds.
void KeepTrackSize(const Window& window, int* width, int* height)
{
    *width = std::max(*width, 0);
    *height = std::max(*height, 0);
    if (!(window.style & WS_THICKFRAME) && (window.style & (WS_POPUP | WS_CHILD)))
        return;
    const MINMAXINFO bounds = BoundsOf(window);
    *width = Within(*width, bounds.ptMinTrackSize.x, bounds.ptMaxTrackSize.x);
    *height = Within(*height, bounds.ptMinTrackSize.y, bounds.ptMaxTrackSize.y);
}

void Maximise(HWND handle)
{
    const MINMAXINFO bounds = BoundsOf(*FindWindowOf(handle));
    Window* window = FindWindowOf(handle);
    if (!window)
        return;
    const POINT at = bounds.ptMaxPosition;
    const bool minimised = window->style & WS_MINIMIZE;
    KeepPlace(*window);
    ChangeState(*window, WS_MAXIMIZE, {at.x, at.y, at.x + bounds.ptMaxSize.x, at.y + bounds.ptMaxSize.y}, 0);
    if (minimised)
        ActivateRestored(handle);
}

// The window stays active.
void Minimise(HWND handle)
{
    if (GetFocus() == handle)
        SetFocus(nullptr);
    Window* window = FindWindowOf(handle);
    if (!window)
        return;
    KeepPlace(*window);
    window->restoresToMaximised = window->style & WS_MAXIMIZE;
    ChangeState(*window, WS_MINIMIZE, kMinimisedPlace, SWP_NOACTIVATE | SWP_NOZORDER);
}

void Restore(HWND handle)
{
    Window& window = *FindWindowOf(handle);
    const bool minimised = window.style & WS_MINIMIZE;
    ChangeState(window, 0, window.restored, 0);
    if (minimised)
        ActivateRestored(handle);
}
} // namespace winport
