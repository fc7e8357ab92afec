// The values of a window by index (GetWindowLong).
#include "thread.h"

namespace winport
{
namespace
{
LONG_PTR* ExtraOf(Window& window, int index)
{
    if (index < 0 ||
        static_cast<std::size_t>(index) + sizeof(LONG_PTR) > window.extra.size() * sizeof(LONG_PTR))
    {
        SetLastError(ERROR_INVALID_INDEX);
        return nullptr;
    }
    if (index % static_cast<int>(sizeof(LONG_PTR)) != 0)
        Missing(&window, "extra bytes at", static_cast<unsigned>(index));
    return &window.extra[static_cast<std::size_t>(index) / sizeof(LONG_PTR)];
}

LONG_PTR SetStyle(HWND handle, DWORD Window::*style, int index, DWORD value)
{
    Window* window = FindWindowOf(handle);
    STYLESTRUCT change{window->*style, value};
    const auto which = static_cast<WPARAM>(index);
    SendMessageW(handle, WM_STYLECHANGING, which, reinterpret_cast<LPARAM>(&change));
    if (!(window = FindWindowOf(handle)))
        return 0;
    const bool extended = index == GWL_EXSTYLE;
    const DWORD state = window->style & (WS_MAXIMIZE | WS_MINIMIZE);
    CheckStyles(*window, extended ? 0 : change.styleNew & ~state, extended ? change.styleNew : 0);
    window->*style = extended ? change.styleNew : CompleteStyle(*window, change.styleNew);
    window->exStyle = CompleteExStyle(window->style, window->exStyle);
    SendMessageW(handle, WM_STYLECHANGED, which, reinterpret_cast<LPARAM>(&change));
    return static_cast<LONG>(change.styleOld);
}

template <class T>
LONG_PTR Exchange(T& place, LONG_PTR value)
{
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<LONG_PTR>(std::exchange(place, reinterpret_cast<T>(value)));
    else
        return std::exchange(place, static_cast<T>(value));
}
} // namespace
} // namespace winport

using namespace winport;

LONG_PTR GetWindowLongPtrW(HWND handle, int index)
{
    Window* window = AnyWindow(handle);
    if (!window)
        return 0;
    switch (index)
    {
    case GWL_STYLE:
        return static_cast<LONG>(window->style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window->exStyle);
    case GWLP_ID:
        return window->id;
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window->procedure);
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(window->instance);
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(window->parent  ? window->parent->handle
                                          : window->owner ? window->owner->handle
                                                          : nullptr);
    case GWLP_USERDATA:
        return window->userData;
    default:
        const LONG_PTR* extra = ExtraOf(*window, index);
        return extra ? *extra : 0;
    }
}

LONG_PTR SetWindowLongPtrW(HWND handle, int index, LONG_PTR value)
{
    Window* window = OwnWindow(handle, "value of a window of another thread");
    if (!window)
        return 0;
    switch (index)
    {
    case GWL_STYLE:
        return SetStyle(handle, &Window::style, index, static_cast<DWORD>(value));
    case GWL_EXSTYLE:
        return SetStyle(handle, &Window::exStyle, index, static_cast<DWORD>(value));
    case GWLP_ID:
        return Exchange(window->id, value);
    case GWLP_WNDPROC:
        return Exchange(window->procedure, value);
    case GWLP_HINSTANCE:
        return Exchange(window->instance, value);
    case GWLP_HWNDPARENT:
        Missing(window, "change of the parent", 0);
    case GWLP_USERDATA:
        return Exchange(window->userData, value);
    default:
        LONG_PTR* extra = ExtraOf(*window, index);
        return extra ? Exchange(*extra, value) : 0;
    }
}

LONG GetWindowLongW(HWND window, int index)
{
    return static_cast<LONG>(GetWindowLongPtrW(window, index));
}

LONG SetWindowLongW(HWND window, int index, LONG value)
{
    return static_cast<LONG>(SetWindowLongPtrW(window, index, value));
}
