// What the tests of walks over the host's enumerators share: objects that count references to them, and walks
// that record what they saw.
#pragma once

#include "EnumWalk.h"
#include "ScriptedEnum.h"
#include "qpobjects.h"

#include <gtest/gtest.h>

#include <vector>

namespace walks
{
using namespace qptools;

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
        EnumWalk walk(static_cast<IEnumQPFObject*>(&objects), WalkBy::RemNext, end);
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
        EnumWalk walk(static_cast<IEnumQPFObject*>(&objects), WalkBy::GetSingleNext, end);
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
        const auto visit = [&seen](IQPFObject* object) {
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
} // namespace walks
