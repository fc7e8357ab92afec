// Strings that carry their length.
#include "AutomationTest.h"

#include <gtest/gtest.h>

TEST(Bstr, HoldsACopyOfTheTextAndItsLength)
{
    wchar_t source[] = L"plan";
    const CTestText text(source);
    source[0] = L'x';
    EXPECT_EQ(4u, SysStringLen(text));
    EXPECT_EQ(L"plan", Content(text));
    EXPECT_EQ(L'\0', static_cast<BSTR>(text)[4]);
}

TEST(Bstr, NullTextGivesNullAndNullHasNoLength)
{
    EXPECT_EQ(nullptr, SysAllocString(nullptr));
    EXPECT_EQ(0u, SysStringLen(nullptr));
    EXPECT_EQ(0u, SysStringByteLen(nullptr));
    SysFreeString(nullptr);
}

TEST(Bstr, EmptyTextIsAStringOfItsOwn)
{
    const CTestText text(L"");
    ASSERT_NE(nullptr, static_cast<BSTR>(text));
    EXPECT_EQ(0u, SysStringLen(text));
    EXPECT_EQ(L'\0', static_cast<BSTR>(text)[0]);
}

TEST(Bstr, KeepsZerosInside)
{
    const CTestText text(L"ab\0cd", 5);
    EXPECT_EQ(5u, SysStringLen(text));
    EXPECT_EQ(std::wstring(L"ab\0cd", 5), Content(text));
    EXPECT_EQ(L'\0', static_cast<BSTR>(text)[5]);
}

TEST(Bstr, TakesTheGivenLengthAndNotTheTexts)
{
    const CTestText text(L"abcdef", 3);
    EXPECT_EQ(L"abc", Content(text));
    EXPECT_EQ(L'\0', static_cast<BSTR>(text)[3]);
}

TEST(Bstr, LengthWithoutTextGivesRoomAndATerminator)
{
    const CTestText text(nullptr, 3);
    ASSERT_NE(nullptr, static_cast<BSTR>(text));
    EXPECT_EQ(3u, SysStringLen(text));
    EXPECT_EQ(L'\0', static_cast<BSTR>(text)[3]);
}

TEST(Bstr, LengthBeyondAllMemoryGivesNull)
{
    EXPECT_EQ(nullptr, SysAllocStringLen(nullptr, 0x7fffffff));
    EXPECT_EQ(nullptr, SysAllocStringLen(nullptr, 0xffffffff));
}

TEST(Bstr, ByteLengthIsTheCharactersTimesTheirSize)
{
    const CTestText text(L"abc");
    EXPECT_EQ(3u * sizeof(OLECHAR), SysStringByteLen(text));
}
