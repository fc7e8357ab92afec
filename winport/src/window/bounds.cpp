// The least and the greatest size of a window, and the maximised one.
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

void ChangeState(Window& window, const RECT& to)
{
    const bool visible = window.style & WS_VISIBLE;
    window.style ^= WS_MAXIMIZE;
    window.placeUntold = false;
    SetWindowPos(window.handle, HWND_TOP, to.left, to.top, to.right - to.left, to.bottom - to.top,
                 kStateChanged | SWP_FRAMECHANGED | (visible ? 0 : SWP_SHOWWINDOW));
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
    window->restored = window->rect;
    ChangeState(*window, {at.x, at.y, at.x + bounds.ptMaxSize.x, at.y + bounds.ptMaxSize.y});
}

void Restore(HWND handle)
{
    Window& window = *FindWindowOf(handle);
    ChangeState(window, window.restored);
}
} // namespace winport
