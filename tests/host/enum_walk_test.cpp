// Walks over the host's enumerators: which objects are seen, what ends a walk, and that every reference
// fetched is given back.
#include <gtest/gtest.h>

#include "ScriptedEnum.h"
#include "TaskMemory.h"
#include "qpobjects.h"

#include <stdexcept>

using namespace qptools;

namespace
{

using Object = CCountedElement<IQPFObject>;
using Enum = CScriptedEnum<IEnumQPFObject>;

constexpr HRESULT kPositiveStatus = 2;

class Walks : public testing::Test
{
protected:
    void TearDown() override
    {
        for (const Object& object : m_objects)
            EXPECT_EQ(1u, object.m_references) << "object " << &object - m_objects;
    }

    IQPFObject* At(int index) { return &m_objects[index]; }

    std::vector<IQPFObject*> Range(int first, int count)
    {
        std::vector<IQPFObject*> objects;
        for (int i = 0; i < count; ++i)
            objects.push_back(At(first + i));
        return objects;
    }

    std::vector<IQPFObject*> SeenByRemNext(Enum& objects, WalkEnd end)
    {
        std::vector<IQPFObject*> seen;
        RemNextWalk walk(static_cast<IEnumQPFObject*>(&objects), end);
        while (walk.Next())
            seen.push_back(walk.Object());
        EXPECT_EQ(nullptr, walk.Object());
        m_lastStatus = walk.Status();
        ExpectOneAtATime(objects);
        return seen;
    }

    std::vector<IQPFObject*> SeenBySingleNext(Enum& objects, WalkEnd end)
    {
        std::vector<IQPFObject*> seen;
        SingleNextWalk walk(static_cast<IEnumQPFObject*>(&objects), end);
        while (walk.Next())
            seen.push_back(walk.Object());
        EXPECT_EQ(nullptr, walk.Object());
        m_lastStatus = walk.Status();
        EXPECT_TRUE(objects.m_counts.empty());
        EXPECT_EQ(0, objects.m_unexpectedCalls);
        EXPECT_TRUE(objects.m_bufferWasZeroed);
        EXPECT_EQ(1u, objects.m_references);
        return seen;
    }

    std::vector<IQPFObject*> SeenInBatches(Enum& objects)
    {
        std::vector<IQPFObject*> seen;
        const auto visit = [&seen](IQPFObject* object)
        {
            seen.push_back(object);
            return BatchStep::NextObject;
        };
        m_lastStatus = WalkBatches(static_cast<IEnumQPFObject*>(&objects), visit, [this] { ++m_nulls; });
        ExpectBatches(objects);
        return seen;
    }

    static void ExpectOneAtATime(const Enum& objects)
    {
        for (const ULONG count : objects.m_counts)
            EXPECT_EQ(1u, count);
        EXPECT_EQ(0, objects.m_singleCalls);
        EXPECT_EQ(0, objects.m_unexpectedCalls);
        EXPECT_TRUE(objects.m_bufferWasZeroed);
        EXPECT_EQ(1u, objects.m_references);
    }

    static void ExpectBatches(const Enum& objects)
    {
        for (const ULONG count : objects.m_counts)
            EXPECT_EQ(25u, count);
        EXPECT_EQ(0, objects.m_singleCalls);
        EXPECT_EQ(0, objects.m_unexpectedCalls);
        EXPECT_TRUE(objects.m_bufferWasZeroed);
        EXPECT_EQ(1u, objects.m_references);
    }

    Object m_objects[60];
    HRESULT m_lastStatus = S_OK;
    int m_nulls = 0;
};

using Seen = std::vector<IQPFObject*>;

} // namespace

TEST_F(Walks, RemNextGoesOnUntilAStatusOtherThanOk)
{
    for (const WalkEnd end : {WalkEnd::AtNull, WalkEnd::AtNothingFetched, WalkEnd::AtStatusOnly})
    {
        for (const HRESULT last : {S_FALSE, E_FAIL, kPositiveStatus})
        {
            Enum objects({{S_OK, {At(0)}}, {S_OK, {At(1)}}, {last, {}}});
            EXPECT_EQ((Seen{At(0), At(1)}), SeenByRemNext(objects, end));
            EXPECT_EQ(3u, objects.Calls());
            EXPECT_EQ(last, m_lastStatus);
        }
    }
}

TEST_F(Walks, RemNextNeverSeesAnObjectThatCameWithAnotherStatusButReleasesIt)
{
    for (const WalkEnd end : {WalkEnd::AtNull, WalkEnd::AtNothingFetched, WalkEnd::AtStatusOnly})
    {
        Enum objects({{S_OK, {At(0)}}, {S_FALSE, {At(1)}}});
        EXPECT_EQ((Seen{At(0)}), SeenByRemNext(objects, end));
        EXPECT_EQ(2u, objects.Calls());
    }
}

TEST_F(Walks, RemNextEndsAtANullObject)
{
    Enum objects({{S_OK, {At(0)}}, {S_OK, {nullptr}}, {S_OK, {At(1)}}, {S_FALSE, {}}});
    EXPECT_EQ((Seen{At(0)}), SeenByRemNext(objects, WalkEnd::AtNull));
    EXPECT_EQ(2u, objects.Calls());
    EXPECT_EQ(S_OK, m_lastStatus);
}

TEST_F(Walks, RemNextThatEndsAtNullDoesNotLookAtTheCount)
{
    Enum objects({{S_OK, {At(0)}, 0}, {S_OK, {nullptr}, 1}});
    EXPECT_EQ((Seen{At(0)}), SeenByRemNext(objects, WalkEnd::AtNull));
    EXPECT_EQ(2u, objects.Calls());
}

TEST_F(Walks, RemNextEndsWhenNothingWasFetched)
{
    Enum objects({{S_OK, {At(0)}}, {S_OK, {At(1)}, 0}, {S_FALSE, {}}});
    EXPECT_EQ((Seen{At(0)}), SeenByRemNext(objects, WalkEnd::AtNothingFetched));
    EXPECT_EQ(2u, objects.Calls());
}

TEST_F(Walks, RemNextThatEndsAtZeroFetchedPassesOverACountedNull)
{
    Enum objects({{S_OK, {nullptr}, 1}, {S_OK, {At(0)}}, {S_OK, {nullptr}, 0}});
    EXPECT_EQ((Seen{At(0)}), SeenByRemNext(objects, WalkEnd::AtNothingFetched));
    EXPECT_EQ(3u, objects.Calls());
}

TEST_F(Walks, RemNextPassesOverNullsUntilAStatusEndsIt)
{
    Enum objects(
        {{S_OK, {nullptr}, 0}, {S_OK, {At(0)}, 0}, {S_OK, {nullptr}}, {S_OK, {At(1)}}, {S_FALSE, {}}});
    EXPECT_EQ((Seen{At(0), At(1)}), SeenByRemNext(objects, WalkEnd::AtStatusOnly));
    EXPECT_EQ(5u, objects.Calls());
}

TEST_F(Walks, RemNextGivesUpAfterAThousandNullsInARow)
{
    Enum objects({{S_OK, {At(0)}}, {S_OK, {nullptr}}});
    EXPECT_EQ((Seen{At(0)}), SeenByRemNext(objects, WalkEnd::AtStatusOnly));
    EXPECT_EQ(1001u, objects.Calls());
    EXPECT_EQ(S_OK, m_lastStatus);
}

TEST_F(Walks, RemNextCountsNullsAnewAfterEveryObject)
{
    Enum::Script script(999, {S_OK, {nullptr}});
    script.push_back({S_OK, {At(0)}});
    script.insert(script.end(), 999, {S_OK, {nullptr}});
    script.push_back({S_OK, {At(1)}});
    script.push_back({S_FALSE, {}});
    Enum objects(script);
    EXPECT_EQ((Seen{At(0), At(1)}), SeenByRemNext(objects, WalkEnd::AtStatusOnly));
}

TEST_F(Walks, RemNextReleasesTheObjectBeforeItFetchesTheNext)
{
    Enum objects({{S_OK, {At(0)}}, {S_OK, {At(1)}}, {S_FALSE, {}}});
    RemNextWalk walk(static_cast<IEnumQPFObject*>(&objects), WalkEnd::AtNull);
    EXPECT_EQ(nullptr, walk.Object());
    EXPECT_EQ(S_OK, walk.Status());
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(2u, m_objects[0].m_references);
    ASSERT_TRUE(walk.Next());
    EXPECT_EQ(1u, m_objects[0].m_references);
    EXPECT_EQ(2u, m_objects[1].m_references);
}

TEST_F(Walks, AWalkThatIsLeftEarlyReleasesItsObject)
{
    Enum objects({{S_OK, {At(0)}}});
    {
        RemNextWalk walk(static_cast<IEnumQPFObject*>(&objects), WalkEnd::AtNull);
        ASSERT_TRUE(walk.Next());
        SingleNextWalk single(static_cast<IEnumQPFObject*>(&objects), WalkEnd::AtNull);
        ASSERT_TRUE(single.Next());
        EXPECT_EQ(3u, m_objects[0].m_references);
    }
    EXPECT_EQ(1u, m_objects[0].m_references);
}

TEST_F(Walks, SingleNextGoesOnUntilAStatusOtherThanOk)
{
    for (const WalkEnd end : {WalkEnd::AtNull, WalkEnd::AtNothingFetched, WalkEnd::AtStatusOnly})
    {
        for (const HRESULT last : {S_FALSE, E_FAIL, kPositiveStatus})
        {
            Enum objects({{S_OK, {At(0)}}, {S_OK, {At(1)}}, {last, {At(2)}}});
            EXPECT_EQ((Seen{At(0), At(1)}), SeenBySingleNext(objects, end));
            EXPECT_EQ(3, objects.m_singleCalls);
            EXPECT_EQ(last, m_lastStatus);
        }
    }
}

TEST_F(Walks, SingleNextEndsAtANullObject)
{
    for (const WalkEnd end : {WalkEnd::AtNull, WalkEnd::AtNothingFetched})
    {
        Enum objects({{S_OK, {At(0)}}, {S_OK, {nullptr}}, {S_OK, {At(1)}}});
        EXPECT_EQ((Seen{At(0)}), SeenBySingleNext(objects, end));
        EXPECT_EQ(2, objects.m_singleCalls);
    }
}

TEST_F(Walks, SingleNextPassesOverNullsUntilAStatusEndsIt)
{
    Enum objects({{S_OK, {nullptr}}, {S_OK, {At(0)}}, {S_OK, {}}, {S_OK, {At(1)}}, {S_FALSE, {}}});
    EXPECT_EQ((Seen{At(0), At(1)}), SeenBySingleNext(objects, WalkEnd::AtStatusOnly));
    EXPECT_EQ(5, objects.m_singleCalls);
}

TEST_F(Walks, SingleNextGivesUpAfterAThousandNullsInARow)
{
    Enum objects({{S_OK, {At(0)}}, {S_OK, {nullptr}}});
    EXPECT_EQ((Seen{At(0)}), SeenBySingleNext(objects, WalkEnd::AtStatusOnly));
    EXPECT_EQ(1001, objects.m_singleCalls);
}

TEST_F(Walks, BatchesGoOnWhileTheyAreFull)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_OK, Range(25, 25)}, {S_FALSE, {}}});
    EXPECT_EQ(Range(0, 50), SeenInBatches(objects));
    EXPECT_EQ(3u, objects.Calls());
    EXPECT_EQ(S_FALSE, m_lastStatus);
    EXPECT_EQ(0, m_nulls);
}

TEST_F(Walks, TheLastBatchIsSeenThoughItCameWithFalse)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_FALSE, Range(25, 3)}});
    EXPECT_EQ(Range(0, 28), SeenInBatches(objects));
    EXPECT_EQ(2u, objects.Calls());
}

TEST_F(Walks, AFailedBatchIsNotSeenButItsObjectsAreReleased)
{
    Enum objects({{S_OK, Range(0, 25)}, {E_FAIL, Range(25, 4)}});
    EXPECT_EQ(Range(0, 25), SeenInBatches(objects));
    EXPECT_EQ(2u, objects.Calls());
    EXPECT_EQ(E_FAIL, m_lastStatus);
}

TEST_F(Walks, APartlyFilledBatchWithOkIsNotTheLast)
{
    Enum objects({{S_OK, Range(0, 7)}, {S_OK, Range(7, 2)}, {S_FALSE, {}}});
    EXPECT_EQ(Range(0, 9), SeenInBatches(objects));
    EXPECT_EQ(3u, objects.Calls());
}

TEST_F(Walks, BatchesGoOnAfterAnotherPositiveStatus)
{
    Enum objects({{kPositiveStatus, Range(0, 5)}, {S_FALSE, Range(5, 1)}});
    EXPECT_EQ(Range(0, 6), SeenInBatches(objects));
    EXPECT_EQ(2u, objects.Calls());
}

TEST_F(Walks, BatchesEndWhenACallThatDidNotFailFetchedNothing)
{
    for (const HRESULT status : {S_OK, kPositiveStatus})
    {
        Enum objects({{S_OK, Range(0, 25)}, {status, {}}});
        EXPECT_EQ(Range(0, 25), SeenInBatches(objects));
        EXPECT_EQ(2u, objects.Calls());
        EXPECT_EQ(status, m_lastStatus);
    }
}

TEST_F(Walks, ANullObjectDropsTheRestOfItsBatchOnly)
{
    Enum objects({{S_OK, {At(0), nullptr, At(1)}}, {S_FALSE, {At(2)}}});
    EXPECT_EQ((Seen{At(0), At(2)}), SeenInBatches(objects));
    EXPECT_EQ(1, m_nulls);
}

TEST_F(Walks, OnlyAsManyObjectsAreSeenAsWereCounted)
{
    Enum objects({{S_FALSE, {At(0), At(1), nullptr}, 2}});
    EXPECT_EQ((Seen{At(0), At(1)}), SeenInBatches(objects));
    EXPECT_EQ(0, m_nulls);
}

TEST_F(Walks, ACountBeyondTheBatchIsCutToTheBatch)
{
    Enum objects({{S_FALSE, Range(0, 25), 4000000000u}});
    EXPECT_EQ(Range(0, 25), SeenInBatches(objects));
}

TEST_F(Walks, AVisitorMayDropABatchOrStop)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_OK, Range(25, 25)}, {S_FALSE, Range(50, 5)}});
    Seen seen;
    const auto visit = [&](IQPFObject* object)
    {
        seen.push_back(object);
        if (object == At(1))
            return BatchStep::NextBatch;
        return object == At(26) ? BatchStep::Stop : BatchStep::NextObject;
    };
    EXPECT_EQ(S_OK, WalkBatches(static_cast<IEnumQPFObject*>(&objects), visit));
    EXPECT_EQ((Seen{At(0), At(1), At(25), At(26)}), seen);
    EXPECT_EQ(2u, objects.Calls());
}

TEST_F(Walks, DroppingTheLastBatchEndsTheWalk)
{
    Enum objects({{S_FALSE, Range(0, 3)}});
    int visits = 0;
    const auto visit = [&visits](IQPFObject*)
    {
        ++visits;
        return BatchStep::NextBatch;
    };
    EXPECT_EQ(S_FALSE, WalkBatches(static_cast<IEnumQPFObject*>(&objects), visit));
    EXPECT_EQ(1, visits);
    EXPECT_EQ(1u, objects.Calls());
}

TEST_F(Walks, AnExceptionOutOfAVisitorReleasesTheWholeBatch)
{
    Enum objects({{S_OK, Range(0, 25)}});
    const auto visit = [](IQPFObject*) -> BatchStep
    {
        throw std::runtime_error("visitor");
    };
    EXPECT_THROW(WalkBatches(static_cast<IEnumQPFObject*>(&objects), visit), std::runtime_error);
}

TEST_F(Walks, AnObjectThatAVisitorKeepsOutlivesItsBatch)
{
    Enum objects({{S_FALSE, Range(0, 2)}});
    ComPtr<IQPFObject> kept;
    const auto visit = [&kept](IQPFObject* object)
    {
        kept = ComPtr<IQPFObject>(object);
        return BatchStep::Stop;
    };
    WalkBatches(static_cast<IEnumQPFObject*>(&objects), visit);
    EXPECT_EQ(At(0), kept.get());
    EXPECT_EQ(2u, m_objects[0].m_references);
    EXPECT_EQ(1u, m_objects[1].m_references);
}

TEST_F(Walks, EachBatchIsOneBlockOfTaskMemoryThatIsGivenBack)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_OK, Range(25, 25)}, {S_FALSE, Range(50, 5)}});
    const CTaskMemory memory;
    EXPECT_EQ(Range(0, 55), SeenInBatches(objects));
    memory.ExpectBlocks(3, 25 * sizeof(void*));
}

TEST_F(Walks, AWalkThatEndsEarlyGivesItsBlockBackToo)
{
    const CTaskMemory memory;
    Enum failing({{E_FAIL, Range(0, 3)}});
    EXPECT_EQ(Seen{}, SeenInBatches(failing));
    Enum stopped({{S_OK, Range(0, 25)}});
    const auto stop = [](IQPFObject*)
    {
        return BatchStep::Stop;
    };
    EXPECT_EQ(S_OK, WalkBatches(static_cast<IEnumQPFObject*>(&stopped), stop));
    const auto fail = [](IQPFObject*) -> BatchStep
    {
        throw std::runtime_error("visitor");
    };
    EXPECT_THROW(WalkBatches(static_cast<IEnumQPFObject*>(&stopped), fail), std::runtime_error);
    memory.ExpectBlocks(3, 25 * sizeof(void*));
}

TEST_F(Walks, WithoutMemoryForTheFirstBatchNothingIsFetched)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_FALSE, {At(25)}}});
    const CTaskMemory memory(1);
    EXPECT_EQ(Seen{}, SeenInBatches(objects));
    EXPECT_EQ(E_OUTOFMEMORY, m_lastStatus);
    EXPECT_EQ(0u, objects.Calls());
    EXPECT_EQ(0, m_nulls);
}

TEST_F(Walks, WithoutMemoryForALaterBatchTheWalkEndsThere)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_OK, Range(25, 25)}, {S_FALSE, {At(50)}}});
    const CTaskMemory memory(3);
    EXPECT_EQ(Range(0, 50), SeenInBatches(objects));
    EXPECT_EQ(E_OUTOFMEMORY, m_lastStatus);
    EXPECT_EQ(2u, objects.Calls());
}

TEST_F(Walks, WhatTheHostDidNotCountIsNotReleased)
{
    Enum objects({{S_FALSE, {At(0), At(1)}, 1}});
    EXPECT_EQ((Seen{At(0)}), SeenInBatches(objects));
    EXPECT_EQ(2u, m_objects[1].m_references) << "a pointer that was not counted may be no reference at all";
    m_objects[1].Release();
}

TEST(EnumElements, EveryEnumeratorNamesItsElement)
{
    static_assert(std::is_same_v<IQP_BaseDataObject, EnumElement<IEnumBaseDataObject>>);
    static_assert(std::is_same_v<IQPType, EnumElement<IQPTypeEnum>>);
    static_assert(std::is_same_v<IQPPage, EnumElement<IQPPageEnum>>);
    static_assert(std::is_same_v<IQPGroup, EnumElement<IQPGroupEnum>>);
    static_assert(std::is_same_v<IQPAttribute, EnumElement<IQPAttributeEnum>>);
    static_assert(std::is_same_v<IQPAttributeType, EnumElement<IQPAttributeTypeEnum>>);
    EXPECT_EQ(25u, kBatchSize);
    EXPECT_EQ(1000, kMaxNullsInRow);
}
