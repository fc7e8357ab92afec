// Walks in batches: which objects are seen, what ends a batch or the walk, its block of memory and its
// references.
#include "TaskMemory.h"
#include "WalkFixture.h"

#include <stdexcept>

using namespace walks;

TEST_F(Walks, BatchesContinueWhileTheyAreFull)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_OK, Range(25, 25)}, {S_FALSE, {}}});
    EXPECT_EQ(Range(0, 50), SeenInBatches(objects));
    EXPECT_EQ(3u, objects.Calls());
    EXPECT_EQ(S_FALSE, m_lastStatus);
    EXPECT_EQ(0, m_nulls);
}

TEST_F(Walks, TheLastBatchIsVisitedAlthoughItIsSFalse)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_FALSE, Range(25, 3)}});
    EXPECT_EQ(Range(0, 28), SeenInBatches(objects));
    EXPECT_EQ(2u, objects.Calls());
}

TEST_F(Walks, AFailedBatchIsNotVisitedButReleased)
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

TEST_F(Walks, BatchesContinueAfterAnotherPositiveStatus)
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
    const auto visit = [&](IQPFObject* object) {
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
    const auto visit = [&visits](IQPFObject*) {
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
    const auto visit = [](IQPFObject*) -> BatchStep {
        throw std::runtime_error("visitor");
    };
    EXPECT_THROW(WalkBatches(static_cast<IEnumQPFObject*>(&objects), visit), std::runtime_error);
}

TEST_F(Walks, AnObjectThatAVisitorKeepsOutlivesItsBatch)
{
    Enum objects({{S_FALSE, Range(0, 2)}});
    ComPtr<IQPFObject> kept;
    const auto visit = [&kept](IQPFObject* object) {
        kept = ComPtr<IQPFObject>(object);
        return BatchStep::Stop;
    };
    WalkBatches(static_cast<IEnumQPFObject*>(&objects), visit);
    EXPECT_EQ(At(0), kept.get());
    EXPECT_EQ(2u, m_objects[0].m_references);
    EXPECT_EQ(1u, m_objects[1].m_references);
}

TEST_F(Walks, EachBatchIsOneBlockOfTaskMemoryThatIsFreed)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_OK, Range(25, 25)}, {S_FALSE, Range(50, 5)}});
    const TaskMemory memory;
    EXPECT_EQ(Range(0, 55), SeenInBatches(objects));
    memory.ExpectBlocks(3, 25 * sizeof(void*));
}

TEST_F(Walks, AWalkThatEndsEarlyFreesItsBlockToo)
{
    const TaskMemory memory;
    Enum failing({{E_FAIL, Range(0, 3)}});
    EXPECT_EQ(Seen{}, SeenInBatches(failing));
    Enum stopped({{S_OK, Range(0, 25)}});
    const auto stop = [](IQPFObject*) {
        return BatchStep::Stop;
    };
    EXPECT_EQ(S_OK, WalkBatches(static_cast<IEnumQPFObject*>(&stopped), stop));
    const auto fail = [](IQPFObject*) -> BatchStep {
        throw std::runtime_error("visitor");
    };
    EXPECT_THROW(WalkBatches(static_cast<IEnumQPFObject*>(&stopped), fail), std::runtime_error);
    memory.ExpectBlocks(3, 25 * sizeof(void*));
}

TEST_F(Walks, WithoutMemoryForTheFirstBatchNothingIsFetched)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_FALSE, {At(25)}}});
    const TaskMemory memory(1);
    EXPECT_EQ(Seen{}, SeenInBatches(objects));
    EXPECT_EQ(E_OUTOFMEMORY, m_lastStatus);
    EXPECT_EQ(0u, objects.Calls());
    EXPECT_EQ(0, m_nulls);
}

TEST_F(Walks, WithoutMemoryForALaterBatchTheWalkEndsThere)
{
    Enum objects({{S_OK, Range(0, 25)}, {S_OK, Range(25, 25)}, {S_FALSE, {At(50)}}});
    const TaskMemory memory(3);
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
