#include "LogFile.h"

#include "CFileHandle.h"
#include "CFileLock.h"

#include "Utf8.h"

#include <windows.h>

namespace
{
std::wstring Variable(const wchar_t* name)
{
    wchar_t buffer[MAX_PATH];
    const DWORD length = GetEnvironmentVariableW(name, buffer, MAX_PATH);
    if (length < MAX_PATH)
        return {buffer, length};
    std::wstring value(length, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), length));
    return value;
}

bool IsSeparator(wchar_t character)
{
    return character == L'\\' || character == L'/';
}

// Creates the directory and its missing parents. A failure shows when the file is opened.
void MakeDirectory(const std::wstring& directory)
{
    for (std::size_t index = 1; index < directory.size(); ++index)
        if (IsSeparator(directory[index]))
            CreateDirectoryW(directory.substr(0, index).c_str(), nullptr);
    CreateDirectoryW(directory.c_str(), nullptr);
}

// All sharing modes: an operator may read, rename or delete a log at any time.
CFileHandle Open(const std::wstring& path)
{
    return CFileHandle(CreateFileW(path.c_str(), GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// The directory is created only after opening the file failed, so that the usual append does not check for
// it.
CFileHandle OpenInDirectory(const std::wstring& directory, const std::wstring& path)
{
    CFileHandle file = Open(path);
    if (file || GetLastError() != ERROR_PATH_NOT_FOUND)
        return file;
    MakeDirectory(directory);
    return Open(path);
}

// Appends as much of `bytes` as one system call writes and removes that from `bytes`. The offset of all ones
// means the end of the file at the time of the write: a system that appends atomically overwrites no other
// writer's bytes, even without the lock. Returns false if trying again is useless.
bool AppendSome(HANDLE file, std::string_view& bytes)
{
    OVERLAPPED end{};
    end.Offset = end.OffsetHigh = 0xFFFFFFFF;
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, &end);
    bytes.remove_prefix(written);
    return written > 0;
}

// Truncates the file to `start`, unless another writer has appended after the `written` bytes.
void TakeBack(HANDLE file, LARGE_INTEGER start, std::size_t written)
{
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file, &size) && size.QuadPart == start.QuadPart + static_cast<LONGLONG>(written) &&
        SetFilePointerEx(file, start, nullptr, FILE_BEGIN))
        SetEndOfFile(file);
}

// The lock covers what appending alone does not: systems and network drives on which seeking to the end and
// writing are two steps, a text that takes several writes, and removing the part that fitted on a full disk.
void AppendWhole(HANDLE file, std::string_view bytes)
{
    const CFileLock lock(file);
    LARGE_INTEGER start{}; // 0 if it cannot be told: TakeBack then accepts no file but one that was empty
    GetFileSizeEx(file, &start);
    std::string_view left = bytes;
    while (!left.empty() && AppendSome(file, left))
    {
    }
    if (!left.empty() && left.size() < bytes.size() && lock.IsHeld())
        TakeBack(file, start, bytes.size() - left.size());
}
} // namespace

void AppendToLog(std::wstring_view name, std::wstring_view text)
{
    const std::wstring directory = LogDirectory();
    if (directory.empty() || text.empty())
        return;
    std::wstring path = directory;
    path.append(L"\\").append(name).append(L".log");
    if (const CFileHandle file = OpenInDirectory(directory, path))
        AppendWhole(file.Get(), Utf8FromWide(text));
}

std::wstring LogDirectory()
{
    std::wstring directory = Variable(L"QPTOOLS_LOG_DIR");
    if (directory.empty())
    {
        directory = Variable(L"LOCALAPPDATA");
        if (!directory.empty())
            directory += L"\\qptools\\logs";
    }
    while (directory.size() > 1 && IsSeparator(directory.back()))
        directory.pop_back();
    return directory;
}
