// The table of all windows, and the state of the threads that own them.
#include "thread.h"

#include "base/immortal.h"

#include <algorithm>
#include <mutex>
#include <unordered_map>

namespace winport
{
namespace
{
constexpr std::uintptr_t kDesktop = 0x10010;
constexpr std::uintptr_t kMessageRoot = 0x10012;
constexpr std::uintptr_t kFirstWindow = 0x10020;
constexpr std::uintptr_t kStep = 2;

struct Table
{
    std::mutex mutex;
    std::unordered_map<HWND, std::unique_ptr<Window>> windows;
    std::uintptr_t next = kFirstWindow;
};

Table& TheTable()
{
    return Immortal<Table>();
}

HWND HandleOf(std::uintptr_t number)
{
    return reinterpret_cast<HWND>(number);
}

std::unique_ptr<Window> TakeOut(HWND handle)
{
    Table& table = TheTable();
    const std::lock_guard lock(table.mutex);
    const auto found = table.windows.find(handle);
    std::unique_ptr<Window> window = std::move(found->second);
    table.windows.erase(found);
    return window;
}

std::vector<std::unique_ptr<Window>> TakeAllOf(DWORD thread)
{
    std::vector<std::unique_ptr<Window>> taken;
    Table& table = TheTable();
    const std::lock_guard lock(table.mutex);
    for (auto at = table.windows.begin(); at != table.windows.end();)
    {
        if (at->second->thread != thread)
        {
            ++at;
            continue;
        }
        taken.push_back(std::move(at->second));
        at = table.windows.erase(at);
    }
    return taken;
}

void MakeRoot(Window* window, std::uintptr_t handle, const wchar_t* className)
{
    window->handle = HandleOf(handle);
    window->windowClass = FindWindowClass(className, nullptr);
    window->style = WS_POPUP | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    window->rect = {0, 0, kScreenWidth, kScreenHeight};
    window->thread = GetCurrentThreadId();
}

struct StateOwner
{
    ThreadState* state = nullptr;
    ~StateOwner() { delete std::exchange(state, nullptr); }
};

thread_local StateOwner t_owner;
} // namespace

ThreadState::ThreadState() : now(GetTickCount64())
{
    MakeRoot(&desktop, kDesktop, L"#32769");
    MakeRoot(&messageOnly, kMessageRoot, L"Message");
    messageOnly.rect = {0, 0, 100, 100};
}

ThreadState::~ThreadState()
{
    TakeAllOf(desktop.thread);
}

ThreadState& ThisThread()
{
    if (!t_owner.state)
        t_owner.state = new ThreadState;
    return *t_owner.state;
}

Window& AddWindow()
{
    auto window = std::make_unique<Window>();
    window->thread = GetCurrentThreadId();
    Table& table = TheTable();
    const std::lock_guard lock(table.mutex);
    window->handle = HandleOf(table.next);
    table.next += kStep;
    return *(table.windows[window->handle] = std::move(window));
}

void RemoveWindow(Window& window)
{
    ThreadState& state = ThisThread();
    const HWND handle = window.handle;
    std::erase(SiblingsOf(window), &window);
    std::erase_if(state.posted, [&](const MSG& message) { return message.hwnd == handle; });
    std::erase_if(state.timers, [&](const Timer& timer) { return timer.window == handle; });
    for (HWND* role : {&state.active, &state.focus, &state.capture})
    {
        if (*role == handle)
            *role = nullptr;
    }
    window.gone = true;
    std::unique_ptr<Window> taken = TakeOut(handle);
    if (taken->calls > 0)
        state.dying.push_back(std::move(taken));
}

LRESULT CallProcedure(Window& window, WNDPROC procedure, UINT message, WPARAM wParam, LPARAM lParam)
{
    struct Call
    {
        Window& window;
        explicit Call(Window& called) : window(called) { ++window.calls; }
        ~Call()
        {
            if (--window.calls == 0 && window.gone)
                std::erase_if(ThisThread().dying, [&](const auto& dead) { return dead.get() == &window; });
        }
    };
    const Call call(window);
    return procedure(window.handle, message, wParam, lParam);
}

Window* FindWindowOf(HWND handle)
{
    if (!handle)
        return nullptr;
    if (handle == HandleOf(kDesktop))
        return &ThisThread().desktop;
    if (handle == HandleOf(kMessageRoot) || handle == HWND_MESSAGE)
        return &ThisThread().messageOnly;
    Table& table = TheTable();
    const std::lock_guard lock(table.mutex);
    const auto found = table.windows.find(handle);
    return found == table.windows.end() ? nullptr : found->second.get();
}

Window* AnyWindow(HWND handle)
{
    Window* window = FindWindowOf(handle);
    if (!window)
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

Window* OwnWindow(HWND handle, const char* what)
{
    Window* window = AnyWindow(handle);
    if (window && window->thread != GetCurrentThreadId())
        Missing(window, what, window->thread);
    return window;
}

bool Alive(HWND handle)
{
    const Window* window = FindWindowOf(handle);
    return window && !window->destroying;
}

const std::vector<Window*>& TopLevelWindows()
{
    return ThisThread().desktop.children;
}
} // namespace winport

using namespace winport;

BOOL IsWindow(HWND window)
{
    return FindWindowOf(window) != nullptr;
}
