// Hooks: creation, destruction, activation and focus of windows (WH_CBT).
#include "thread.h"

namespace winport
{
namespace
{
// The newest hook that is older than `than`; null if there is none.
const Hook* HookBefore(std::uintptr_t than)
{
    const Hook* found = nullptr;
    for (const Hook& hook : ThisThread().hooks)
    {
        if (hook.id < than)
            found = &hook;
    }
    return found;
}

LRESULT CallOlder(std::uintptr_t than, int code, WPARAM wParam, LPARAM lParam)
{
    const Hook* hook = HookBefore(than);
    if (!hook)
        return 0;
    const HOOKPROC procedure = hook->procedure;
    const std::uintptr_t outer = std::exchange(ThisThread().runningHook, hook->id);
    const LRESULT result = procedure(code, wParam, lParam);
    ThisThread().runningHook = outer;
    return result;
}
} // namespace

LRESULT CallHooks(int code, WPARAM wParam, LPARAM lParam)
{
    return CallOlder(UINTPTR_MAX, code, wParam, lParam);
}
} // namespace winport

using namespace winport;

HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE, DWORD thread)
{
    if (kind != WH_CBT)
        Missing(nullptr, "hook", static_cast<unsigned>(kind));
    if (thread != GetCurrentThreadId())
        Missing(nullptr, "hook of another thread", thread);
    ThreadState& state = ThisThread();
    state.hooks.push_back({++state.lastHook, procedure});
    return reinterpret_cast<HHOOK>(state.lastHook);
}

BOOL UnhookWindowsHookEx(HHOOK hook)
{
    const auto id = reinterpret_cast<std::uintptr_t>(hook);
    if (std::erase_if(ThisThread().hooks, [&](const Hook& each) { return each.id == id; }) > 0)
        return TRUE;
    SetLastError(ERROR_INVALID_HOOK_HANDLE);
    return FALSE;
}

LRESULT CallNextHookEx(HHOOK, int code, WPARAM wParam, LPARAM lParam)
{
    return CallOlder(ThisThread().runningHook, code, wParam, lParam);
}
