#include "allocation.h"

#include <atomic>
#include <cstdlib>

#include "winport_alloc.h"

namespace winport
{
namespace
{
std::atomic<WinportAllocHook> g_hook{nullptr};

bool Granted() noexcept
{
    const WinportAllocHook hook = g_hook.load(std::memory_order_relaxed);
    return !hook || hook();
}
} // namespace

void* Allocate(std::size_t size) noexcept
{
    return Granted() ? std::malloc(size ? size : 1) : nullptr;
}

void Free(void* memory) noexcept
{
    std::free(memory);
}
} // namespace winport

void WinportSetAllocHook(WinportAllocHook hook) noexcept
{
    winport::g_hook.store(hook, std::memory_order_relaxed);
}
