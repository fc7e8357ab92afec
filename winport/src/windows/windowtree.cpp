// Who stands where among the windows.
#include "wpthread.h"

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

void Collect(const Window& window, std::vector<HWND>* handles)
{
    for (const Window* child : window.children)
    {
        handles->push_back(child->handle);
        Collect(*child, handles);
    }
}

// Calls `each` for the windows that still live when their turn comes, until it returns FALSE.
BOOL ForEach(const std::vector<HWND>& handles, WNDENUMPROC each, LPARAM parameter)
{
    for (const HWND handle : handles)
    {
        if (FindWindowOf(handle) && !each(handle, parameter))
            return FALSE;
    }
    return TRUE;
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

// An owned window stands above its owner.
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
        return window->messageOnly ? ThisThread().messageOnly.handle : GetDesktopWindow();
    }
    HWND root = RootOf(*window).handle;
    while (which == GA_ROOTOWNER && GetParent(root))
        root = GetParent(root);
    return root;
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
    const std::vector<Window*>& siblings = SiblingsOf(*window);
    const std::ptrdiff_t index = IndexOf(siblings, window);
    switch (which)
    {
    case GW_HWNDFIRST:
        return HandleOf(At(siblings, 0));
    case GW_HWNDLAST:
        return HandleOf(At(siblings, std::ssize(siblings) - 1));
    case GW_HWNDNEXT:
        return HandleOf(At(siblings, index + 1));
    case GW_HWNDPREV:
        return HandleOf(At(siblings, index - 1));
    default:
        Missing(window, "GetWindow relation", which);
    }
}

BOOL IsChild(HWND parent, HWND handle)
{
    const Window* ancestor = FindWindowOf(parent);
    const Window* window = FindWindowOf(handle);
    return ancestor && window && ancestor != window && IsWithin(*ancestor, window);
}

HWND GetLastActivePopup(HWND handle)
{
    const Window* window = AnyWindow(handle);
    if (!window)
        return nullptr;
    return FindWindowOf(window->lastActivePopup) ? window->lastActivePopup : handle;
}

BOOL EnumChildWindows(HWND parent, WNDENUMPROC each, LPARAM parameter)
{
    const Window* window = AnyWindow(parent ? parent : GetDesktopWindow());
    if (!window)
        return FALSE;
    std::vector<HWND> handles;
    Collect(*window, &handles);
    return ForEach(handles, each, parameter);
}

BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC each, LPARAM parameter)
{
    if (thread != GetCurrentThreadId())
        Missing(nullptr, "windows of another thread", thread);
    std::vector<HWND> handles;
    for (const Window* window : TopLevelWindows())
        handles.push_back(window->handle);
    return ForEach(handles, each, parameter);
}
