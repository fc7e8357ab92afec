// Sent and posted messages, timers.
#include "thread.h"

namespace winport
{
namespace
{
struct Filter
{
    HWND window = nullptr;
    UINT first = 0;
    UINT last = 0;

    bool Takes(UINT message) const { return (!first && !last) || (message >= first && message <= last); }

    bool Takes(HWND target) const
    {
        if (!window)
            return true;
        if (window == reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1)))
            return !target;
        return target && (target == window || IsChild(window, target));
    }
};

MSG MessageNow(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return {window, message, wParam, lParam, static_cast<DWORD>(ThisThread().now), {0, 0}};
}

bool TakePosted(const Filter& filter, bool remove, MSG* message)
{
    std::deque<MSG>& posted = ThisThread().posted;
    for (auto at = posted.begin(); at != posted.end(); ++at)
    {
        if (!filter.Takes(at->message) || !filter.Takes(at->hwnd))
            continue;
        *message = *at;
        if (remove)
            posted.erase(at);
        return true;
    }
    return false;
}

bool TakeQuit(bool remove, MSG* message)
{
    ThreadState& state = ThisThread();
    if (!state.quitting)
        return false;
    *message = MessageNow(nullptr, WM_QUIT, static_cast<WPARAM>(state.exitCode), 0);
    state.quitting = !remove;
    return true;
}

// The timer that the filter takes and that is due first; null if there is none.
Timer* FirstTimer(const Filter& filter)
{
    Timer* first = nullptr;
    if (!filter.Takes(static_cast<UINT>(WM_TIMER)))
        return nullptr;
    for (Timer& timer : ThisThread().timers)
    {
        if (filter.Takes(timer.window) && (!first || timer.due < first->due))
            first = &timer;
    }
    return first;
}

bool TakeTimer(const Filter& filter, bool remove, MSG* message)
{
    Timer* timer = FirstTimer(filter);
    ThreadState& state = ThisThread();
    if (!timer || timer->due > state.now)
        return false;
    *message = MessageNow(timer->window, WM_TIMER, timer->id, reinterpret_cast<LPARAM>(timer->procedure));
    if (remove)
        timer->due = state.now + timer->period;
    return true;
}

bool Take(const Filter& filter, UINT flags, MSG* message)
{
    const bool remove = flags & PM_REMOVE;
    const UINT kinds = flags >> 16;
    const bool postedOnes = !kinds || (kinds & QS_POSTMESSAGE);
    if (postedOnes && (TakePosted(filter, remove, message) || TakeQuit(remove, message)))
        return true;
    return (!kinds || (kinds & QS_TIMER)) && TakeTimer(filter, remove, message);
}

Timer* FindTimer(HWND window, UINT_PTR id)
{
    for (Timer& timer : ThisThread().timers)
    {
        if (timer.window == window && timer.id == id)
            return &timer;
    }
    return nullptr;
}

void RunTimer(const MSG& message)
{
    if (const Timer* timer = FindTimer(message.hwnd, message.wParam))
        timer->procedure(message.hwnd, WM_TIMER, message.wParam, message.time);
}
} // namespace
} // namespace winport

using namespace winport;

LRESULT SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    Window* window = OwnWindow(handle, "message to another thread");
    return window ? CallProcedure(*window, window->procedure, message, wParam, lParam) : 0;
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure(handle, message, wParam, lParam);
}

BOOL PostMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (handle && !OwnWindow(handle, "message to another thread"))
        return FALSE;
    ThisThread().posted.push_back(MessageNow(handle, message, wParam, lParam));
    return TRUE;
}

void PostQuitMessage(int exitCode)
{
    ThisThread().quitting = true;
    ThisThread().exitCode = exitCode;
}

BOOL PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove)
{
    if (window && window != reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1)) && !AnyWindow(window))
        return FALSE;
    if (Take({window, first, last}, remove, message))
        return TRUE;
    // Time passes with each empty peek, so that a peeking loop reaches the next timer.
    ++ThisThread().now;
    return FALSE;
}

BOOL GetMessageW(LPMSG message, HWND window, UINT first, UINT last)
{
    if (window && window != reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1)) && !AnyWindow(window))
        return -1;
    const Filter filter{window, first, last};
    if (!Take(filter, PM_REMOVE, message))
    {
        const Timer* timer = FirstTimer(filter);
        if (!timer)
            Stuck("GetMessage waits for a message that nobody can send. The windows are:");
        ThisThread().now = timer->due;
        Take(filter, PM_REMOVE, message);
    }
    return message->message != WM_QUIT;
}

LRESULT DispatchMessageW(const MSG* message)
{
    if (message->message == WM_TIMER && message->lParam)
    {
        RunTimer(*message);
        return 0;
    }
    return message->hwnd ? SendMessageW(message->hwnd, message->message, message->wParam, message->lParam)
                         : 0;
}

UINT_PTR SetTimer(HWND handle, UINT_PTR id, UINT milliseconds, TIMERPROC procedure)
{
    constexpr UINT kLeast = 10;
    if (handle && !OwnWindow(handle, "timer of a window of another thread"))
        return 0;
    ThreadState& state = ThisThread();
    Timer* timer = FindTimer(handle, id);
    if (!timer)
    {
        timer = &state.timers.emplace_back();
        timer->window = handle;
        timer->id = handle ? id : ++state.lastTimer;
    }
    timer->period = milliseconds < kLeast ? kLeast : milliseconds;
    timer->procedure = procedure;
    timer->due = state.now + timer->period;
    return handle && !id ? 1 : timer->id;
}

BOOL KillTimer(HWND window, UINT_PTR id)
{
    if (std::erase_if(ThisThread().timers,
                      [&](const Timer& timer) { return timer.window == window && timer.id == id; }) > 0)
        return TRUE;
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}
