// Text between UTF-8 and wide strings.
#include "HostText.h"
#include "PlantError.h"

#include <gtest/gtest.h>

namespace
{
using refhost::FromUtf8;
using refhost::IsUtf8;

TEST(HostText, characters_of_every_length_are_read_back)
{
    for (const char* text :
         {"", "plain", "\xC3\xA4\xC3\xB6\xC3\xBC", "\xE2\x82\xAC 5", "\xE5\xB7\xA5\xE5\xA0\xB4",
          "\xF0\x9F\x94\xA7 tool", "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80"})
    {
        EXPECT_TRUE(IsUtf8(text)) << text;
        EXPECT_EQ(Utf8FromWide(FromUtf8(text)), text);
    }
    EXPECT_EQ(FromUtf8("\xE2\x82\xAC"), L"\u20AC");
    EXPECT_EQ(FromUtf8("\xF0\x9F\x94\xA7"), L"\U0001F527");
    EXPECT_EQ(Utf8FromWide(L"\U0001F527"), "\xF0\x9F\x94\xA7");
}

TEST(HostText, bytes_that_are_not_utf8_are_refused)
{
    const std::string_view broken[] = {"\x80",
                                       "\xC3",
                                       "\xC3(",
                                       "\xC0\xAF",
                                       "\xE2\x82",
                                       "\xED\xA0\x80",
                                       "\xF4\x90\x80\x80",
                                       "\xF8\x88\x80\x80\x80",
                                       "\xFF"};
    for (const std::string_view text : broken)
    {
        EXPECT_FALSE(IsUtf8(text));
        EXPECT_THROW(FromUtf8(text), refhost::PlantError);
    }
    EXPECT_THROW(FromUtf8("a\xC3(b"), refhost::PlantError);
}

TEST(HostText, a_lone_surrogate_is_replaced)
{
    const wchar_t high[] = {static_cast<wchar_t>(0xD83D), L'x', 0};
    const wchar_t low[] = {static_cast<wchar_t>(0xDC00), 0};
    EXPECT_EQ(Utf8FromWide(high), "\xEF\xBF\xBDx");
    EXPECT_EQ(Utf8FromWide(low), "\xEF\xBF\xBD");
}

TEST(HostText, a_zero_in_the_middle_is_kept)
{
    EXPECT_EQ(FromUtf8(std::string_view("a\0b", 3)).size(), 3U);
    EXPECT_EQ(Utf8FromWide(std::wstring_view(L"a\0b", 3)).size(), 3U);
}
} // namespace
