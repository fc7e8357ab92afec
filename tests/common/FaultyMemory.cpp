#include "FaultyMemory.h"

#include <atomic>
#include <cstdlib>
#include <new>

#ifndef _WIN32
#include <winport_alloc.h>
#endif

namespace
{
struct Plan
{
    long failing = 0;
    bool andAllAfter = false;
    bool (*exempt)() noexcept = nullptr;
    long count = 0;
    bool struck = false;
};

thread_local Plan* t_plan = nullptr;
constinit std::atomic<long> g_blocks{0};

void* Allocate(std::size_t size) noexcept
{
    void* block = std::malloc(size ? size : 1);
    g_blocks += block ? 1 : 0;
    return block;
}

void Free(void* block) noexcept
{
    g_blocks -= block ? 1 : 0;
    std::free(block);
}

bool Granted() noexcept
{
    Plan* plan = t_plan;
    if (!plan || (plan->exempt && plan->exempt()))
        return true;
    const long number = ++plan->count;
    if (plan->failing == 0 || (plan->andAllAfter ? number < plan->failing : number != plan->failing))
        return true;
    plan->struck = true;
    return false;
}

#ifdef _WIN32
void Hook(bool (*)() noexcept) {}
#else
void Hook(bool (*granted)() noexcept)
{
    WinportSetAllocHook(granted);
}
#endif
} // namespace

FaultyMemory::FaultyMemory(long n, Failing failing, bool (*exempt)() noexcept) noexcept
{
    static thread_local Plan plan;
    plan = Plan{n, failing == Failing::FromThere, exempt, 0, false};
    t_plan = &plan;
    Hook(&Granted);
}

FaultyMemory::~FaultyMemory()
{
    Hook(nullptr);
    t_plan = nullptr;
}

bool FaultyMemory::Struck() const noexcept
{
    return t_plan->struck;
}

long FaultyMemory::Count() const noexcept
{
    return t_plan->count;
}

long FaultyMemory::Blocks() noexcept
{
    return g_blocks;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Granted() ? Allocate(size) : nullptr;
}

void* operator new(std::size_t size)
{
    void* block = operator new(size, std::nothrow);
    if (!block)
        throw std::bad_alloc();
    return block;
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return operator new(size, std::nothrow);
}

void operator delete(void* block) noexcept
{
    Free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    Free(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept
{
    Free(block);
}

void operator delete[](void* block) noexcept
{
    Free(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    Free(block);
}

void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    Free(block);
}
