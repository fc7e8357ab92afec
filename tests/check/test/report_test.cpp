#include "PicturePage.h"
#include "Report.h"

#include <gtest/gtest.h>

namespace
{
const KnownDifferences kKnown = KnownDifferences::Read("p.A.known | windows | It is drawn otherwise.\n"
                                                       "p.A.quiet | windows | It may flicker.\n"
                                                       "p.A.news | wine | Elsewhere only.\n");

ProgramResult Program(const std::string& name, const std::string& lines)
{
    ProgramResult program(name);
    program.Add(ReadTestLog(lines + "[==========] 1 test ran. (1 ms total)\n"), {});
    return program;
}

std::string TestOf(const std::string& name, const std::string& mark, const std::string& output = {})
{
    return "[ RUN      ] " + name + "\n" + output + mark + name + " (0 ms)\n";
}

const std::string kOk = "[       OK ] ";
const std::string kFailed = "[  FAILED  ] ";
const std::string kSkipped = "[  SKIPPED ] ";

CheckResult Result(const std::string& lines)
{
    CheckResult result;
    result.version = "1.2.3";
    result.machine.conditions = {"windows"};
    result.machine.lines = {{"Windows", "10.0 build 19045"}};
    result.leftOut = {{"regsvr_tests", "It needs the rights of an administrator."}};
    result.pictures.wanted = false;
    result.programs.push_back(Program("p", lines));
    return result;
}

::testing::AssertionResult Says(const Report& report, const std::string& text)
{
    if (report.Text().find(text) != std::string::npos)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "not in the report: " << text << "\n" << report.Text();
}

TEST(Reports, WithoutFailuresHaveNoNews)
{
    const Report report(Result(TestOf("A.one", kOk)), kKnown);
    EXPECT_EQ(report.News(), 0);
    EXPECT_TRUE(Says(report, "No news: everything is as expected.\n"));
    EXPECT_TRUE(
        Says(report, "programs                1\ntests                   1\npassed                  1\n"));
    EXPECT_TRUE(Says(report, "News: failures that were not expected\n"
                             "-------------------------------------\nnone\n"));
    EXPECT_TRUE(Says(report, "Windows                 10.0 build 19045\n"));
    EXPECT_TRUE(Says(report, "regsvr_tests            It needs the rights of an administrator.\n"));
}

TEST(Reports, TellNewsFromExpectedDifferences)
{
    const Report report(Result(TestOf("A.known", kFailed, "painted\n") +
                               TestOf("A.news", kFailed, "broken\n") + TestOf("A.one", kOk)),
                        kKnown);
    EXPECT_EQ(report.News(), 1);
    EXPECT_TRUE(Says(report, "NEWS: one failure that was not expected.\n"));
    EXPECT_TRUE(Says(report, "failed as expected      1\nfailed, not expected    1\n"));
    EXPECT_TRUE(Says(report, "-\np.A.news\n\n"));
    EXPECT_TRUE(Says(report, "p.A.known\n    It is drawn otherwise.\n"));
    EXPECT_TRUE(Says(report, "Expected differences that did not occur\n"
                             "---------------------------------------\np.A.quiet\n    It may flicker.\n"));
    EXPECT_TRUE(Says(report, "p.A.news\n    [ RUN      ] A.news\n    broken\n"));
    EXPECT_TRUE(Says(report, "p.A.known (expected)\n    [ RUN      ] A.known\n    painted\n"));
}

TEST(Reports, CountAFailureOfAProgramAsNewsButNotAsATest)
{
    CheckResult result = Result(TestOf("A.one", kOk));
    ProgramResult missing("q");
    missing.Add(ReadTestLog(""), {ProgramEnd::Way::NotStarted, 2});
    result.programs.push_back(missing);
    const Report report(result, kKnown);
    EXPECT_EQ(report.News(), 1);
    EXPECT_TRUE(Says(report, "programs                2\ntests                   1\n"));
    EXPECT_TRUE(Says(report, "-\nq.(program)\n"));
}

TEST(Reports, NameTestsThatSkipThemselves)
{
    const Report report(Result(TestOf("A.one", kSkipped, "file.cpp:3: Skipped\nno such list\n")), kKnown);
    EXPECT_EQ(report.News(), 0);
    EXPECT_TRUE(Says(report, "skipped                 1\n"));
    EXPECT_TRUE(Says(report, "p.A.one\n    no such list\n"));
}

TEST(Reports, SayWhyThereAreNoPictures)
{
    CheckResult result = Result(TestOf("A.one", kOk));
    EXPECT_TRUE(Says(Report(result, kKnown), "pictures                not asked for\n"));
    result.pictures.wanted = true;
    result.pictures.impossible = "the screen cannot be read";
    const Report report(result, kKnown);
    EXPECT_EQ(report.News(), 0);
    EXPECT_TRUE(Says(report, "pictures                none: the screen cannot be read\n"));
}

TEST(Reports, CountAMissingPictureAsNews)
{
    CheckResult result = Result(TestOf("A.one", kOk));
    result.pictures = {true, "", 1, 2, {"there is none of copy-options-de"}};
    const Report report(result, kKnown);
    EXPECT_EQ(report.News(), 1);
    EXPECT_TRUE(Says(report, "pictures                1 taken, of 2 under Wine; see pictures.html\n"));
    EXPECT_TRUE(Says(report, "pictures: there is none of copy-options-de\n"));
}

TEST(ProgressLines, CountTheTestsOfAProgram)
{
    EXPECT_EQ(ProgressLine(2, 70, Program("copy_tests", TestOf("A.one", kOk) + TestOf("A.two", kOk)), {}),
              "  2 of 70  copy_tests                         2 tests, all passed");
    EXPECT_EQ(ProgressLine(3, 70, Program("copy_tests", TestOf("A.one", kFailed)), {}),
              "  3 of 70  copy_tests                         1 tests, 1 failed");
}

TEST(ProgressLines, SayWhichFailuresWereExpected)
{
    const std::vector<KnownDifference> known = kKnown.On({"windows"});
    const std::string expected = TestOf("A.known", kFailed);
    EXPECT_EQ(ProgressLine(1, 70, Program("p", expected), known),
              "  1 of 70  p                                  1 tests, 1 failed, as expected");
    EXPECT_EQ(ProgressLine(1, 70, Program("p", expected + TestOf("A.one", kFailed)), known),
              "  1 of 70  p                                  2 tests, 2 failed, 1 of them as expected");
}

TEST(PicturePages, ShowBothPicturesOfADialog)
{
    const std::string page = PicturePage("1.2.3", {"a-en"}, {"a-en", "b-en"});
    EXPECT_NE(page.find("<td>a-en</td><td><img alt=\"a-en\" src=\"pictures/a-en-here.png\"></td>"
                        "<td><img alt=\"a-en\" src=\"pictures/a-en-wine.png\"></td>"),
              std::string::npos);
    EXPECT_NE(page.find("<td>b-en</td><td>none</td><td><img"), std::string::npos);
}
} // namespace
