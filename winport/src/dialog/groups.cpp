// The next control: by Tab in the dialog, by the arrow keys within a group.
#include "dialog.h"
#include "window/thread.h"

#include <algorithm>

namespace winport
{
namespace
{
bool IsReachable(const Window& control)
{
    return (control.style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

bool IsTabStop(const Window& control)
{
    return IsReachable(control) && (control.style & WS_TABSTOP);
}

// Returns the child of the dialog that is or contains `window`, null if there is none.
const Window* ChildAround(const Window& dialog, const Window* window)
{
    while (window && window->parent != &dialog)
        window = window->parent;
    return window;
}

// Searches from the control after `from`, wraps around, and checks `from` last.
const Window* NextOf(const std::vector<Window*>& controls, const Window* from, bool back,
                     bool (*fits)(const Window&))
{
    const std::ptrdiff_t count = std::ssize(controls);
    const std::ptrdiff_t step = back ? -1 : 1;
    std::ptrdiff_t at = std::find(controls.begin(), controls.end(), from) - controls.begin();
    if (at == count)
        at = back ? 0 : -1;
    for (std::ptrdiff_t tried = 0; tried < count; ++tried)
    {
        at = (at + step + count) % count;
        if (fits(*controls[static_cast<std::size_t>(at)]))
            return controls[static_cast<std::size_t>(at)];
    }
    return nullptr;
}
} // namespace

std::vector<Window*> GroupOf(const Window& member)
{
    const std::vector<Window*>& all = member.parent->children;
    const std::ptrdiff_t count = std::ssize(all);
    const std::ptrdiff_t own = std::find(all.begin(), all.end(), &member) - all.begin();
    const auto at = [&](std::ptrdiff_t index) {
        return all[static_cast<std::size_t>((index + count) % count)];
    };
    std::ptrdiff_t first = own;
    while (!(at(first)->style & WS_GROUP) && first > own - count + 1)
        --first;
    std::vector<Window*> group{at(first)};
    for (std::ptrdiff_t next = first + 1; next < first + count && !(at(next)->style & WS_GROUP); ++next)
        group.push_back(at(next));
    return group;
}
} // namespace winport

using namespace winport;

HWND GetNextDlgTabItem(HWND dialog, HWND from, BOOL previous)
{
    const Window* window = FindWindowOf(dialog);
    if (!window)
        return nullptr;
    const Window* start = ChildAround(*window, FindWindowOf(from));
    const Window* next = NextOf(window->children, start, previous, IsTabStop);
    return next ? next->handle : from;
}

HWND GetNextDlgGroupItem(HWND dialog, HWND from, BOOL previous)
{
    const Window* window = FindWindowOf(dialog);
    if (!window)
        return nullptr;
    const Window* start = ChildAround(*window, FindWindowOf(from));
    if (!start)
        start = window->children.empty() ? nullptr : window->children.front();
    const Window* next = start ? NextOf(GroupOf(*start), start, previous, IsReachable) : nullptr;
    return next ? next->handle : from;
}
