// Walks that fetch one object at a time: which objects are seen, what ends a walk, and that every reference
// fetched is released.
#include "WalkFixture.h"

using namespace walks;

TEST_F(Walks, RemNextContinuesUntilAStatusOtherThanOk)
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

TEST_F(Walks, RemNextReleasesAnObjectThatCameWithAnotherStatus)
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

TEST_F(Walks, RemNextThatEndsAtZeroFetchedSkipsACountedNull)
{
    Enum objects({{S_OK, {nullptr}, 1}, {S_OK, {At(0)}}, {S_OK, {nullptr}, 0}});
    EXPECT_EQ((Seen{At(0)}), SeenByRemNext(objects, WalkEnd::AtNothingFetched));
    EXPECT_EQ(3u, objects.Calls());
}

TEST_F(Walks, RemNextSkipsNullsUntilAStatusEndsIt)
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
    EnumWalk walk(static_cast<IEnumQPFObject*>(&objects), WalkBy::RemNext, WalkEnd::AtNull);
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
        EnumWalk walk(static_cast<IEnumQPFObject*>(&objects), WalkBy::RemNext, WalkEnd::AtNull);
        ASSERT_TRUE(walk.Next());
        EnumWalk single(static_cast<IEnumQPFObject*>(&objects), WalkBy::GetSingleNext, WalkEnd::AtNull);
        ASSERT_TRUE(single.Next());
        EXPECT_EQ(3u, m_objects[0].m_references);
    }
    EXPECT_EQ(1u, m_objects[0].m_references);
}

TEST_F(Walks, SingleNextContinuesUntilAStatusOtherThanOk)
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

TEST_F(Walks, SingleNextSkipsNullsUntilAStatusEndsIt)
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
