#include "WinportSupport.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#ifdef _WIN32
#include <aclapi.h>
#else
#include <winport_test.h>
#endif

GUID UniqueGuid()
{
    static std::atomic<WORD> last{0};
    GUID guid{GetCurrentProcessId(), ++last, 0x4000, {0x80}};
    const ULONGLONG now = GetTickCount64();
    std::memcpy(guid.Data4 + 2, &now, 6);
    return guid;
}

std::wstring Variable(const wchar_t* name)
{
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

namespace
{
std::wstring UniqueName()
{
    wchar_t text[40];
    StringFromGUID2(UniqueGuid(), text, 40);
    return text;
}
} // namespace

CScratchFolder::CScratchFolder() : m_path((std::filesystem::temp_directory_path() / UniqueName()).wstring())
{
    CreateDirectoryW(m_path.c_str(), nullptr);
}

CScratchFolder::~CScratchFolder()
{
    std::error_code failure;
    std::filesystem::remove_all(m_path, failure);
}

void WriteWhole(const std::wstring& path, const std::string& content)
{
    DWORD written = 0;
    HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
}

std::string ReadWhole(const std::wstring& path)
{
    char buffer[4096];
    DWORD read = 0;
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, 0, nullptr);
    ReadFile(file, buffer, sizeof(buffer), &read, nullptr);
    CloseHandle(file);
    return {buffer, read};
}

CScratchKey::CScratchKey() : m_path(L"Software\\" + UniqueName())
{
    RegCreateKeyExW(HKEY_CURRENT_USER, m_path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key,
                    nullptr);
}

CScratchKey::~CScratchKey()
{
    RegCloseKey(m_key);
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
}

void DenyUserKey(const std::wstring& path, bool deny)
{
#ifdef _WIN32
    // An empty access list grants nothing, a null list everything.
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, WRITE_DAC, &key);
    ACL list;
    InitializeAcl(&list, sizeof(list), ACL_REVISION);
    SECURITY_DESCRIPTOR descriptor;
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, deny ? &list : nullptr, FALSE);
    RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &descriptor);
    RegCloseKey(key);
#else
    WinportDenyKey(HKEY_CURRENT_USER, path.c_str(), deny);
#endif
}

std::wstring ProgramPath()
{
    wchar_t path[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    EXPECT_GT(length, 0u);
    return {path, length};
}

std::wstring TestModulePath()
{
    const std::wstring program = ProgramPath();
    return program.substr(0, program.find_last_of(L"/\\") + 1) + L"wptestmodule.dll";
}

int RunAgain(const std::string& test)
{
    const std::string arguments = " --gtest_also_run_disabled_tests --gtest_filter=" + test;
#ifdef _WIN32
    // The command processor takes off the outer quotation marks.
    const std::wstring line =
        L"\"\"" + ProgramPath() + L"\"" + std::wstring(arguments.begin(), arguments.end()) + L" >NUL 2>&1\"";
    return _wsystem(line.c_str());
#else
    char program[4 * MAX_PATH];
    WideCharToMultiByte(CP_UTF8, 0, ProgramPath().c_str(), -1, program, sizeof(program), nullptr, nullptr);
    return std::system(("\"" + std::string(program) + "\"" + arguments + " >/dev/null 2>&1").c_str());
#endif
}
