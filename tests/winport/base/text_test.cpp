// Code pages, case mapping, comparison.
#include "WinportSupport.h"

#include <gtest/gtest.h>

namespace
{
int ToWide(const std::string& text, wchar_t* target, int size, DWORD flags = 0)
{
    return MultiByteToWideChar(CP_UTF8, flags, text.data(), static_cast<int>(text.size()), target, size);
}
} // namespace

TEST(MultiByteToWideChar, GivesTheLengthWithTheTerminatorForMinusOne)
{
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "Maß", -1, nullptr, 0), 4);
    wchar_t text[4] = {L'x', L'x', L'x', L'x'};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "Maß", -1, text, 4), 4);
    EXPECT_EQ(std::wstring(text), L"Maß");
}

TEST(MultiByteToWideChar, AddsNoTerminatorToACountedText)
{
    wchar_t text[4] = {L'x', L'x', L'x', L'x'};
    EXPECT_EQ(ToWide("Ma", text, 4), 2);
    EXPECT_EQ(std::wstring(text, 4), L"Maxx");
    EXPECT_EQ(ToWide(std::string("a\0b", 3), text, 4), 3);
    EXPECT_EQ(std::wstring(text, 4), std::wstring(L"a\0bx", 4));
}

TEST(MultiByteToWideChar, ReadsSequencesOfTwoAndThreeBytes)
{
    wchar_t text[4];
    EXPECT_EQ(ToWide("\xC3\xA4\xE2\x82\xAC", text, 4, MB_ERR_INVALID_CHARS), 2);
    EXPECT_EQ(std::wstring(text, 2), L"\u00e4\u20ac");
}

TEST(MultiByteToWideChar, PutsAReplacementForAnInvalidByte)
{
    wchar_t text[4];
    EXPECT_EQ(ToWide("a\xFF"
                     "b",
                     text, 4),
              3);
    EXPECT_EQ(std::wstring(text, 3), L"a\uFFFD"
                                     L"b");
}

TEST(MultiByteToWideChar, RefusesInvalidTextOnDemand)
{
    wchar_t text[8];
    const char* const invalid[] = {
        "\xFF", "a\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"};
    for (const char* bytes : invalid)
    {
        SetLastError(0);
        EXPECT_EQ(ToWide(bytes, text, 8, MB_ERR_INVALID_CHARS), 0);
        EXPECT_EQ(LastError(), ERROR_NO_UNICODE_TRANSLATION);
    }
}

TEST(MultiByteToWideChar, FailsWhenTheTargetIsTooSmall)
{
    wchar_t text[2];
    SetLastError(0);
    EXPECT_EQ(ToWide("abc", text, 2), 0);
    EXPECT_EQ(LastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST(MultiByteToWideChar, ChecksItsArguments)
{
    wchar_t text[4];
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, nullptr, -1, text, 4), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 0, text, 4), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 3, nullptr, 4), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 3, text, -1), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0x40, "abc", 3, text, 4), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_FLAGS);
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(12345, 0, "abc", 3, text, 4), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
}

TEST(MultiByteToWideChar, KnowsTheSystemCodePage)
{
    wchar_t text[4];
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", -1, text, 4), 4);
    EXPECT_EQ(std::wstring(text), L"abc");
}

TEST(WideCharToMultiByte, EncodesAndCountsBytes)
{
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"\u00e4\u20ac", -1, nullptr, 0, nullptr, nullptr), 6);
    char bytes[6];
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"\u00e4\u20ac", 2, bytes, 6, nullptr, nullptr), 5);
    EXPECT_EQ(std::string(bytes, 5), "\xC3\xA4\xE2\x82\xAC");
}

TEST(WideCharToMultiByte, FailsWhenTheTargetIsTooSmall)
{
    char bytes[2];
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"abc", 3, bytes, 2, nullptr, nullptr), 0);
    EXPECT_EQ(LastError(), ERROR_INSUFFICIENT_BUFFER);
}

TEST(WideCharToMultiByte, TakesHalfAPairForInvalid)
{
    const wchar_t half[] = {static_cast<wchar_t>(0xD800), 0};
    char bytes[8];
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, half, 1, bytes, 8, nullptr, nullptr), 3);
    EXPECT_EQ(std::string(bytes, 3), "\xEF\xBF\xBD");
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, half, 1, bytes, 8, nullptr, nullptr), 0);
    EXPECT_EQ(LastError(), ERROR_NO_UNICODE_TRANSLATION);
}

TEST(WideCharToMultiByte, ChecksItsArguments)
{
    char bytes[8];
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, nullptr, 3, bytes, 8, nullptr, nullptr), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"abc", 0, bytes, 8, nullptr, nullptr), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
}

TEST(LowerCase, LowersInPlaceAsFarAsCounted)
{
    wchar_t text[] = L"ABC \u00c4\u00d6\u0100\u0416 1";
    EXPECT_EQ(CharLowerBuffW(text, 10), 10u);
    EXPECT_EQ(std::wstring(text), L"abc \u00e4\u00f6\u0101\u0436 1");
    wchar_t part[] = L"ABC";
    EXPECT_EQ(CharLowerBuffW(part, 2), 2u);
    EXPECT_EQ(std::wstring(part), L"abC");
    EXPECT_EQ(CharLowerBuffW(part, 0), 0u);
}

TEST(CompareStringOrdinal, ComparesByCodeUnits)
{
    EXPECT_EQ(CompareStringOrdinal(L"a", -1, L"a", -1, FALSE), CSTR_EQUAL);
    EXPECT_EQ(CompareStringOrdinal(L"B", -1, L"a", -1, FALSE), CSTR_LESS_THAN);
    EXPECT_EQ(CompareStringOrdinal(L"b", -1, L"a", -1, FALSE), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareStringOrdinal(L"ab", -1, L"a", -1, FALSE), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareStringOrdinal(L"abX", 2, L"abY", 2, FALSE), CSTR_EQUAL);
}

TEST(CompareStringOrdinal, CanIgnoreCase)
{
    EXPECT_EQ(CompareStringOrdinal(L"ABC\u00c4", -1, L"abc\u00e4", -1, TRUE), CSTR_EQUAL);
    EXPECT_EQ(CompareStringOrdinal(L"B", -1, L"a", -1, TRUE), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareStringOrdinal(L"_", -1, L"a", -1, TRUE), CSTR_GREATER_THAN);
    EXPECT_EQ(CompareStringOrdinal(L"a", -1, L"ab", -1, TRUE), CSTR_LESS_THAN);
}

TEST(CompareStringOrdinal, FailsWithoutText)
{
    SetLastError(0);
    EXPECT_EQ(CompareStringOrdinal(nullptr, 0, L"a", -1, FALSE), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
}
