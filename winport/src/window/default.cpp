// Default handling of messages.
#include "thread.h"

namespace winport
{
namespace
{
constexpr LRESULT kHitNothing = 0;
constexpr LRESULT kHitClient = 1;
constexpr LRESULT kHitCaption = 2;
constexpr LPARAM kAltDown = 0x20000000;
constexpr WPARAM kCommandMask = 0xFFF0;

void SetText(Window& window, LPARAM text)
{
    window.text = text ? reinterpret_cast<LPCWSTR>(text) : L"";
}

void OnPlaceChanging(const Window& window, WINDOWPOS* change)
{
    if (!(change->flags & SWP_NOSIZE))
        KeepTrackSize(window, &change->cx, &change->cy);
}

void OnPlaceChanged(HWND handle, UINT flags)
{
    if (!(flags & kSameClientPlace))
        SendMove(handle);
    if (!(flags & kSameClientSize) || (flags & kStateChanged))
        SendSize(handle);
}

void OnSystemCommand(HWND handle, WPARAM command)
{
    if (command == SC_CLOSE)
        SendMessageW(handle, WM_CLOSE, 0, 0);
    else if (command == SC_MAXIMIZE)
        ShowWindow(handle, SW_SHOWMAXIMIZED);
    else if (command == SC_MINIMIZE)
        ShowWindow(handle, SW_MINIMIZE);
    else if (command == SC_RESTORE)
        ShowWindow(handle, SW_RESTORE);
}

void OnSystemKey(Window& window, WPARAM key, LPARAM flags)
{
    if (key == VK_F4 && (flags & kAltDown))
        PostMessageW(RootOf(window).handle, WM_SYSCOMMAND, SC_CLOSE, 0);
}

LRESULT OnText(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_NCCREATE:
        SetText(window, reinterpret_cast<LPARAM>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName));
        return TRUE;
    case WM_SETTEXT:
        SetText(window, lParam);
        return TRUE;
    case WM_GETTEXT:
        return CopyText(window.text, reinterpret_cast<LPWSTR>(lParam), static_cast<int>(wParam));
    default:
        return static_cast<LRESULT>(window.text.size());
    }
}

LRESULT HitTest(const Window& window, LPARAM at)
{
    const POINT point = PointOf(at);
    const RECT client = window.ClientOnScreen();
    if (!PtInRect(&window.rect, point))
        return kHitNothing;
    return PtInRect(&client, point) ? kHitClient : kHitCaption;
}

LRESULT OnIcon(Window& window, UINT message, WPARAM which, LPARAM icon)
{
    HICON& held = window.icons[which == ICON_BIG ? 1 : 0];
    const HICON before = held;
    if (message == WM_SETICON)
        held = reinterpret_cast<HICON>(icon);
    return reinterpret_cast<LRESULT>(before);
}
} // namespace
} // namespace winport

using namespace winport;

LRESULT DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* window = AnyWindow(handle);
    if (!window)
        return 0;
    switch (message)
    {
    case WM_NCCREATE:
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
        return OnText(*window, message, wParam, lParam);
    case WM_SETICON:
    case WM_GETICON:
        return OnIcon(*window, message, wParam, lParam);
    case WM_CLOSE:
        DestroyWindow(handle);
        return 0;
    case WM_SYSCOMMAND:
        OnSystemCommand(handle, wParam & kCommandMask);
        return 0;
    case WM_SYSKEYDOWN:
        OnSystemKey(*window, wParam, lParam);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE)
            SetFocus(handle);
        return 0;
    case WM_WINDOWPOSCHANGING:
        OnPlaceChanging(*window, reinterpret_cast<WINDOWPOS*>(lParam));
        return 0;
    case WM_WINDOWPOSCHANGED:
        OnPlaceChanged(handle, reinterpret_cast<const WINDOWPOS*>(lParam)->flags);
        return 0;
    case WM_CANCELMODE:
        if (GetCapture() == handle)
            ReleaseCapture();
        return 0;
    case WM_SETREDRAW:
        window->style = wParam ? window->style | WS_VISIBLE : window->style & ~WS_VISIBLE;
        return 0;
    case WM_NCACTIVATE:
        return TRUE;
    case WM_NCHITTEST:
        return HitTest(*window, lParam);
    default:
        return 0;
    }
}
