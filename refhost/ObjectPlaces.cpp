#include "ObjectPlaces.h"

#include <algorithm>
#include <functional>
#include <new>
#include <vector>

namespace refhost
{
namespace
{
constexpr std::size_t kRoom = 1 << 20;

/// Never freed: an object may outlive everything else.
std::vector<std::byte*>& Rooms()
{
    static auto& rooms = *new std::vector<std::byte*>;
    return rooms;
}

/// Where the next object is placed and the bytes left there; null while the heap is used.
std::byte* g_next = nullptr;
std::size_t g_left = 0;

std::size_t Aligned(std::size_t size)
{
    constexpr std::size_t kAlignment = alignof(std::max_align_t);
    return (size + kAlignment - 1) / kAlignment * kAlignment;
}

bool IsInRoom(const void* place)
{
    const std::less<> before;
    return std::any_of(Rooms().begin(), Rooms().end(),
                       [&](std::byte* room) { return !before(place, room) && before(place, room + kRoom); });
}
} // namespace

void* ObjectPlaces::Take(std::size_t size)
{
    const std::size_t taken = Aligned(size);
    if (!g_next || taken > g_left)
        return ::operator new(size);
    void* const place = g_next;
    g_next += taken;
    g_left -= taken;
    return place;
}

void ObjectPlaces::Give(void* place) noexcept
{
    if (!IsInRoom(place))
        ::operator delete(place);
}

ObjectsInOrder::ObjectsInOrder()
{
    Rooms().reserve(Rooms().size() + 1);
    Rooms().push_back(static_cast<std::byte*>(::operator new(kRoom)));
    g_next = Rooms().back();
    g_left = kRoom;
}

ObjectsInOrder::~ObjectsInOrder()
{
    g_next = nullptr;
}
} // namespace refhost
