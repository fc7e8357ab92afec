// Where logs are, and who else may be at them.
#include "CFileHandle.h"
#include "CFileLock.h"
#include "LogFile.h"
#include "OtherProcess.h"
#include "TestFolder.h"
#include "XQPError.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <map>

namespace
{
// Logs go to a folder of the test's own.
class LogFiles : public testing::Test
{
protected:
    std::string Log(const char* name) const
    {
        return ReadBytes(m_folder.Path() / (std::string(name) + ".log"));
    }

    TestFolder m_folder;
    TestVariable m_directory{L"QPTOOLS_LOG_DIR", m_folder.Path().wstring()};
};

using Names = std::vector<std::string>;

TEST_F(LogFiles, MakesTheLogDirectoryWithItsParents)
{
    const std::filesystem::path deep = m_folder.Path() / "a" / "b c" / "d";
    const TestVariable directory(L"QPTOOLS_LOG_DIR", deep.wstring());
    XQPError::WriteLogLine(L"UserActions", L"x");
    EXPECT_EQ(ReadBytes(deep / "UserActions.log"), "x");
}

TEST_F(LogFiles, TakesALogDirectoryWithASeparatorAtItsEnd)
{
    const TestVariable directory(L"QPTOOLS_LOG_DIR", (m_folder.Path() / "logs" / "").wstring());
    XQPError::WriteLogLine(L"UserActions", L"x");
    EXPECT_EQ(ReadBytes(m_folder.Path() / "logs" / "UserActions.log"), "x");
}

TEST_F(LogFiles, TakesALogDirectoryWithDoubledSeparators)
{
    const TestVariable directory(L"QPTOOLS_LOG_DIR", m_folder.Path().wstring() + L"//a///b");
    XQPError::WriteLogLine(L"UserActions", L"x");
    EXPECT_EQ(ReadBytes(m_folder.Path() / "a" / "b" / "UserActions.log"), "x");
}

TEST_F(LogFiles, UsesTheUsersOwnFolderWithoutAVariable)
{
    const TestVariable none(L"QPTOOLS_LOG_DIR", std::nullopt);
    EXPECT_TRUE(LogDirectory().ends_with(L"qptools\\logs") || LogDirectory().ends_with(L"qptools/logs"));
    EXPECT_GT(LogDirectory().size(), 13u);
    const TestVariable empty(L"QPTOOLS_LOG_DIR", std::wstring());
    const TestVariable local(L"LOCALAPPDATA", m_folder.Path().wstring());
    XQPError::WriteLogLine(L"UserActions", L"x");
    EXPECT_EQ(ReadBytes(m_folder.Path() / "qptools" / "logs" / "UserActions.log"), "x");
}

TEST_F(LogFiles, TakesALongLogDirectoryWhole)
{
    const std::wstring directory = m_folder.Path().wstring() + L"/" + std::wstring(400, L'd');
    const TestVariable variable(L"QPTOOLS_LOG_DIR", directory);
    EXPECT_EQ(LogDirectory(), directory);
}

TEST_F(LogFiles, FollowsTheLogDirectoryWhenItChanges)
{
    XQPError::WriteLogLine(L"UserActions", L"here");
    const TestFolder other;
    const TestVariable directory(L"QPTOOLS_LOG_DIR", other.Path().wstring());
    XQPError::WriteLogLine(L"UserActions", L"there");
    EXPECT_EQ(Log("UserActions"), "here");
    EXPECT_EQ(ReadBytes(other.Path() / "UserActions.log"), "there");
}

TEST_F(LogFiles, LetsAnOperatorDeleteOrRenameALog)
{
    const std::filesystem::path log = m_folder.Path() / "UserActions.log";
    XQPError::WriteLogLine(L"UserActions", L"one\n");
    std::filesystem::rename(log, m_folder.Path() / "old.log");
    XQPError::WriteLogLine(L"UserActions", L"two\n");
    EXPECT_EQ(ReadBytes(log), "two\n");
    EXPECT_EQ(Log("old"), "one\n");
    std::filesystem::remove(log);
    XQPError::WriteLogLine(L"UserActions", L"three\n");
    EXPECT_EQ(ReadBytes(log), "three\n");
}

TEST_F(LogFiles, WritesALogThatIsOpenInAReader)
{
    XQPError::WriteLogLine(L"UserActions", L"one\n");
    std::ifstream reader(m_folder.Path() / "UserActions.log");
    XQPError::WriteLogLine(L"UserActions", L"two\n");
    EXPECT_EQ(Log("UserActions"), "one\ntwo\n");
}

TEST_F(LogFiles, DoesNotDisturbTheCallerWithoutADirectory)
{
    WriteBytes(m_folder.Path() / "file", "kept");
    const TestVariable directory(L"QPTOOLS_LOG_DIR", (m_folder.Path() / "file" / "logs").wstring());
    SetLastError(1234);
    XQPError::WriteLogLine(L"UserActions", L"x");
    XQPError::WriteLogLine(L"..", L"x");
    XQPError::WriteLogLineToLogBook(L"s", L"f", 1, L"m");
    XQPError::WriteErrorToLogBook(L"s", L"f", 1, L"m", E_FAIL);
    EXPECT_EQ(XQPError::HandleComError(E_FAIL, L"s", L"m", 1, true, false), E_FAIL);
    EXPECT_EQ(XQPError::SetComError(L"s", L"f", 1, L"m", E_FAIL), E_FAIL);
    EXPECT_EQ(XQPError::HandleStandardError(L"s", L"f", 1, L"m", E_FAIL, true), E_FAIL);
    EXPECT_EQ(GetLastError(), 1234u);
    EXPECT_EQ(m_folder.Names(), Names{"file"});
    EXPECT_EQ(ReadBytes(m_folder.Path() / "file"), "kept");
}

TEST_F(LogFiles, DoesNotDisturbTheCallerWhenALogIsADirectory)
{
    std::filesystem::create_directories(m_folder.Path() / "UserActions.log" / "x");
    XQPError::WriteLogLine(L"UserActions", L"x");
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.Path() / "UserActions.log"));
}

TEST_F(LogFiles, KeepsTheThreadsLastErrorWhenItWrites)
{
    SetLastError(1234);
    XQPError::WriteLogLine(L"UserActions", L"x");
    XQPError::WriteLogLineToLogBook(L"s", L"f", 1, L"m");
    EXPECT_EQ(GetLastError(), 1234u);
}

TEST_F(LogFiles, AppendsAfterAWhileWhenAnotherNeverGivesTheLockBack)
{
    XQPError::WriteLogLine(L"UserActions", L"one\n");
    const std::wstring path = (m_folder.Path() / "UserActions.log").wstring();
    const CFileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(file);
    const CFileLock lock(file.Get());
    ASSERT_TRUE(lock.IsHeld());
    const ULONGLONG start = GetTickCount64();
    XQPError::WriteLogLine(L"UserActions", L"two\n");
    const ULONGLONG waited = GetTickCount64() - start;
    EXPECT_GE(waited, 900u) << "the lock was not respected";
    EXPECT_LT(waited, 10000u);
    EXPECT_EQ(Log("UserActions"), "one\ntwo\n");
}

constexpr std::string_view kWriters = "abcd";

// Counts the lines of each writer and checks that all are complete and each writer's are in order.
void ExpectAllLines(const std::vector<std::string>& lines, int count,
                    const std::function<std::string(const std::string&)>& textOf)
{
    std::map<char, int> next;
    for (const std::string& line : lines)
    {
        const std::string text = textOf(line);
        const char tag = text.empty() ? '?' : text.front();
        const int number = next[tag]++;
        const std::string whole = std::string(1, tag) + " " + std::to_string(number) + " " +
                                  std::string(static_cast<std::size_t>(number % 97), tag) + ".";
        ASSERT_EQ(text, whole);
    }
    std::map<char, int> all;
    for (const char tag : kWriters)
        all[tag] = count;
    EXPECT_EQ(next, all);
}

std::string AfterLastTab(const std::string& line)
{
    return line.substr(line.rfind('\t') + 1);
}

bool WaitFor(const std::filesystem::path& file)
{
    for (int waited = 0; waited < 20000; ++waited)
    {
        if (std::filesystem::exists(file))
            return true;
        Sleep(1);
    }
    return false;
}

TEST_F(LogFiles, LosesAndTearsNoLineOfSeveralProcesses)
{
    constexpr int count = 1500;
    std::vector<OtherProcess> writers;
    for (const char tag : kWriters)
        writers.push_back(
            OtherProcess("log_writer", {m_folder.Path(), std::string(1, tag), std::to_string(count)}));
    for (const char tag : kWriters)
        EXPECT_TRUE(WaitFor(m_folder.Path() / (std::string("ready-") + tag)));
    WriteBytes(m_folder.Path() / "go", "");
    for (OtherProcess& writer : writers)
        EXPECT_EQ(writer.Wait(), 0);
    ExpectAllLines(ReadLines(m_folder.Path() / "Shared.log"), count,
                   [](const std::string& line) { return line; });
    ExpectAllLines(ReadLines(m_folder.Path() / "logbook.log"), count, AfterLastTab);
}
} // namespace
