// The logs when the lock cannot be acquired and when the disk is full. Natively only.
#include "CFileHandle.h"
#include "CFileLock.h"
#include "TestFolder.h"
#include "XQPError.h"

#include <gtest/gtest.h>

#include <csignal>
#include <map>
#include <sys/resource.h>
#include <thread>

namespace
{
// The disk is full for files of this process that are as large as `size`.
class FullDisk
{
public:
    explicit FullDisk(std::size_t size)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{static_cast<rlim_t>(size), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

// Logs go to a folder of the test's own.
class LogsOnDisk : public testing::Test
{
protected:
    CFileHandle OpenLog() const
    {
        return CFileHandle(CreateFileW(m_log.wstring().c_str(), GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                       OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    }

    TestFolder m_folder;
    TestVariable m_directory{L"QPTOOLS_LOG_DIR", m_folder.Path().wstring()};
    std::filesystem::path m_log = m_folder.Path() / "UserActions.log";
};
} // namespace

TEST_F(LogsOnDisk, LeavesNoHalfOfALineOnAFullDisk)
{
    XQPError::WriteLogLine(L"UserActions", L"one\n");
    {
        const FullDisk disk(10);
        XQPError::WriteLogLine(L"UserActions", L"too long a line\n");
        EXPECT_EQ(ReadBytes(m_log), "one\n");
        XQPError::WriteLogLine(L"UserActions", L"short\n");
        EXPECT_EQ(ReadBytes(m_log), "one\nshort\n");
        XQPError::WriteLogLine(L"UserActions", L"none\n");
    }
    XQPError::WriteLogLine(L"UserActions", L"two\n");
    EXPECT_EQ(ReadBytes(m_log), "one\nshort\ntwo\n");
}

TEST_F(LogsOnDisk, TakesNothingBackWithoutTheLock)
{
    XQPError::WriteLogLine(L"UserActions", L"one\n");
    const CFileHandle file = OpenLog();
    const CFileLock lock(file.Get());
    ASSERT_TRUE(lock.IsHeld());
    const FullDisk disk(10);
    XQPError::WriteLogLine(L"UserActions", L"too long a line\n");
    EXPECT_EQ(ReadBytes(m_log), "one\ntoo lo") << "what stands there may be another writer's";
}

TEST_F(LogsOnDisk, OverwritesNoLineIfTheLockIsNeverReleased)
{
    const CFileHandle file = OpenLog();
    const CFileLock lock(file.Get());
    ASSERT_TRUE(lock.IsHeld());
    constexpr std::size_t writers = 8;
    constexpr std::size_t lines = 3;
    constexpr std::size_t length = 300000; // long enough for the writers to meet within a line
    std::vector<std::thread> threads;
    for (std::size_t writer = 0; writer < writers; ++writer)
        threads.emplace_back([writer] {
            const auto letter = static_cast<wchar_t>(L'a' + writer);
            for (std::size_t line = 0; line < lines; ++line)
                XQPError::WriteLogLine(L"UserActions", (std::wstring(length, letter) + L'\n').c_str());
        });
    for (std::thread& thread : threads)
        thread.join();
    std::map<char, std::size_t> whole;
    for (const std::string& line : ReadLines(m_log))
    {
        ASSERT_TRUE(line.size() == length && line.find_first_not_of(line.front()) == std::string::npos);
        ++whole[line.front()];
    }
    EXPECT_EQ(whole.size(), writers);
    for (const auto& [letter, count] : whole)
        EXPECT_EQ(count, lines) << letter;
}
