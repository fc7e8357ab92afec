// The content of the log file after each call of the component, which COM creates.
#include "LogFolder.h"
#include "ModuleUnderTest.h"
#include "TimeStamps.h"
#include "XQPComBSTR.h"

#include "qptools.h"

namespace
{
class UserActionLog : public ::testing::Test
{
protected:
    UserActionLog() { EXPECT_EQ(module.Create(CLSID_QPUserActionLog, log), S_OK); }

    const LogFolder folder;
    ModuleUnderTest module;
    ComPtr<IQPUserActionLog> log;
    const std::string before = TimeStampNow();
};

/// The first line of a text, without its line feed.
std::string FirstLine(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}
std::string AfterFirstLine(const std::string& text)
{
    return text.substr(text.find('\n') + 1);
}

TEST_F(UserActionLog, AStampWithInfoHasTwoBlanksAfterAtAndALineFeed)
{
    EXPECT_EQ(log->WriteTimeStampWithInfo(XQPComBSTR(L"Project opened")), S_OK);
    const std::string text = folder.Bytes();
    const std::string start = "Project opened at  ";
    ASSERT_EQ(text.substr(0, start.size()), start);
    ASSERT_EQ(text.back(), '\n');
    ExpectStampSince(before, text.substr(start.size(), text.size() - start.size() - 1));
}

TEST_F(UserActionLog, WithoutInfoTheStampIsAloneBeforeItsLineFeed)
{
    EXPECT_EQ(log->WriteTimeStampWithInfo(nullptr), S_OK);
    EXPECT_EQ(log->WriteTimeStampWithInfo(XQPComBSTR(L"")), S_OK);
    const std::string text = folder.Bytes();
    EXPECT_TRUE(HasShape(text, kTimeStampShape + "\n" + kTimeStampShape + "\n")) << text;
    ExpectStampSince(before, FirstLine(text));
}

TEST_F(UserActionLog, AnInfoOfBlanksIsAnInfo)
{
    EXPECT_EQ(log->WriteTimeStampWithInfo(XQPComBSTR(L" ")), S_OK);
    EXPECT_TRUE(HasShape(folder.Bytes(), "  at  " + kTimeStampShape + "\n")) << folder.Bytes();
}

TEST_F(UserActionLog, ALineIsWrittenAsGivenAndNoLineFeedIsAdded)
{
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"first")), S_OK);
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L" second\n")), S_OK);
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"\tthird\r\n")), S_OK);
    EXPECT_EQ(folder.Bytes(), "first second\n\tthird\r\n");
}

TEST_F(UserActionLog, ANullOrEmptyLineWritesNothing)
{
    EXPECT_EQ(log->WriteLine(nullptr), S_OK);
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"")), S_OK);
    EXPECT_EQ(folder.Bytes(), "");
}

TEST_F(UserActionLog, ALineEndsAtItsFirstNullCharacter)
{
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"seen\0unseen", 11)), S_OK);
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L" next")), S_OK);
    EXPECT_EQ(folder.Bytes(), "seen next");
}

TEST_F(UserActionLog, TextIsWrittenInUtf8)
{
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"Pr\u00FCfung \u2192 \u4E2D")), S_OK);
    EXPECT_EQ(folder.Bytes(), "Pr\xC3\xBC"
                              "fung \xE2\x86\x92 \xE4\xB8\xAD");
}

TEST_F(UserActionLog, ATimeStampIsAloneAndNoLineFeedIsAdded)
{
    EXPECT_EQ(log->WriteTimeStamp(), S_OK);
    ExpectStampSince(before, folder.Bytes());
    EXPECT_EQ(log->WriteTimeStamp(), S_OK);
    EXPECT_TRUE(HasShape(folder.Bytes(), kTimeStampShape + kTimeStampShape)) << folder.Bytes();
}

TEST_F(UserActionLog, AnActionIsABlockOfSevenLines)
{
    EXPECT_EQ(log->WriteUserActionInfo(XQPComBSTR(L"Copy"), XQPComBSTR(L"$12"), XQPComBSTR(L"{0A}"),
                                       XQPComBSTR(L"Robot 7"), XQPComBSTR(L"Welding")),
              S_OK);
    const std::string text = folder.Bytes();
    ExpectStampSince(before, FirstLine(text));
    EXPECT_EQ(AfterFirstLine(text), "# --> Copy\n"
                                    "Object ID: $12\n"
                                    "Object GUID: {0A}\n"
                                    "Configured Name of Object: Robot 7\n"
                                    "(Plan-)Type: Welding\n"
                                    "# <-- \n");
}

TEST_F(UserActionLog, AnActionWithoutAnyArgumentIsStillSevenLines)
{
    const std::string labels = "# --> \n"
                               "Object ID: \n"
                               "Object GUID: \n"
                               "Configured Name of Object: \n"
                               "(Plan-)Type: \n"
                               "# <-- \n";
    EXPECT_EQ(log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr), S_OK);
    const std::string ofNull = folder.Bytes();
    ExpectStampSince(before, FirstLine(ofNull));
    EXPECT_EQ(AfterFirstLine(ofNull), labels);

    const XQPComBSTR empty(L"");
    EXPECT_EQ(log->WriteUserActionInfo(empty, empty, empty, empty, empty), S_OK);
    EXPECT_EQ(AfterFirstLine(folder.Bytes().substr(ofNull.size())), labels);
}

TEST_F(UserActionLog, CallsDoNotDependOnEachOther)
{
    log->WriteLine(XQPComBSTR(L"a"));
    log->WriteTimeStamp();
    log->WriteLine(XQPComBSTR(L"b\n"));
    log->WriteTimeStampWithInfo(XQPComBSTR(L"c"));
    EXPECT_TRUE(HasShape(folder.Bytes(), "a" + kTimeStampShape + "b\nc at  " + kTimeStampShape + "\n"))
        << folder.Bytes();
}

TEST_F(UserActionLog, EveryObjectWritesToTheSameLog)
{
    ComPtr<IQPUserActionLog> second;
    ASSERT_EQ(module.Create(L"Qptools.QPUserActionLog", second), S_OK);
    log->WriteLine(XQPComBSTR(L"one "));
    second->WriteLine(XQPComBSTR(L"two"));
    EXPECT_EQ(folder.Bytes(), "one two");
}

TEST_F(UserActionLog, NoOtherLogIsWritten)
{
    log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr);
    log->WriteTimeStamp();
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
        files.push_back(entry.path().filename().string());
    EXPECT_EQ(files, std::vector<std::string>{"UserActions.log"});
}

TEST_F(UserActionLog, ALogThatCannotBeWrittenIsNotSeen)
{
    std::filesystem::create_directory(folder.Path() / "UserActions.log");
    EXPECT_EQ(log->WriteLine(XQPComBSTR(L"lost")), S_OK);
    EXPECT_EQ(log->WriteTimeStamp(), S_OK);
    EXPECT_EQ(log->WriteTimeStampWithInfo(nullptr), S_OK);
    EXPECT_EQ(log->WriteUserActionInfo(nullptr, nullptr, nullptr, nullptr, nullptr), S_OK);
}
} // namespace
