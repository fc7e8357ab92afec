// Rectangles of windows and client areas, and mapping between windows.
#include "thread.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr int kCaption = 19;
constexpr int kToolCaption = 16;
constexpr int kEdge = 2;

int FrameWidth(DWORD style, DWORD exStyle)
{
    const bool modal = exStyle & WS_EX_DLGMODALFRAME;
    const bool lined = style & WS_BORDER;
    int width = 0;
    if (modal || (style & (WS_DLGFRAME | WS_THICKFRAME)))
        width = kEdge + ((style & WS_THICKFRAME) ? 1 : 0) + (modal || (style & WS_CAPTION) ? 1 : 0);
    else
        width = (exStyle & WS_EX_STATICEDGE ? 1 : 0) + (lined ? 1 : 0);
    return width + (exStyle & WS_EX_CLIENTEDGE ? kEdge : 0);
}

int CaptionHeight(DWORD style, DWORD exStyle)
{
    if ((style & WS_CAPTION) != WS_CAPTION)
        return 0;
    return exStyle & WS_EX_TOOLWINDOW ? kToolCaption : kCaption;
}

void Shift(Window& window, LONG x, LONG y)
{
    window.rect = {window.rect.left + x, window.rect.top + y, window.rect.right + x, window.rect.bottom + y};
    for (Window* child : window.children)
        Shift(*child, x, y);
}

// The origin of the client area; that of the screen for null and the desktop. Returns false for an invalid
// handle.
bool ClientOrigin(HWND handle, POINT* origin)
{
    *origin = {0, 0};
    if (!handle)
        return true;
    const Window* window = AnyWindow(handle);
    if (window)
        *origin = {window->ClientOnScreen().left, window->ClientOnScreen().top};
    return window;
}
} // namespace

RECT Window::ClientOnScreen() const
{
    if (style & WS_MINIMIZE)
        return {rect.left, rect.top, rect.left, rect.top};
    RECT client{rect.left + frame, rect.top + frame + caption, rect.right - frame, rect.bottom - frame};
    if ((style & WS_VSCROLL) && client.right - client.left >= kScrollBarWidth)
        client.right -= kScrollBarWidth;
    if ((style & WS_HSCROLL) && client.bottom - client.top >= kScrollBarWidth)
        client.bottom -= kScrollBarWidth;
    client.right = std::max(client.left, client.right);
    client.bottom = std::max(client.top, client.bottom);
    return client;
}

POINT OriginOf(const Window& window)
{
    if (!window.parent)
        return {0, 0};
    const RECT client = window.parent->ClientOnScreen();
    return {client.left, client.top};
}

void Reframe(Window& window)
{
    window.frame = FrameWidth(window.style, window.exStyle);
    window.caption = CaptionHeight(window.style, window.exStyle);
}

DWORD CompleteStyle(const Window& window, DWORD style)
{
    return window.style & WS_CHILD || style & WS_CHILD ? style : style | WS_CLIPSIBLINGS;
}

DWORD CompleteExStyle(DWORD style, DWORD exStyle)
{
    const bool edge = (exStyle & WS_EX_DLGMODALFRAME) || (style & (WS_DLGFRAME | WS_THICKFRAME));
    return edge ? exStyle | WS_EX_WINDOWEDGE : exStyle & ~WS_EX_WINDOWEDGE;
}

void Place(Window& window, int x, int y, int width, int height)
{
    Shift(window, x - window.rect.left, y - window.rect.top);
    window.rect.right = window.rect.left + width;
    window.rect.bottom = window.rect.top + height;
}

void SendSize(HWND handle)
{
    RECT client{};
    if (!GetClientRect(handle, &client))
        return;
    const DWORD style = FindWindowOf(handle)->style;
    const WPARAM state = style & WS_MINIMIZE   ? SIZE_MINIMIZED
                         : style & WS_MAXIMIZE ? SIZE_MAXIMIZED
                                               : SIZE_RESTORED;
    SendMessageW(handle, WM_SIZE, state, MAKELPARAM(client.right, client.bottom));
}

void SendMove(HWND handle)
{
    const Window* window = FindWindowOf(handle);
    if (!window)
        return;
    const RECT client = window->ClientOnScreen();
    const POINT origin = OriginOf(*window);
    SendMessageW(handle, WM_MOVE, 0, MAKELPARAM(client.left - origin.x, client.top - origin.y));
}
} // namespace winport

using namespace winport;

BOOL GetWindowRect(HWND handle, LPRECT rect)
{
    const Window* window = AnyWindow(handle);
    if (window)
        *rect = window->rect;
    return window != nullptr;
}

BOOL GetClientRect(HWND handle, LPRECT rect)
{
    const Window* window = AnyWindow(handle);
    if (!window)
        return FALSE;
    const RECT client = window->ClientOnScreen();
    *rect = {0, 0, client.right - client.left, client.bottom - client.top};
    return TRUE;
}

int MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    POINT start{};
    POINT end{};
    if (!ClientOrigin(from, &start) || !ClientOrigin(to, &end))
        return 0;
    const LONG x = start.x - end.x;
    const LONG y = start.y - end.y;
    for (UINT i = 0; i < count; ++i)
        points[i] = {points[i].x + x, points[i].y + y};
    return static_cast<int>(MAKELPARAM(x, y));
}

BOOL PtInRect(const RECT* rect, POINT point)
{
    return rect && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
           point.y < rect->bottom;
}
