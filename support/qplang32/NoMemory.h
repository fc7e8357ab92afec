// The one reason for a failed call of the system that does not last.
#pragma once

#include <windows.h>

#include <new>

/// Throws std::bad_alloc if the call that just failed found no memory. Any other failure is an answer; this
/// one must not be taken for "there is no catalogue" until the module is unloaded.
inline void ThrowIfNoMemory()
{
    if (GetLastError() == ERROR_NOT_ENOUGH_MEMORY)
        throw std::bad_alloc();
}
