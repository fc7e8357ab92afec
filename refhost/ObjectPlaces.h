// Where host objects are allocated.
#pragma once

#include <cstddef>

namespace refhost
{
/// The memory of data objects: wherever the heap has room, unless an ObjectsInOrder is about.
class ObjectPlaces
{
public:
    static void* Take(std::size_t size);
    static void Give(void* place) noexcept;
};

/// In its time each new data object of the process stands behind all others of that time, gone ones included.
/// Lists that follow the objects' addresses then come out the same in every run. There is room for some
/// ten thousand objects, which is never given back; those beyond stand anywhere. One at a time.
class ObjectsInOrder
{
public:
    ObjectsInOrder();
    ~ObjectsInOrder();
    ObjectsInOrder(const ObjectsInOrder&) = delete;
    ObjectsInOrder& operator=(const ObjectsInOrder&) = delete;
};
} // namespace refhost
