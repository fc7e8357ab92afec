// Data objects that a caller never releases.
#include "KeptObjects.h"
#include "PlantFixture.h"

#include <optional>

namespace
{
using KeptObjectsTest = SamplePlant;

TEST_F(KeptObjectsTest, are_counted_and_released_at_the_end)
{
    const long before = refhost::Plant::LiveObjects();
    std::optional<refhost::KeptObjects> kept("vbaproject");
    const ComPtr<IQP_BaseDataObject> script = Find(L"script", L"Check names");
    ComPtr<IQP_BaseDataObject> released = Find(L"vbaproject", L"Paint macros");
    EXPECT_EQ(kept->Count(), 1U);
    for (int i = 0; i < 2; ++i)
        Find(L"vbaproject", L"Body shop macros").detach();
    EXPECT_EQ(kept->Count(), 3U);
    released.reset();
    EXPECT_EQ(kept->Count(), 2U);
    kept.reset();
    EXPECT_EQ(refhost::Plant::LiveObjects(), before + 1) << "the script alone";
}

TEST_F(KeptObjectsTest, one_that_others_hold_stays)
{
    ComPtr<IQP_BaseDataObject> held;
    {
        const refhost::KeptObjects kept("vbaproject");
        held = Find(L"vbaproject", L"Paint macros");
        held->AddRef();
    }
    EXPECT_EQ(ReadText(held.get(), L"name"), L"Paint macros");
}
} // namespace
