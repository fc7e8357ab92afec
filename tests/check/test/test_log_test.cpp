#include "TestLog.h"

#include <gtest/gtest.h>

namespace
{
TEST(TestLogs, HoldEachTestWithItsOutput)
{
    const TestLog log = ReadTestLog("[==========] Running 3 tests from 1 test suite.\r\n"
                                    "[ RUN      ] A.one\r\nsays this\r\n[       OK ] A.one (3 ms)\r\n"
                                    "[ RUN      ] A.two\n[  SKIPPED ] A.two (0 ms)\n"
                                    "[ RUN      ] A.three\nExpected\n[  FAILED  ] A.three (1 ms)\n"
                                    "[==========] 3 tests from 1 test suite ran. (9 ms total)\n");
    EXPECT_EQ(log.announced, 3);
    EXPECT_TRUE(log.ended);
    EXPECT_EQ(log.begun, "");
    ASSERT_EQ(log.results.size(), 3U);
    EXPECT_EQ(log.results[0].name, "A.one");
    EXPECT_EQ(log.results[0].outcome, Outcome::Passed);
    EXPECT_EQ(log.results[0].output, "[ RUN      ] A.one\nsays this\n[       OK ] A.one (3 ms)\n");
    EXPECT_EQ(log.results[1].outcome, Outcome::Skipped);
    EXPECT_EQ(log.results[2].outcome, Outcome::Failed);
}

TEST(TestLogs, KnowTheTestInWhichTheyEnd)
{
    const TestLog log = ReadTestLog("before\n[ RUN      ] A.one\nhalf a line");
    EXPECT_EQ(log.begun, "A.one");
    EXPECT_EQ(log.begunOutput, "[ RUN      ] A.one\nhalf a line\n");
    EXPECT_EQ(log.output, "before\n");
    EXPECT_FALSE(log.ended);
    EXPECT_EQ(log.announced, -1);
}

TEST(TestLogs, FindMarksBehindOtherOutput)
{
    const TestLog log = ReadTestLog("[ RUN      ] A.one\nno line end[       OK ] A.one (3 ms)\n");
    ASSERT_EQ(log.results.size(), 1U);
    EXPECT_EQ(log.results[0].outcome, Outcome::Passed);
}

TEST(TestLogs, LeaveMarksOfOtherTestsInATestToIt)
{
    const TestLog log = ReadTestLog("[ RUN      ] A.one\n[ RUN      ] A.two\n[  FAILED  ] A.two (3 ms)\n"
                                    "[       OK ] A.one (3 ms)\n");
    ASSERT_EQ(log.results.size(), 1U);
    EXPECT_EQ(log.results[0].name, "A.one");
    EXPECT_EQ(log.results[0].outcome, Outcome::Passed);
}

TEST(TestLogs, TellNamesApartThatBeginAlike)
{
    const TestLog log = ReadTestLog("[ RUN      ] A.two\n[       OK ] A.twofold (3 ms)\n");
    EXPECT_EQ(log.begun, "A.two");
    EXPECT_TRUE(log.results.empty());
}

TEST(TestLogs, KnowFailuresOfTestsWithParameters)
{
    const TestLog log =
        ReadTestLog("[ RUN      ] W/A.one/Bad\n[  FAILED  ] W/A.one/Bad, where GetParam() = 7 (0 ms)\n");
    ASSERT_EQ(log.results.size(), 1U);
    EXPECT_EQ(log.results[0].outcome, Outcome::Failed);
}
} // namespace
