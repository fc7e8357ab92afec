#include "TextCompare.h"
#include "Utf8.h"

#include <gtest/gtest.h>

namespace
{
using namespace std::string_literals;
using namespace std::string_view_literals;
} // namespace

TEST(Utf8, IsReadAndWritten)
{
    std::wstring text = L"before";
    EXPECT_TRUE(WideFromUtf8("a \xc3\xa4 \xe7\xb5\x84", text));
    EXPECT_EQ(text, L"a \u00e4 \u7d44");
    EXPECT_EQ(Utf8FromWide(text), "a \xc3\xa4 \xe7\xb5\x84");
}

TEST(Utf8, KeepsNullCharacters)
{
    std::wstring text;
    EXPECT_TRUE(WideFromUtf8("a\0b"sv, text));
    EXPECT_EQ(text, L"a\0b"s);
    EXPECT_EQ(Utf8FromWide(text), "a\0b"s);
}

TEST(Utf8, TheEmptyTextStaysEmpty)
{
    std::wstring text = L"before";
    EXPECT_TRUE(WideFromUtf8({}, text));
    EXPECT_EQ(text, L"");
    EXPECT_EQ(Utf8FromWide({}), "");
}

TEST(Utf8, BytesThatAreNotUtf8AreRefused)
{
    for (const std::string_view bytes : {"\xc3"sv, "ok \xff"sv, "\x80 ok"sv, "\xc0\x80"sv})
    {
        std::wstring text = L"before";
        EXPECT_FALSE(WideFromUtf8(bytes, text)) << bytes;
        EXPECT_EQ(text, L"");
    }
}

TEST(SameIgnoringCase, ComparesLettersOfAnyAlphabet)
{
    EXPECT_TRUE(SameIgnoringCase(L"LogBook", L"logbook"));
    EXPECT_TRUE(SameIgnoringCase(L"\u00c4", L"\u00e4"));
    EXPECT_FALSE(SameIgnoringCase(L"a", L"b"));
    EXPECT_FALSE(SameIgnoringCase(L"[", L"{"));
}

TEST(SameIgnoringCase, DifferentLengthsAreDifferentTexts)
{
    EXPECT_TRUE(SameIgnoringCase({}, L""));
    EXPECT_FALSE(SameIgnoringCase({}, L"a"));
    EXPECT_FALSE(SameIgnoringCase(L"log", L"logbook"));
    EXPECT_FALSE(SameIgnoringCase(L"a\0b"sv, L"a"));
}
