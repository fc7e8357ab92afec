// Every host call of the walks over the objects of a copy fails once, in each way a call can: what is lost is
// the part of the plan that the call leads to, and nothing is kept.
#include "PlanModel.h"
#include "SampleFolder.h"

#include "CopyCandidates.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
using qptools::CopyRoute;
using Lines = std::vector<std::string>;

class WalkFaults : public ::testing::TestWithParam<Way>
{
protected:
    WalkFaults() : plant(refhost::Plant::OpenMemory())
    {
        plant->Load(refhost::SampleFolder());
        plan = ReadPlan(*plant);
    }

    /// Walks with the n-th call failing. Returns the records, sorted.
    Lines Walk(CopyRoute route, long long n)
    {
        const ComPtr<IEnumBaseDataObject> tops = PlanTops(*plant);
        refhost::CallGate& gate = plant->Calls();
        qptools::CopyCandidates candidates;
        gate.Clear();
        gate.FailCall(n, n == 0 ? refhost::Fault::None : GetParam().fault, GetParam().status);
        qptools::CollectCandidates(tops.get(), route, candidates);
        EXPECT_EQ(gate.Struck(), n > 0);
        calls = gate.Count();
        gate.FailCall(0, refhost::Fault::None);
        Lines lines;
        for (const auto& [type, record] : candidates)
        {
            const std::wstring_view caption = record.caption.View();
            lines.emplace_back(caption.begin(), caption.end());
            lines.back() += ":";
            for (const auto& object : record.objects)
                lines.back() += " " + PlanName(object.get()) + ",";
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// What such a walk should find.
    Lines Expected(CopyRoute route, long long n) const
    {
        PlanWalk walk(n, GetParam());
        route == CopyRoute::Parents ? walk.Parents(plan) : walk.ParentsAndChildren(plan);
        Lines lines;
        for (const auto& [type, record] : walk.Records())
        {
            lines.push_back(record.caption + ":");
            for (const std::string& name : record.names)
                lines.back() += " " + name + ",";
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    /// Fails every call of a walk, which are so many.
    void Sweep(CopyRoute route, long long expectedCalls)
    {
        const long before = refhost::Plant::LiveObjects();
        EXPECT_EQ(Walk(route, 0), Expected(route, 0));
        ASSERT_EQ(calls, expectedCalls);
        const long long count = calls;
        for (long long n = 1; n <= count; ++n)
        {
            EXPECT_EQ(Walk(route, n), Expected(route, n)) << "call " << n;
            EXPECT_EQ(refhost::Plant::LiveObjects(), before) << "call " << n;
        }
        EXPECT_EQ(plant->Calls().Misuses(), Lines{});
    }

    const std::unique_ptr<refhost::Plant> plant;
    PlanObjects plan;
    long long calls = 0;
};

TEST_P(WalkFaults, ThePlanIsFoundWhole)
{
    EXPECT_EQ(Walk(CopyRoute::ParentsAndChildren, 0),
              (Lines{"Line: Door line,",
                     "Resource: Hinge robot, Hinge robot, Torque gauge, Sealing pump, Torque gauge,",
                     "Station: Hinge station left, Hinge station right, Sealing station, Gauge store,",
                     "Work cell: Hinge cell, Sealing cell,", "Work step: Load hinges, Apply seal,"}));
    EXPECT_EQ(Walk(CopyRoute::Parents, 0), (Lines{"Line: Door line,", "Station: Gauge store,"}));
}

TEST_P(WalkFaults, EveryCallOfADeepCopy)
{
    // 14 objects with 6 calls, of which 2 are relationships with one more; and each list of the 15 is asked
    // once more than it has objects.
    Sweep(CopyRoute::ParentsAndChildren, 14 * 6 + 2 + 14 + 15);
}

TEST_P(WalkFaults, EveryCallOfANormalCopy)
{
    Sweep(CopyRoute::Parents, 2 * 4 + 3);
}

INSTANTIATE_TEST_SUITE_P(Ways, WalkFaults, ::testing::ValuesIn(kWays), NameOfWay);
} // namespace
