#include "ProgramResult.h"

#include <gtest/gtest.h>

namespace
{
constexpr ProgramEnd kGood = {};
constexpr ProgramEnd kBad = {ProgramEnd::Way::Exited, 1};
constexpr ProgramEnd kCrash = {ProgramEnd::Way::Exited, 0xC0000005};
constexpr ProgramEnd kSilent = {ProgramEnd::Way::Silent, 0};

TestLog Log(const std::string& lines, int announced = 2)
{
    return ReadTestLog("[==========] Running " + std::to_string(announced) + " tests from 1 test suite.\n" +
                       lines);
}

const std::string kRan = "[==========] 2 tests from 1 test suite ran. (1 ms total)\n";
const std::string kOne = "[ RUN      ] A.one\n[       OK ] A.one (0 ms)\n";
const std::string kOneFails = "[ RUN      ] A.one\n[  FAILED  ] A.one (0 ms)\n";
const std::string kTwo = "[ RUN      ] A.two\n[       OK ] A.two (0 ms)\n";

/// "one+ two-": passed and failed.
std::string Shown(const ProgramResult& result)
{
    std::string shown;
    for (const TestResult& test : result.Tests())
        shown += (shown.empty() ? "" : " ") + test.name + (test.outcome == Outcome::Failed ? "-" : "+");
    return shown;
}

TEST(ProgramResults, AreThoseOfItsTests)
{
    ProgramResult result("p");
    result.Add(Log(kOne + kTwo + kRan), kGood);
    EXPECT_EQ(Shown(result), "A.one+ A.two+");
    EXPECT_FALSE(result.NeedsAnotherRun());
}

TEST(ProgramResults, LoseOneTestByACrash)
{
    ProgramResult result("p");
    result.Add(Log("[ RUN      ] A.one\nhere\n"), kCrash);
    EXPECT_TRUE(result.NeedsAnotherRun());
    EXPECT_EQ(result.Filter(), "--gtest_filter=-A.one");
    result.Add(Log(kTwo + kRan, 1), kGood);
    EXPECT_FALSE(result.NeedsAnotherRun());
    EXPECT_EQ(Shown(result), "A.one- A.two+");
    EXPECT_EQ(result.Tests()[0].output, "[ RUN      ] A.one\nhere\nthe program ended within this test: "
                                        "it ended with code 0xC0000005 (access violation)\n");
}

TEST(ProgramResults, LoseOneTestThatHangs)
{
    ProgramResult result("p");
    result.Add(Log(kOne + "[ RUN      ] A.two\n"), kSilent);
    EXPECT_TRUE(result.NeedsAnotherRun());
    result.Add(Log(kOne + kRan, 1), kGood);
    EXPECT_EQ(Shown(result), "A.one+ A.two-");
}

TEST(ProgramResults, LeaveOutAllTestsThatEndedIt)
{
    ProgramResult result("p");
    result.Add(Log("[ RUN      ] A.one\n"), kCrash);
    result.Add(Log("[ RUN      ] A.two\n"), kCrash);
    EXPECT_EQ(result.Filter(), "--gtest_filter=-A.one:A.two");
}

TEST(ProgramResults, KeepAFailureThatASecondRunDoesNotShow)
{
    ProgramResult result("p");
    result.Add(Log(kOneFails + "[ RUN      ] A.two\n"), kCrash);
    result.Add(Log(kOne + kRan), kGood);
    EXPECT_EQ(Shown(result), "A.one- A.two-");
}

TEST(ProgramResults, GiveUpAfterManyCrashes)
{
    ProgramResult result("p");
    for (int test = 0; test < 20; ++test)
        result.Add(Log("[ RUN      ] A.n" + std::to_string(test) + "\n", 30), kCrash);
    EXPECT_FALSE(result.NeedsAnotherRun());
    EXPECT_EQ(result.Tests().size(), 21U);
    EXPECT_EQ(result.Tests().back().output, "tests that were not reached: 10\n");
}

TEST(ProgramResults, NoteAFailureThatNoTestShows)
{
    ProgramResult result("p");
    result.Add(Log(kOne + kTwo + kRan), {ProgramEnd::Way::Exited, 3});
    EXPECT_EQ(Shown(result), "A.one+ A.two+ (program)-");
    EXPECT_NE(result.Tests().back().output.find("it ended with exit code 3"), std::string::npos);
}

TEST(ProgramResults, NeedNothingBesideAFailedTest)
{
    ProgramResult result("p");
    result.Add(Log(kOneFails + kTwo + kRan), kBad);
    EXPECT_EQ(Shown(result), "A.one- A.two+");
}

TEST(ProgramResults, NoteACrashBetweenTests)
{
    ProgramResult result("p");
    result.Add(Log(kOne), kCrash);
    EXPECT_EQ(Shown(result), "A.one+ (program)-");
    EXPECT_NE(result.Tests().back().output.find("tests that were not reached: 1"), std::string::npos);
}

TEST(ProgramResults, NoteAProgramThatDoesNotStart)
{
    ProgramResult result("p");
    result.Add(ReadTestLog(""), {ProgramEnd::Way::NotStarted, 2});
    EXPECT_EQ(Shown(result), "(program)-");
    EXPECT_EQ(result.Tests().back().output, "outside of every test: it could not be started: error 2\n");
}

TEST(ProgramResults, NoteAProgramThatHangsAtItsEnd)
{
    ProgramResult result("p");
    result.Add(Log(kOne + kTwo + kRan), kSilent);
    EXPECT_EQ(Shown(result), "A.one+ A.two+ (program)-");
}
} // namespace
