#include "KnownDifferences.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace
{
TEST(Patterns, MatchTheWholeName)
{
    EXPECT_TRUE(MatchesPattern("a.B.c", "a.B.c"));
    EXPECT_FALSE(MatchesPattern("a.B.c", "a.B.cd"));
    EXPECT_FALSE(MatchesPattern("a.B.c", "a.B"));
    EXPECT_TRUE(MatchesPattern("*", ""));
    EXPECT_TRUE(MatchesPattern("a.*.c", "a.B.c"));
    EXPECT_TRUE(MatchesPattern("a.*.c", "a.B.c.c"));
    EXPECT_FALSE(MatchesPattern("a.*.c", "a.B.d"));
}

TEST(KnownDifferencesFile, HoldsPatternsConditionsAndReasons)
{
    const auto known =
        KnownDifferences::Read("# comment\r\n\r\na.* | windows | it paints\r\nb.c | session | dates\r\n");
    const auto here = known.On({"windows", "elevated"});
    ASSERT_EQ(here.size(), 1U);
    EXPECT_EQ(here[0].pattern, "a.*");
    EXPECT_EQ(here[0].reason, "it paints");
    EXPECT_EQ(known.On({"wine"}).size(), 0U);
}

TEST(KnownDifferencesFile, RefusesWhatItDoesNotUnderstand)
{
    for (const char* line :
         {"a.* | windows", "a.* | vista | it paints", "a.* | windows | ", " | windows | it paints"})
        EXPECT_THROW(KnownDifferences::Read(line), std::runtime_error) << line;
}
} // namespace
