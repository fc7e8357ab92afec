// Parents, owners, siblings and z-order.
#include "thread.h"

#include <algorithm>

namespace winport
{
namespace
{
HWND HandleOf(const Window* window)
{
    return window ? window->handle : nullptr;
}

Window* At(const std::vector<Window*>& windows, std::ptrdiff_t index)
{
    return index >= 0 && index < std::ssize(windows) ? windows[static_cast<std::size_t>(index)] : nullptr;
}

std::ptrdiff_t IndexOf(const std::vector<Window*>& windows, const Window* window)
{
    return std::find(windows.begin(), windows.end(), window) - windows.begin();
}

void MoveInOrder(Window& window, HWND after)
{
    std::vector<Window*>& siblings = SiblingsOf(window);
    std::erase(siblings, &window);
    auto place = siblings.begin();
    if (after == HWND_BOTTOM)
        place = siblings.end();
    else if (after != HWND_TOP)
    {
        place = std::find(siblings.begin(), siblings.end(), FindWindowOf(after));
        if (place != siblings.end())
            ++place;
    }
    siblings.insert(place, &window);
}

// The windows that `owner` owns, from top to bottom.
std::vector<Window*> OwnedBy(const Window& owner)
{
    std::vector<Window*> owned;
    for (Window* window : SiblingsOf(const_cast<Window&>(owner)))
    {
        if (window->owner == &owner)
            owned.push_back(window);
    }
    return owned;
}

// An owned window is above its owner.
void KeepAbove(Window& window, const Window& owner)
{
    std::vector<Window*>& siblings = SiblingsOf(window);
    if (IndexOf(siblings, &window) < IndexOf(siblings, &owner))
        return;
    std::erase(siblings, &window);
    siblings.insert(siblings.begin() + IndexOf(siblings, &owner), &window);
}

void RaiseOwned(const Window& owner)
{
    for (Window* window : OwnedBy(owner))
    {
        KeepAbove(*window, owner);
        RaiseOwned(*window);
    }
}
} // namespace

std::vector<HWND> HandlesOf(const std::vector<Window*>& windows)
{
    std::vector<HWND> handles(windows.size());
    std::transform(windows.begin(), windows.end(), handles.begin(),
                   [](const Window* window) { return window->handle; });
    return handles;
}

std::vector<Window*>& SiblingsOf(Window& window)
{
    if (window.parent)
        return window.parent->children;
    return window.messageOnly ? ThisThread().messageOnly.children : ThisThread().desktop.children;
}

Window& RootOf(Window& window)
{
    Window* root = &window;
    while (root->parent)
        root = root->parent;
    return *root;
}

bool IsWithin(const Window& ancestor, const Window* window)
{
    while (window && window != &ancestor)
        window = window->parent;
    return window != nullptr;
}

void Restack(Window& window, HWND after)
{
    MoveInOrder(window, after);
    if (window.owner)
        KeepAbove(window, *window.owner);
    if (!window.parent)
        RaiseOwned(window);
}

bool Window::Visible() const
{
    for (const Window* window = this; window; window = window->parent)
    {
        if (!(window->style & WS_VISIBLE) || window->messageOnly)
            return false;
    }
    return true;
}
} // namespace winport

using namespace winport;

HWND GetParent(HWND handle)
{
    const Window* window = AnyWindow(handle);
    if (!window)
        return nullptr;
    if (window->style & WS_POPUP)
        return HandleOf(window->owner);
    return window->style & WS_CHILD ? HandleOf(window->parent) : nullptr;
}

HWND GetAncestor(HWND handle, UINT which)
{
    Window* window = AnyWindow(handle);
    if (!window || window == &ThisThread().desktop)
        return nullptr;
    if (which == GA_PARENT)
    {
        if (window->parent)
            return window->parent->handle;
        return window->messageOnly ? ThisThread().messageOnly.handle : ThisThread().desktop.handle;
    }
    if (which != GA_ROOT)
        Missing(window, "GetAncestor relation", which);
    return RootOf(*window).handle;
}

HWND GetWindow(HWND handle, UINT which)
{
    Window* window = AnyWindow(handle);
    if (!window)
        return nullptr;
    if (which == GW_OWNER)
        return HandleOf(window->owner);
    if (which == GW_CHILD)
        return HandleOf(At(window->children, 0));
    if (which != GW_HWNDNEXT)
        Missing(window, "GetWindow relation", which);
    const std::vector<Window*>& siblings = SiblingsOf(*window);
    const std::ptrdiff_t index = IndexOf(siblings, window);
    return HandleOf(At(siblings, index + 1));
}

BOOL IsChild(HWND parent, HWND handle)
{
    const Window* ancestor = FindWindowOf(parent);
    const Window* window = FindWindowOf(handle);
    return ancestor && window && ancestor != window && IsWithin(*ancestor, window);
}

// Windows that were destroyed meanwhile are skipped.
BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC each, LPARAM parameter)
{
    if (thread != GetCurrentThreadId())
        Missing(nullptr, "windows of another thread", thread);
    for (const HWND handle : HandlesOf(TopLevelWindows()))
    {
        if (FindWindowOf(handle) && !each(handle, parameter))
            return FALSE;
    }
    return TRUE;
}
