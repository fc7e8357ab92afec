// Data objects whose addresses are in the order of their creation.
#include "ObjectPlaces.h"
#include "PlantFixture.h"

#include <cstdint>
#include <cstring>

namespace
{
std::uintptr_t Place(const void* object)
{
    return reinterpret_cast<std::uintptr_t>(object);
}

class ObjectPlacesTest : public EmptyPlant
{
protected:
    ObjectPlacesTest() { plant->Add(L"script", L"a"); }
    ComPtr<IQP_BaseDataObject> Another() { return plant->Find(L"script", L"a"); }
};

TEST_F(ObjectPlacesTest, each_new_object_is_behind_all_others_of_that_period)
{
    const refhost::ObjectsInOrder inOrder;
    std::uintptr_t last = 0;
    for (int i = 0; i < 100; ++i)
    {
        // Every second one is freed at once, and its place is not used again.
        const ComPtr<IQP_BaseDataObject> kept = Another();
        const std::uintptr_t gone = Place(Another().get());
        EXPECT_GT(Place(kept.get()), last);
        EXPECT_GT(gone, Place(kept.get()));
        last = gone;
    }
}

TEST_F(ObjectPlacesTest, objects_outlive_that_time)
{
    ComPtr<IQP_BaseDataObject> kept;
    {
        const refhost::ObjectsInOrder inOrder;
        kept = Another();
    }
    const ComPtr<IQP_BaseDataObject> later = Another();
    EXPECT_EQ(ReadText(kept.get(), L"name"), L"a");
    EXPECT_EQ(ReadText(later.get(), L"name"), L"a");
}

TEST_F(ObjectPlacesTest, a_new_period_has_all_its_room_and_spares_earlier_objects)
{
    ComPtr<IQP_BaseDataObject> first;
    {
        const refhost::ObjectsInOrder inOrder;
        first = Another();
    }
    const refhost::ObjectsInOrder inOrder;
    const ComPtr<IQP_BaseDataObject> second = Another();
    const ComPtr<IQP_BaseDataObject> third = Another();
    EXPECT_GT(Place(third.get()), Place(second.get()));
    EXPECT_EQ(ReadText(first.get(), L"name"), L"a");
    first.reset();
    EXPECT_EQ(ReadText(second.get(), L"name"), L"a");
}

TEST_F(ObjectPlacesTest, objects_without_room_are_on_the_heap)
{
    const refhost::ObjectsInOrder inOrder;
    const std::size_t half = std::size_t{600} << 10;
    void* const inRoom = refhost::ObjectPlaces::Take(half);
    void* const beyond = refhost::ObjectPlaces::Take(half);
    std::memset(inRoom, 1, half);
    std::memset(beyond, 2, half);
    EXPECT_EQ(static_cast<unsigned char*>(inRoom)[half - 1], 1);
    // There is room for smaller ones still.
    void* const small = refhost::ObjectPlaces::Take(1);
    EXPECT_GE(Place(small), Place(inRoom) + half);
    EXPECT_LT(Place(small), Place(inRoom) + (std::size_t{1} << 20));
    refhost::ObjectPlaces::Give(small);
    refhost::ObjectPlaces::Give(beyond);
    refhost::ObjectPlaces::Give(inRoom);
}
} // namespace
