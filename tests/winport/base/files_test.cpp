// Files, directories, attributes and locks.
#include "WinportSupport.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
HANDLE Open(const std::wstring& path, DWORD access, DWORD disposition)
{
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

bool Write(HANDLE file, const std::string& text)
{
    DWORD written = 0;
    return WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
           written == text.size();
}

LARGE_INTEGER Large(LONGLONG value)
{
    LARGE_INTEGER large;
    large.QuadPart = value;
    return large;
}

// Opens and closes a file. Returns the error, or ERROR_SUCCESS.
int OpenError(const std::wstring& path, DWORD access, DWORD disposition)
{
    SetLastError(0);
    HANDLE file = Open(path, access, disposition);
    const int error = LastError();
    if (file == INVALID_HANDLE_VALUE)
        return error;
    CloseHandle(file);
    return error;
}

bool Lock(HANDLE file, DWORD offset, DWORD size, DWORD flags)
{
    OVERLAPPED at{};
    at.Offset = offset;
    return LockFileEx(file, flags, 0, size, 0, &at) != FALSE;
}

bool Unlock(HANDLE file, DWORD offset, DWORD size)
{
    OVERLAPPED at{};
    at.Offset = offset;
    return UnlockFileEx(file, 0, size, 0, &at) != FALSE;
}

constexpr DWORD kTryExclusive = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
constexpr DWORD kTryShared = LOCKFILE_FAIL_IMMEDIATELY;
constexpr DWORD kReadWrite = GENERIC_READ | GENERIC_WRITE;
} // namespace

TEST(OpeningFiles, MakesANewFileOnlyOnce)
{
    const CScratchFolder folder;
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_WRITE, CREATE_NEW), 0);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_WRITE, CREATE_NEW), ERROR_FILE_EXISTS);
}

TEST(OpeningFiles, OpensAnExistingFileAndReportsIt)
{
    const CScratchFolder folder;
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_READ, OPEN_EXISTING), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(OpenError(folder / L"b\\a", GENERIC_READ, OPEN_EXISTING), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_WRITE, OPEN_ALWAYS), 0);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_WRITE, OPEN_ALWAYS), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_READ, OPEN_EXISTING), 0);
}

TEST(OpeningFiles, EmptiesAFileOnDemand)
{
    const CScratchFolder folder;
    WriteWhole(folder / L"a", "old");
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_WRITE, CREATE_ALWAYS), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(ReadWhole(folder / L"a"), "");
    EXPECT_EQ(OpenError(folder / L"b", GENERIC_WRITE, TRUNCATE_EXISTING), ERROR_FILE_NOT_FOUND);
    WriteWhole(folder / L"a", "old");
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_WRITE, TRUNCATE_EXISTING), 0);
    EXPECT_EQ(ReadWhole(folder / L"a"), "");
}

TEST(OpeningFiles, RefusesWhatCannotBeOpened)
{
    const CScratchFolder folder;
    EXPECT_EQ(OpenError(folder.Path(), GENERIC_WRITE, OPEN_EXISTING), ERROR_ACCESS_DENIED);
    EXPECT_EQ(OpenError(folder / L"a*", GENERIC_WRITE, OPEN_ALWAYS), ERROR_INVALID_NAME);
    EXPECT_EQ(OpenError(std::wstring(), GENERIC_READ, OPEN_EXISTING), ERROR_PATH_NOT_FOUND);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_READ, 9), ERROR_INVALID_PARAMETER);
}

TEST(Reading, ReadsInPiecesAndThenNothing)
{
    const CScratchFolder folder;
    WriteWhole(folder / L"a", "abcde");
    HANDLE file = Open(folder / L"a", GENERIC_READ, OPEN_EXISTING);
    char buffer[4];
    DWORD read = 0;
    EXPECT_TRUE(ReadFile(file, buffer, 4, &read, nullptr));
    EXPECT_EQ(std::string(buffer, read), "abcd");
    EXPECT_TRUE(ReadFile(file, buffer, 4, &read, nullptr));
    EXPECT_EQ(std::string(buffer, read), "e");
    EXPECT_TRUE(ReadFile(file, buffer, 4, &read, nullptr));
    EXPECT_EQ(read, 0u);
    CloseHandle(file);
}

TEST(Reading, NeedsTheRight)
{
    const CScratchFolder folder;
    HANDLE file = Open(folder / L"a", GENERIC_WRITE, CREATE_NEW);
    char buffer[4];
    DWORD read = 7;
    SetLastError(0);
    EXPECT_FALSE(ReadFile(file, buffer, 4, &read, nullptr));
    EXPECT_EQ(LastError(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(read, 0u);
    CloseHandle(file);
    file = Open(folder / L"a", GENERIC_READ, OPEN_EXISTING);
    SetLastError(0);
    EXPECT_FALSE(WriteFile(file, "x", 1, &read, nullptr));
    EXPECT_EQ(LastError(), ERROR_ACCESS_DENIED);
    CloseHandle(file);
}

TEST(Writing, AppendsWhereverThePositionIs)
{
    const CScratchFolder folder;
    WriteWhole(folder / L"a", "123");
    HANDLE file = Open(folder / L"a", FILE_APPEND_DATA, OPEN_EXISTING);
    EXPECT_TRUE(Write(file, "4"));
    WriteWhole(folder / L"b", "");
    HANDLE other = Open(folder / L"a", FILE_APPEND_DATA, OPEN_EXISTING);
    EXPECT_TRUE(Write(other, "5"));
    EXPECT_TRUE(Write(file, "6"));
    CloseHandle(file);
    CloseHandle(other);
    EXPECT_EQ(ReadWhole(folder / L"a"), "123456");
}

TEST(Writing, AppendsAtAnOffsetOfAllOnesWhereverThePositionIs)
{
    const CScratchFolder folder;
    WriteWhole(folder / L"a", "123");
    HANDLE file = Open(folder / L"a", GENERIC_WRITE, OPEN_EXISTING);
    HANDLE other = Open(folder / L"a", GENERIC_WRITE, OPEN_EXISTING);
    const auto append = [](HANDLE to, const std::string& text) {
        OVERLAPPED end{};
        end.Offset = end.OffsetHigh = 0xFFFFFFFF;
        DWORD written = 0;
        return WriteFile(to, text.data(), static_cast<DWORD>(text.size()), &written, &end) &&
               written == text.size();
    };
    EXPECT_TRUE(append(file, "45"));
    EXPECT_TRUE(append(other, "6"));
    EXPECT_TRUE(append(file, "78"));
    EXPECT_TRUE(append(other, "9"));
    CloseHandle(file);
    CloseHandle(other);
    EXPECT_EQ(ReadWhole(folder / L"a"), "123456789");
}

TEST(Writing, WritesAtThePosition)
{
    const CScratchFolder folder;
    HANDLE file = Open(folder / L"a", kReadWrite, CREATE_NEW);
    LARGE_INTEGER position{};
    LARGE_INTEGER size{};
    EXPECT_TRUE(Write(file, "abcdef"));
    EXPECT_TRUE(SetFilePointerEx(file, Large(2), &position, FILE_BEGIN));
    EXPECT_EQ(position.QuadPart, 2);
    EXPECT_TRUE(Write(file, "XY"));
    EXPECT_TRUE(SetFilePointerEx(file, Large(-1), &position, FILE_CURRENT));
    EXPECT_EQ(position.QuadPart, 3);
    EXPECT_TRUE(SetFilePointerEx(file, Large(0), &position, FILE_END));
    EXPECT_EQ(position.QuadPart, 6);
    EXPECT_TRUE(GetFileSizeEx(file, &size));
    EXPECT_EQ(size.QuadPart, 6);
    SetLastError(0);
    EXPECT_FALSE(SetFilePointerEx(file, Large(-1), nullptr, FILE_BEGIN));
    EXPECT_EQ(LastError(), ERROR_NEGATIVE_SEEK);
    EXPECT_TRUE(SetFilePointerEx(file, Large(5), nullptr, FILE_BEGIN));
    EXPECT_TRUE(SetEndOfFile(file));
    CloseHandle(file);
    EXPECT_EQ(ReadWhole(folder / L"a"), "abXYe");
}

TEST(Closing, KnowsItsHandles)
{
    const CScratchFolder folder;
    HANDLE file = Open(folder / L"a", GENERIC_WRITE, CREATE_NEW);
    EXPECT_TRUE(CloseHandle(file));
    SetLastError(0);
    EXPECT_FALSE(CloseHandle(file));
    EXPECT_EQ(LastError(), ERROR_INVALID_HANDLE);
    DWORD written = 0;
    SetLastError(0);
    EXPECT_FALSE(WriteFile(file, "x", 1, &written, nullptr));
    EXPECT_EQ(LastError(), ERROR_INVALID_HANDLE);
}

TEST(Directories, AreMadeOnceAndUnderAnExistingOne)
{
    const CScratchFolder folder;
    EXPECT_TRUE(CreateDirectoryW((folder / L"a").c_str(), nullptr));
    SetLastError(0);
    EXPECT_FALSE(CreateDirectoryW((folder / L"a").c_str(), nullptr));
    EXPECT_EQ(LastError(), ERROR_ALREADY_EXISTS);
    SetLastError(0);
    EXPECT_FALSE(CreateDirectoryW((folder / L"b\\c").c_str(), nullptr));
    EXPECT_EQ(LastError(), ERROR_PATH_NOT_FOUND);
}

TEST(Paths, TakeSlashesAndBackslashes)
{
    const CScratchFolder folder;
    WriteWhole(folder / L"a", "x");
    for (const wchar_t* name : {L"/a", L"\\a"})
    {
        HANDLE file = Open(folder.Path() + name, GENERIC_READ, OPEN_EXISTING);
        EXPECT_TRUE(CloseHandle(file)) << name;
    }
    SetLastError(0);
    EXPECT_FALSE(CreateDirectoryW((folder.Path() + L"\\").c_str(), nullptr));
    EXPECT_EQ(LastError(), ERROR_ALREADY_EXISTS);
}

TEST(FileLock, ExcludesAnotherHandleOfTheSameProcess)
{
    const CScratchFolder folder;
    HANDLE first = Open(folder / L"a", kReadWrite, CREATE_NEW);
    HANDLE second = Open(folder / L"a", kReadWrite, OPEN_EXISTING);
    EXPECT_TRUE(Lock(first, 0, 10, LOCKFILE_EXCLUSIVE_LOCK));
    SetLastError(0);
    EXPECT_FALSE(Lock(second, 5, 10, kTryExclusive));
    EXPECT_EQ(LastError(), ERROR_LOCK_VIOLATION);
    EXPECT_FALSE(Lock(second, 0, 1, kTryShared));
    EXPECT_TRUE(Lock(second, 10, 10, kTryExclusive));
    EXPECT_TRUE(Unlock(first, 0, 10));
    EXPECT_TRUE(Lock(second, 5, 5, kTryExclusive));
    CloseHandle(second);
    EXPECT_TRUE(Lock(first, 5, 5, kTryExclusive));
    CloseHandle(first);
}

TEST(FileLock, IsSharedByReadersOnly)
{
    const CScratchFolder folder;
    HANDLE first = Open(folder / L"a", kReadWrite, CREATE_NEW);
    HANDLE second = Open(folder / L"a", GENERIC_READ, OPEN_EXISTING);
    EXPECT_TRUE(Lock(first, 0, 1, 0));
    EXPECT_TRUE(Lock(second, 0, 1, kTryShared));
    EXPECT_TRUE(Unlock(second, 0, 1));
    EXPECT_FALSE(Lock(second, 0, 1, kTryExclusive));
    CloseHandle(first);
    CloseHandle(second);
}

TEST(FileLock, ExcludesItsOwnHandleToo)
{
    const CScratchFolder folder;
    HANDLE file = Open(folder / L"a", kReadWrite, CREATE_NEW);
    EXPECT_TRUE(Lock(file, 0, 10, LOCKFILE_EXCLUSIVE_LOCK));
    SetLastError(0);
    EXPECT_FALSE(Lock(file, 5, 1, kTryExclusive));
    EXPECT_EQ(LastError(), ERROR_LOCK_VIOLATION);
    CloseHandle(file);
}

TEST(FileLock, IsUnlockedInThePiecesThatWereLocked)
{
    const CScratchFolder folder;
    HANDLE file = Open(folder / L"a", kReadWrite, CREATE_NEW);
    EXPECT_TRUE(Lock(file, 0, 10, LOCKFILE_EXCLUSIVE_LOCK));
    EXPECT_FALSE(Unlock(file, 0, 5));
    EXPECT_TRUE(Unlock(file, 0, 10));
    EXPECT_FALSE(Unlock(file, 0, 10));
    CloseHandle(file);
}

TEST(FileLock, ReachesBeyondAnyFile)
{
    const CScratchFolder folder;
    HANDLE first = Open(folder / L"a", kReadWrite, CREATE_NEW);
    HANDLE second = Open(folder / L"a", kReadWrite, OPEN_EXISTING);
    OVERLAPPED start{};
    EXPECT_TRUE(LockFileEx(first, LOCKFILE_EXCLUSIVE_LOCK, 0, 0xFFFFFFFF, 0xFFFFFFFF, &start));
    EXPECT_FALSE(Lock(second, 0x7FFFFFFF, 1, kTryExclusive));
    EXPECT_TRUE(UnlockFileEx(first, 0, 0xFFFFFFFF, 0xFFFFFFFF, &start));
    EXPECT_TRUE(Lock(second, 0x7FFFFFFF, 1, kTryExclusive));
    CloseHandle(first);
    CloseHandle(second);
}

TEST(FileLock, IsWaitedFor)
{
    const CScratchFolder folder;
    HANDLE first = Open(folder / L"a", kReadWrite, CREATE_NEW);
    ASSERT_TRUE(Lock(first, 0, 1, LOCKFILE_EXCLUSIVE_LOCK));
    std::thread second([&] {
        HANDLE file = Open(folder / L"a", kReadWrite, OPEN_EXISTING);
        EXPECT_TRUE(Lock(file, 0, 1, LOCKFILE_EXCLUSIVE_LOCK));
        Write(file, "2");
        CloseHandle(file);
    });
    Sleep(100);
    Write(first, "1");
    EXPECT_TRUE(Unlock(first, 0, 1));
    CloseHandle(first);
    second.join();
    // The second file's position is its own, so it wrote over the first byte, and did so last.
    EXPECT_EQ(ReadWhole(folder / L"a"), "2");
}

TEST(FileLock, ExcludesAnotherProcess)
{
    const CScratchFolder folder;
    HANDLE file = Open(folder / L"a", kReadWrite, CREATE_NEW);
    SetEnvironmentVariableW(L"WPTEST_LOCKED", (folder / L"a").c_str());
    ASSERT_TRUE(Lock(file, 0, 1, LOCKFILE_EXCLUSIVE_LOCK));
    EXPECT_NE(RunAgain("OtherProcess.DISABLED_CanLock"), 0);
    EXPECT_TRUE(Unlock(file, 0, 1));
    EXPECT_EQ(RunAgain("OtherProcess.DISABLED_CanLock"), 0);
    CloseHandle(file);
    SetEnvironmentVariableW(L"WPTEST_LOCKED", nullptr);
}

// Run by the test above, in a process of its own.
TEST(OtherProcess, DISABLED_CanLock)
{
    HANDLE file = Open(Variable(L"WPTEST_LOCKED"), kReadWrite, OPEN_EXISTING);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(Lock(file, 0, 1, kTryExclusive));
    CloseHandle(file);
}
