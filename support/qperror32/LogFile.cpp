#include "LogFile.h"

#include "CFileHandle.h"
#include "CFileLock.h"

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

// Makes the directory and the missing ones above it. Failures show when the file is opened.
void MakeDirectory(const std::wstring& directory)
{
    for (std::size_t index = 1; index < directory.size(); ++index)
        if (IsSeparator(directory[index]) && !IsSeparator(directory[index - 1]))
            CreateDirectoryW(directory.substr(0, index).c_str(), nullptr);
    CreateDirectoryW(directory.c_str(), nullptr);
}

// Shared for everything: an operator may read, rename or delete a log at any time.
CFileHandle Open(const std::wstring& path)
{
    return CFileHandle(CreateFileW(path.c_str(), GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Nothing is known of the directory until a file in it cannot be opened: the usual append costs no look at
// it.
CFileHandle OpenInDirectory(const std::wstring& directory, const std::wstring& path)
{
    CFileHandle file = Open(path);
    const DWORD error = GetLastError();
    if (file || (error != ERROR_PATH_NOT_FOUND && error != ERROR_FILE_NOT_FOUND))
        return file;
    MakeDirectory(directory);
    return Open(path);
}

// Empty if there is no memory for it.
std::string Utf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr) != size)
        bytes.clear();
    return bytes;
}

void WriteAtEnd(HANDLE file, const std::string& bytes)
{
    // An append mode of the file alone is not enough: between the move to the end and the write another
    // process may write there. The lock makes the two one step.
    const CFileLock lock(file);
    LARGE_INTEGER end{};
    DWORD written = 0;
    if (SetFilePointerEx(file, end, nullptr, FILE_END))
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
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
        WriteAtEnd(file.Get(), Utf8(text));
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
