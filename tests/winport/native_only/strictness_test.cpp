// Where the API is documented more strictly than every version of Windows is.
#include "WinportSupport.h"

#include <shellapi.h>
#include <winport_test.h>

#include <gtest/gtest.h>

#include <filesystem>

#include <objbase.h>

namespace
{
int OpenError(const std::wstring& path, DWORD access, DWORD disposition)
{
    SetLastError(0);
    HANDLE file = CreateFileW(path.c_str(), access, 0, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    const int error = LastError();
    if (file == INVALID_HANDLE_VALUE)
        return error;
    CloseHandle(file);
    return error;
}
} // namespace

TEST(WideCharToMultiByte, TakesNoDefaultCharacterForUtf8)
{
    char bytes[8];
    BOOL used = TRUE;
    SetLastError(0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, L"abc", 3, bytes, 8, nullptr, &used), 0);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"abc", 3, bytes, 8, "?", &used), 3);
    EXPECT_FALSE(used);
}

TEST(CommandLineWords, NeedALineAndACount)
{
    int count = 7;
    SetLastError(0);
    EXPECT_EQ(CommandLineToArgvW(nullptr, &count), nullptr);
    EXPECT_EQ(LastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(CommandLineToArgvW(L"a", nullptr), nullptr);
}

// Natively the tests may run as a user to whom no file is closed; the mark counts all the same.
TEST(ReadOnlyFiles, AreNotOpenedForWriting)
{
    const CScratchFolder folder;
    WriteWhole(folder / L"a", "x");
    std::filesystem::permissions(folder.Path() + L"/a", std::filesystem::perms::owner_read);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_WRITE, OPEN_EXISTING), ERROR_ACCESS_DENIED);
    EXPECT_EQ(OpenError(folder / L"a", FILE_APPEND_DATA, OPEN_ALWAYS), ERROR_ACCESS_DENIED);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_READ, CREATE_ALWAYS), ERROR_ACCESS_DENIED);
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_READ, OPEN_EXISTING), 0);
}

TEST(OpeningFiles, EmptiesNoneWithoutTheRightToWrite)
{
    const CScratchFolder folder;
    WriteWhole(folder / L"a", "x");
    EXPECT_EQ(OpenError(folder / L"a", GENERIC_READ, TRUNCATE_EXISTING), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(ReadWhole(folder / L"a"), "x");
}

TEST(FileLock, IsUnknownUnlessTaken)
{
    const CScratchFolder folder;
    OVERLAPPED at{};
    HANDLE file = CreateFileW((folder / L"a").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    SetLastError(0);
    EXPECT_FALSE(UnlockFileEx(file, 0, 1, 0, &at));
    EXPECT_EQ(LastError(), ERROR_NOT_LOCKED);
    CloseHandle(file);
}

TEST(DeniedKey, TakesNoNewKeysBeneathIt)
{
    const CScratchKey root;
    HKEY key = nullptr;
    const auto make = [&](const wchar_t* path) {
        return RegCreateKeyExW(root.Handle(), path, 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr);
    };
    ASSERT_EQ(make(L"Closed"), ERROR_SUCCESS);
    RegCloseKey(key);
    DenyUserKey(root.Path() + L"\\Closed", true);
    EXPECT_EQ(make(L"Closed\\New"), ERROR_ACCESS_DENIED);
    DenyUserKey(root.Path() + L"\\Closed", false);
}

TEST(DeniedKey, NeedNotExist)
{
    const CScratchKey root;
    HKEY key = nullptr;
    WinportDenyKey(HKEY_CURRENT_USER, (root.Path() + L"\\Closed").c_str(), true);
    EXPECT_EQ(RegCreateKeyExW(root.Handle(), L"closed", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegOpenKeyExW(root.Handle(), L"Closed", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    WinportDenyKey(HKEY_CURRENT_USER, (root.Path() + L"\\Closed").c_str(), false);
    EXPECT_EQ(RegCreateKeyExW(root.Handle(), L"Closed", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(key);
}

TEST(Creation, ReportsAMissingModule)
{
    const CLSID clsid = UniqueGuid();
    HKEY key = nullptr;
    IUnknown* object = nullptr;
    wchar_t text[40];
    StringFromGUID2(clsid, text, 40);
    const std::wstring path = std::wstring(L"CLSID\\") + text + L"\\InprocServer32";
    const std::wstring server = L"wpnosuchmodule.dll";
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
        ERROR_SUCCESS);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(server.c_str()),
                   static_cast<DWORD>((server.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                               reinterpret_cast<void**>(&object)),
              HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND));
    CoUninitialize();
}
