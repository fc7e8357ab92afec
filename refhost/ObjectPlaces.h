// Where host objects are allocated.
#pragma once

#include <cstddef>

namespace refhost
{
/// Allocates data objects: on the heap, unless an ObjectsInOrder exists.
class ObjectPlaces
{
public:
    static void* Take(std::size_t size);
    static void Give(void* place) noexcept;
};

/// While it exists, each new data object of the process is allocated at a higher address than all before it,
/// freed ones included. Lists in the order of addresses are then the same in every run. The memory, for some
/// ten thousand objects, is never freed; further objects come from the heap. One at a time.
class ObjectsInOrder
{
public:
    ObjectsInOrder();
    ~ObjectsInOrder();
    ObjectsInOrder(const ObjectsInOrder&) = delete;
    ObjectsInOrder& operator=(const ObjectsInOrder&) = delete;
};
} // namespace refhost
