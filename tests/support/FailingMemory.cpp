#include "FailingMemory.h"

#include "winport_alloc.h"

#include <cstdlib>
#include <new>

namespace
{
bool g_armed = false;
bool g_failed = false;
int g_left = 0;

bool MayAllocate() noexcept
{
    if (!g_armed || g_left-- > 0)
        return true;
    g_left = 0;
    g_failed = true;
    return false;
}
} // namespace

FailingMemory::FailingMemory(int first)
{
    g_left = first;
    g_failed = false;
    g_armed = true;
    WinportSetAllocHook(MayAllocate);
}

FailingMemory::~FailingMemory()
{
    g_armed = false;
    WinportSetAllocHook(nullptr);
}

bool FailingMemory::Failed() const
{
    return g_failed;
}

void* operator new(std::size_t size)
{
    void* memory = MayAllocate() ? std::malloc(size ? size : 1) : nullptr;
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
