// Objects that outlive everything.
#pragma once

#include <new>

namespace winport
{
/// The process's one T, made at the first use and never destroyed, so that code that runs at the end of the
/// process may still call what stands on it. It takes no memory of its own from the heap.
template <class T>
T& Immortal()
{
    alignas(T) static unsigned char storage[sizeof(T)];
    static T& object = *new (storage) T;
    return object;
}
} // namespace winport
