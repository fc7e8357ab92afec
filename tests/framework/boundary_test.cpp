#include "ComBoundary.h"
#include "OutArguments.h"
#include "UnloadAnswer.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(ComBoundary, ReturnsTheStatusOfTheBody)
{
    EXPECT_EQ(ComBoundary([] { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(ComBoundary([] { return E_POINTER; }), E_POINTER);
}

TEST(ComBoundary, TurnsMemoryThatRanOutIntoItsStatus)
{
    EXPECT_EQ(ComBoundary([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(ComBoundary([]() -> HRESULT { ThrowOutOfMemory(); }), E_OUTOFMEMORY);
}

TEST(ComBoundary, PassesOnTheStatusOfAComException)
{
    EXPECT_EQ(ComBoundary([]() -> HRESULT { throw ComException(E_ABORT); }), E_ABORT);
}

TEST(ComBoundary, TurnsEveryOtherExceptionIntoAnUnspecifiedFailure)
{
    EXPECT_EQ(ComBoundary([]() -> HRESULT { throw std::runtime_error("x"); }), E_FAIL);
    EXPECT_EQ(ComBoundary([]() -> HRESULT { throw 1; }), E_FAIL);
}

TEST(ClearOut, EmptiesEveryResultThatHasAnAddress)
{
    LONG number = 5;
    int target = 0;
    int* pointer = &target;
    ClearOut(&number, static_cast<LONG*>(nullptr), &pointer);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(pointer, nullptr);
}

TEST(UnloadAnswer, IsYesOnlyIfTheFrameworkAgreesAndNothingIsHeld)
{
    EXPECT_EQ(UnloadAnswer(S_OK, [] { return 0; }), S_OK);
    EXPECT_EQ(UnloadAnswer(S_OK, [] { return 1; }), S_FALSE);
    EXPECT_EQ(UnloadAnswer(S_OK, [] { return -1; }), S_FALSE);
    EXPECT_EQ(UnloadAnswer(S_FALSE, [] { return 0; }), S_FALSE);
    EXPECT_EQ(UnloadAnswer(E_FAIL, [] { return 0; }), S_FALSE);
}

TEST(UnloadAnswer, DoesNotReadTheLockCountAfterANoOfTheFramework)
{
    int reads = 0;
    const auto count = [&] {
        return ++reads, 0;
    };
    UnloadAnswer(S_FALSE, count);
    EXPECT_EQ(reads, 0);
    UnloadAnswer(S_OK, count);
    EXPECT_EQ(reads, 1);
}
