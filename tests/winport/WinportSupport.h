// What the tests of winport need beyond the API, in both builds.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <string>

/// The last error, signed, so that it compares with the constants without a warning.
inline int LastError()
{
    return static_cast<int>(GetLastError());
}

/// An identifier that no other test has.
GUID UniqueGuid();

/// The value of an environment variable, empty if it is not set.
std::wstring Variable(const wchar_t* name);

/// A directory that is empty at first and removed at the end, and paths in it.
class CScratchFolder
{
public:
    CScratchFolder();
    ~CScratchFolder();
    CScratchFolder(const CScratchFolder&) = delete;
    CScratchFolder& operator=(const CScratchFolder&) = delete;

    const std::wstring& Path() const { return m_path; }
    std::wstring operator/(const wchar_t* name) const { return m_path + L"\\" + name; }

private:
    std::wstring m_path;
};

/// Writes a file whole.
void WriteWhole(const std::wstring& path, const std::string& content);
std::string ReadWhole(const std::wstring& path);

/// A registry key of this process under HKEY_CURRENT_USER\Software, empty at first and removed at the end.
class CScratchKey
{
public:
    CScratchKey();
    ~CScratchKey();
    CScratchKey(const CScratchKey&) = delete;
    CScratchKey& operator=(const CScratchKey&) = delete;

    HKEY Handle() const { return m_key; }
    const std::wstring& Path() const { return m_path; } ///< beneath HKEY_CURRENT_USER

private:
    std::wstring m_path;
    HKEY m_key = nullptr;
};

/// Makes a key beneath HKEY_CURRENT_USER refuse access, or grant it again.
void DenyUserKey(const std::wstring& path, bool deny);

/// The full path of the test program.
std::wstring ProgramPath();

/// The full path of the tests' module, which is beside the program.
std::wstring TestModulePath();

/// Runs this program again with one test, which may be a disabled one; returns its exit status, 0 for
/// success.
int RunAgain(const std::string& test);
