// The walks over 100,000 objects, wide and deep: the number of calls, the order, and that nothing is kept.
#include "TreeHost.h"

#include "CopyCandidates.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
using qptools::CollectCandidates;
using qptools::CopyCandidates;
using qptools::CopyRoute;

constexpr std::size_t kObjects = 100'000;
constexpr long long kCount = kObjects;

/// By the depth of the trees.
class WalkLarge : public ::testing::TestWithParam<std::size_t>
{
};

std::size_t Total(const CopyCandidates& candidates)
{
    std::size_t total = 0;
    for (const auto& [type, record] : candidates)
        total += record.objects.size();
    return total;
}

/// The calls of a walk over all objects in lines of that depth.
TreeCalls DeepCalls(std::size_t depth)
{
    TreeCalls calls;
    calls.getAttribute = calls.getTypeName = calls.getType = calls.getCaption = kCount;
    calls.isDerivedFromClass = calls.getChildren = kCount;
    // A call for each object, and one at the end of each list: those of the objects, and the first.
    calls.remNext = kCount + kCount + 1;
    EXPECT_EQ(kObjects % depth, 0u);
    return calls;
}

TEST_P(WalkLarge, CallsTheHostSixTimesForEachObject)
{
    TreeHost host({.objects = kObjects, .depth = GetParam(), .types = 3});
    CopyCandidates candidates;
    CollectCandidates(host.Tops().get(), CopyRoute::ParentsAndChildren, candidates);
    EXPECT_EQ(host.calls, DeepCalls(GetParam()));
    ASSERT_EQ(candidates.size(), 3u);
    for (std::size_t number = 0; number < 3; ++number)
    {
        const auto found = candidates.find(host.Type(number));
        ASSERT_NE(found, candidates.end());
        const auto& objects = found->second.objects;
        EXPECT_EQ(found->second.caption.View(), L"Type " + std::to_wstring(number + 1));
        ASSERT_EQ(objects.size(), (kObjects + 2 - number) / 3);
        for (std::size_t index = 0; index < objects.size(); ++index)
            ASSERT_EQ(objects[index].get(), host.At(3 * index + number)) << "each line from its top";
    }
    candidates.clear();
    EXPECT_EQ(host.References(), 0);
}

TEST_P(WalkLarge, AndFourTimesForEachOfANormalCopy)
{
    TreeHost host({.objects = kObjects, .depth = GetParam()});
    CopyCandidates candidates;
    CollectCandidates(host.Tops().get(), CopyRoute::Parents, candidates);
    const long long tops = static_cast<long long>(kObjects / GetParam());
    TreeCalls expected{.getAttribute = tops, .getTypeName = tops, .getType = tops, .getCaption = tops};
    expected.getSingleNext = tops + 1;
    EXPECT_EQ(host.calls, expected);
    EXPECT_EQ(Total(candidates), kObjects / GetParam());
    candidates.clear();
    EXPECT_EQ(host.References(), 0);
}

TEST_P(WalkLarge, FollowsEachRelationship)
{
    TreeHost host({.objects = kObjects, .depth = GetParam(), .relationshipEvery = 10});
    CopyCandidates candidates;
    CollectCandidates(host.Tops().get(), CopyRoute::ParentsAndChildren, candidates);
    TreeCalls expected = DeepCalls(GetParam());
    expected.getAttribute += kCount / 10; // the targets
    EXPECT_EQ(host.calls, expected);
    const auto& objects = candidates.begin()->second.objects;
    ASSERT_EQ(objects.size(), kObjects);
    for (std::size_t index = 0; index < kObjects; ++index)
        ASSERT_EQ(objects[index].get(), host.At(index % 10 == 9 ? index - 1 : index));
    candidates.clear();
    EXPECT_EQ(host.References(), 0);
}

INSTANTIATE_TEST_SUITE_P(Deep, WalkLarge,
                         ::testing::Values(std::size_t{1}, std::size_t{10}, std::size_t{10'000}, kObjects));

TEST(WalkLargeCycle, EndsWhereItComesBackToItsTop)
{
    TreeHost host({.objects = kObjects, .depth = kObjects});
    host.Link(kObjects - 1, 0);
    CopyCandidates candidates;
    CollectCandidates(host.Tops().get(), CopyRoute::ParentsAndChildren, candidates);
    EXPECT_EQ(Total(candidates), kObjects + 1) << "the top is found again";
    EXPECT_EQ(host.calls.getChildren, kCount) << "and not entered again";
    candidates.clear();
    EXPECT_EQ(host.References(), 0);
}

TEST(WalkLargeCycle, EndsFromEveryDepth)
{
    constexpr std::size_t depth = 300;
    for (std::size_t back = 0; back < depth; ++back)
    {
        TreeHost host({.objects = depth, .depth = depth});
        host.Link(depth - 1, back);
        CopyCandidates candidates;
        CollectCandidates(host.Tops().get(), CopyRoute::ParentsAndChildren, candidates);
        ASSERT_EQ(Total(candidates), depth + 1) << back;
        ASSERT_EQ(host.calls.getChildren, static_cast<long long>(depth)) << back;
    }
}

TEST(WalkLargeCycle, EndsOnEachLineThatLeadsIntoAnother)
{
    TreeHost host({.objects = 1000, .depth = 100});
    for (std::size_t line = 0; line < 10; ++line)
        host.Link(line * 100 + 99, (line * 100 + 100) % 1000);
    CopyCandidates candidates;
    CollectCandidates(host.Tops().get(), CopyRoute::ParentsAndChildren, candidates);
    EXPECT_EQ(Total(candidates), 10u * 1001u) << "from each top once round";
    candidates.clear();
    EXPECT_EQ(host.References(), 0);
}
} // namespace
