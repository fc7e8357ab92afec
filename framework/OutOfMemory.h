// Tells out of memory, which may pass, from failures that last.
#pragma once

#include <windows.h>

#include <new>

/// Throws std::bad_alloc if the system call that just failed was out of memory. Any other failure is an
/// answer that may be cached. Out of memory may pass: cached as "not found", it would count until the module
/// is unloaded.
inline void ThrowIfOutOfMemory()
{
    if (GetLastError() == ERROR_NOT_ENOUGH_MEMORY)
        throw std::bad_alloc();
}
