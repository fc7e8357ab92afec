// The allocator behind strings, arrays and task memory.
#include "winport_alloc.h"

#include <atomic>
#include <cstdlib>

namespace
{
std::atomic<WinportAllocHook> g_hook{nullptr};

bool Granted() noexcept
{
    const WinportAllocHook hook = g_hook.load(std::memory_order_relaxed);
    return !hook || hook();
}
} // namespace

void* WinportAlloc(std::size_t size) noexcept
{
    return Granted() ? std::malloc(size ? size : 1) : nullptr;
}

void* WinportRealloc(void* memory, std::size_t size) noexcept
{
    return Granted() ? std::realloc(memory, size ? size : 1) : nullptr;
}

void WinportFree(void* memory) noexcept
{
    std::free(memory);
}

void WinportSetAllocHook(WinportAllocHook hook) noexcept
{
    g_hook.store(hook, std::memory_order_relaxed);
}
