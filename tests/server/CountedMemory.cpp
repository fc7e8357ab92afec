#include "CountedMemory.h"

#include <cstdlib>
#include <new>

namespace
{
thread_local bool t_counting = false;
thread_local int t_count = 0;
thread_local int t_failFrom = 0;

void* Allocate(std::size_t size) noexcept
{
    if (t_counting && ++t_count >= t_failFrom && t_failFrom > 0)
        return nullptr;
    return std::malloc(size ? size : 1);
}
} // namespace

CountedMemory::CountedMemory(int failFrom) noexcept
{
    t_count = 0;
    t_failFrom = failFrom;
    t_counting = true;
}

CountedMemory::~CountedMemory()
{
    t_counting = false;
}

int CountedMemory::Count() noexcept
{
    return t_count;
}

void* operator new(std::size_t size)
{
    if (void* memory = Allocate(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Allocate(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    std::free(memory);
}
