// Creation and destruction of windows.
#include "thread.h"

namespace winport
{
namespace
{
// CW_USEDEFAULT is a default place for an overlapped window, and 0 for any other.
void ApplyDefaultPlace(CREATESTRUCTW* create)
{
    const bool overlapped = (create->style & static_cast<LONG>(WS_CHILD | WS_POPUP)) == 0;
    if (create->x == CW_USEDEFAULT)
        create->x = create->y = 0;
    if (create->cx == CW_USEDEFAULT)
    {
        create->cx = overlapped ? kScreenWidth * 3 / 4 : 0;
        create->cy = overlapped ? kScreenHeight * 3 / 4 : 0;
    }
}

bool FindRelations(const CREATESTRUCTW& create, Window* window)
{
    if (create.hwndParent == HWND_MESSAGE)
    {
        window->messageOnly = true;
        return true;
    }
    const bool child = create.style & static_cast<LONG>(WS_CHILD);
    if (!create.hwndParent || create.hwndParent == ThisThread().desktop.handle)
    {
        if (child && !create.hwndParent)
            SetLastError(ERROR_TLW_WITH_WSCHILD);
        return !child || create.hwndParent;
    }
    Window* parent = OwnWindow(create.hwndParent, "window in a window of another thread");
    if (!parent)
        return false;
    if (child)
        window->parent = parent;
    else
        window->owner = &RootOf(*parent);
    window->messageOnly = parent->messageOnly;
    return true;
}

void TakeStyles(const CREATESTRUCTW& create, Window* window)
{
    const auto style = static_cast<DWORD>(create.style);
    window->style = CompleteStyle(*window, style) & ~WS_VISIBLE;
    if (!(style & (WS_CHILD | WS_POPUP)))
        window->style |= WS_CAPTION;
    window->exStyle = CompleteExStyle(window->style, create.dwExStyle);
    CheckStyles(*window, window->style, window->exStyle);
}

// Hooks may change the place.
bool AskHooks(Window& window, CREATESTRUCTW* create)
{
    CBT_CREATEWNDW asked{create, window.parent ? HWND_BOTTOM : HWND_TOP};
    return CallHooks(HCBT_CREATEWND, reinterpret_cast<WPARAM>(window.handle),
                     reinterpret_cast<LPARAM>(&asked)) == 0;
}

// False if the window was destroyed when it was asked for its bounds.
bool PutIntoTree(Window& window, const CREATESTRUCTW& create)
{
    const HWND handle = window.handle;
    int width = create.cx;
    int height = create.cy;
    Reframe(window);
    KeepTrackSize(window, &width, &height);
    if (!Alive(handle))
        return false;
    const POINT origin = OriginOf(window);
    Place(window, origin.x + create.x, origin.y + create.y, width, height);
    Restack(window, window.parent ? HWND_BOTTOM : HWND_TOP);
    return true;
}

// Children are destroyed before their parent.
void Finish(HWND handle)
{
    Window* window = FindWindowOf(handle);
    while (window && !window->children.empty())
    {
        Finish(window->children.front()->handle);
        window = FindWindowOf(handle);
    }
    if (!window)
        return;
    SendMessageW(handle, WM_NCDESTROY, 0, 0);
    if ((window = FindWindowOf(handle)))
        RemoveWindow(*window);
}

bool SendCreation(HWND handle, CREATESTRUCTW* create)
{
    const auto parameter = reinterpret_cast<LPARAM>(create);
    if (!SendMessageW(handle, WM_NCCREATE, 0, parameter) ||
        SendMessageW(handle, WM_CREATE, 0, parameter) == -1)
    {
        Finish(handle);
        return false;
    }
    return Alive(handle);
}

// A top-level window receives its size and place when it is first shown.
void SendFirstPlace(HWND handle)
{
    Window* window = FindWindowOf(handle);
    if (!(window->style & (WS_CHILD | WS_POPUP)))
    {
        window->placeUntold = true;
        return;
    }
    SendSize(handle);
    SendMove(handle);
    if ((window = FindWindowOf(handle)))
        NotifyParent(*window, WM_CREATE);
}

Window* Begin(const WindowClass* windowClass, CREATESTRUCTW* create)
{
    Window& window = AddWindow();
    window.SetClass(windowClass);
    window.instance = create->hInstance;
    if (create->style & static_cast<LONG>(WS_CHILD))
        window.id = reinterpret_cast<LONG_PTR>(create->hMenu);
    TakeStyles(*create, &window);
    if (FindRelations(*create, &window))
        return &window;
    RemoveWindow(window);
    return nullptr;
}

void SendDestroy(HWND handle)
{
    if (!Alive(handle))
        return;
    FindWindowOf(handle)->destroying = true;
    SendMessageW(handle, WM_DESTROY, 0, 0);
    const Window* window = FindWindowOf(handle);
    for (const HWND child : window ? HandlesOf(window->children) : std::vector<HWND>())
        SendDestroy(child);
}

void DestroyOwned(HWND handle)
{
    for (;;)
    {
        HWND owned = nullptr;
        for (const Window* window : TopLevelWindows())
        {
            if (!owned && window->owner && window->owner->handle == handle && !window->destroying)
                owned = window->handle;
        }
        if (!owned || !DestroyWindow(owned))
            return;
    }
}

// A visible window is hidden first, which moves activation and focus elsewhere. A window that is destroyed by
// its own deactivation has none left to move.
void HideForGood(const Window& window)
{
    const ThreadState& state = ThisThread();
    if (!(window.style & WS_VISIBLE))
    {
        if (state.active == window.handle && state.deactivated != window.handle)
            ActivateNext(window);
    }
    else if (window.parent)
        ShowWindow(window.handle, SW_HIDE);
    else
        SetWindowPos(window.handle, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
}
} // namespace

void NotifyParent(const Window& window, UINT event)
{
    if (window.parent && !(window.exStyle & WS_EX_NOPARENTNOTIFY))
        SendMessageW(window.parent->handle, WM_PARENTNOTIFY,
                     static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(event, window.id))),
                     reinterpret_cast<LPARAM>(window.handle));
}
} // namespace winport

using namespace winport;

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y, int width,
                     int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter)
{
    const WindowClass* windowClass = FindWindowClass(className, instance);
    if (!windowClass)
    {
        RefuseSystemClass(className);
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    CREATESTRUCTW create{parameter, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(style),
                         text,      className, exStyle};
    ApplyDefaultPlace(&create);
    Window* window = Begin(windowClass, &create);
    if (!window)
        return nullptr;
    const HWND handle = window->handle;
    if (!AskHooks(*window, &create))
    {
        RemoveWindow(*window);
        return nullptr;
    }
    if (!PutIntoTree(*window, create) || !SendCreation(handle, &create))
        return nullptr;
    SendFirstPlace(handle);
    if (Alive(handle) && (style & WS_VISIBLE))
        ShowWindow(handle, SW_SHOW);
    return Alive(handle) ? handle : nullptr;
}

BOOL DestroyWindow(HWND handle)
{
    Window* window = OwnWindow(handle, "end of a window of another thread");
    if (!window || window->destroying || window == &ThisThread().desktop ||
        window == &ThisThread().messageOnly)
        return FALSE;
    if (CallHooks(HCBT_DESTROYWND, reinterpret_cast<WPARAM>(handle), 0) != 0)
        return FALSE;
    if (!Alive(handle))
        return TRUE;
    NotifyParent(*window, WM_DESTROY);
    if (!Alive(handle))
        return TRUE;
    HideForGood(*window);
    DestroyOwned(handle);
    SendDestroy(handle);
    Finish(handle);
    return TRUE;
}
