// Objects that are never destroyed.
#pragma once

#include <new>

namespace winport
{
/// Returns the one T of the process, created at the first call and never destroyed, so that code that runs
/// while the process exits can still use it. It is not allocated on the heap.
template <class T>
T& Immortal()
{
    alignas(T) static unsigned char storage[sizeof(T)];
    static T& object = *new (storage) T;
    return object;
}
} // namespace winport
