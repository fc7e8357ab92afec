// The registry.
#include "WinportSupport.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <vector>

namespace
{
constexpr DWORD kAll = KEY_ALL_ACCESS;

// Creates a key and closes it again.
LSTATUS Make(HKEY parent, const std::wstring& path, DWORD* disposition = nullptr)
{
    HKEY key = nullptr;
    const LSTATUS status =
        RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, kAll, nullptr, &key, disposition);
    if (status == ERROR_SUCCESS)
        RegCloseKey(key);
    return status;
}

LSTATUS TryOpen(HKEY parent, const std::wstring& path, REGSAM access = KEY_READ)
{
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, access, &key);
    if (status == ERROR_SUCCESS)
        RegCloseKey(key);
    return status;
}

LSTATUS SetText(HKEY key, const wchar_t* name, const std::wstring& text)
{
    return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

std::wstring Text(HKEY key, const wchar_t* name)
{
    wchar_t text[64] = L"";
    DWORD size = sizeof(text);
    DWORD type = REG_NONE;
    const LSTATUS status = RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
    return status == ERROR_SUCCESS && type == REG_SZ ? text : L"?";
}

std::vector<std::wstring> Subkeys(HKEY key)
{
    std::vector<std::wstring> names;
    wchar_t name[64];
    for (DWORD i = 0;; ++i)
    {
        DWORD size = 64;
        const LSTATUS status = RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS)
        {
            EXPECT_EQ(status, ERROR_NO_MORE_ITEMS);
            return names;
        }
        EXPECT_EQ(size, std::wcslen(name));
        names.emplace_back(name);
    }
}
} // namespace

TEST(RegistryKey, IsCreatedOnceAndThenOpened)
{
    const CScratchKey root;
    DWORD disposition = 0;
    EXPECT_EQ(Make(root.Handle(), L"One\\Two", &disposition), ERROR_SUCCESS);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_CREATED_NEW_KEY));
    EXPECT_EQ(Make(root.Handle(), L"One\\Two", &disposition), ERROR_SUCCESS);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_OPENED_EXISTING_KEY));
    EXPECT_EQ(TryOpen(root.Handle(), L"One"), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(root.Handle(), L"Two"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(TryOpen(HKEY_CURRENT_USER, root.Path() + L"\\One\\Two"), ERROR_SUCCESS);
}

TEST(RegistryKey, IsFoundInAnyCaseAndKeepsItsOwn)
{
    const CScratchKey root;
    EXPECT_EQ(Make(root.Handle(), L"MixedCase\u00c4"), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(root.Handle(), L"mIXEDcASE\u00e4"), ERROR_SUCCESS);
    EXPECT_EQ(Make(root.Handle(), L"MIXEDCASE\u00c4"), ERROR_SUCCESS);
    EXPECT_EQ(Subkeys(root.Handle()), std::vector<std::wstring>{L"MixedCase\u00c4"});
}

TEST(RegistryKey, OpensItselfByAnEmptyPath)
{
    const CScratchKey root;
    Make(root.Handle(), L"Child");
    HKEY same = nullptr;
    ASSERT_EQ(RegOpenKeyExW(root.Handle(), L"", 0, KEY_READ, &same), ERROR_SUCCESS);
    EXPECT_EQ(Subkeys(same), std::vector<std::wstring>{L"Child"});
    RegCloseKey(same);
    ASSERT_EQ(RegOpenKeyExW(root.Handle(), nullptr, 0, KEY_READ, &same), ERROR_SUCCESS);
    RegCloseKey(same);
}

TEST(RegistryKey, NeedsAValidHandle)
{
    const CScratchKey root;
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(root.Handle(), L"", 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(TryOpen(key, L"x"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Make(nullptr, L"x"), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegOpenKeyExW(root.Handle(), L"", 0, KEY_READ, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), ERROR_SUCCESS);
}

TEST(RegistryKey, AllowsWhatItWasOpenedFor)
{
    const CScratchKey root;
    Make(root.Handle(), L"Child");
    SetText(root.Handle(), L"v", L"1");
    HKEY reader = nullptr;
    HKEY writer = nullptr;
    ASSERT_EQ(RegOpenKeyExW(root.Handle(), L"", 0, KEY_READ, &reader), ERROR_SUCCESS);
    ASSERT_EQ(RegOpenKeyExW(root.Handle(), L"", 0, KEY_SET_VALUE, &writer), ERROR_SUCCESS);
    EXPECT_EQ(SetText(reader, L"v", L"2"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteValueW(reader, L"v"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegQueryValueExW(writer, L"v", nullptr, nullptr, nullptr, nullptr), ERROR_ACCESS_DENIED);
    wchar_t name[64];
    DWORD size = 64;
    EXPECT_EQ(RegEnumKeyExW(writer, 0, name, &size, nullptr, nullptr, nullptr, nullptr), ERROR_ACCESS_DENIED);
    EXPECT_EQ(SetText(writer, L"v", L"3"), ERROR_SUCCESS);
    EXPECT_EQ(Text(reader, L"v"), L"3");
    RegCloseKey(reader);
    RegCloseKey(writer);
}

TEST(RegistryKey, IsDeletedWithoutChildrenOnly)
{
    const CScratchKey root;
    Make(root.Handle(), L"One\\Two");
    EXPECT_EQ(RegDeleteKeyW(root.Handle(), L"One"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(root.Handle(), L"ONE\\two"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(root.Handle(), L"One"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(root.Handle(), L"One"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteKeyW(root.Handle(), nullptr), ERROR_INVALID_PARAMETER);
}

TEST(RegistryKey, StaysInOpenHandlesAsDeleted)
{
    const CScratchKey root;
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(root.Handle(), L"One", 0, nullptr, 0, kAll, nullptr, &key, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(root.Handle(), L"One"), ERROR_SUCCESS);
    EXPECT_EQ(SetText(key, L"v", L"1"), ERROR_KEY_DELETED);
    EXPECT_EQ(TryOpen(key, L"x"), ERROR_KEY_DELETED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
}

TEST(RegistryKey, IsDeletedWithAllBeneathIt)
{
    const CScratchKey root;
    Make(root.Handle(), L"One\\Two\\Three");
    Make(root.Handle(), L"One\\Four");
    EXPECT_EQ(RegDeleteTreeW(root.Handle(), L"One"), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(root.Handle(), L"One"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteTreeW(root.Handle(), L"One"), ERROR_FILE_NOT_FOUND);
}

TEST(RegistryKey, IsEmptiedByDeletingTheTreeOfNoName)
{
    const CScratchKey root;
    Make(root.Handle(), L"One\\Two");
    SetText(root.Handle(), L"v", L"1");
    EXPECT_EQ(RegDeleteTreeW(root.Handle(), nullptr), ERROR_SUCCESS);
    EXPECT_TRUE(Subkeys(root.Handle()).empty());
    EXPECT_EQ(RegQueryValueExW(root.Handle(), L"v", nullptr, nullptr, nullptr, nullptr),
              ERROR_FILE_NOT_FOUND);
}

TEST(RegistryKey, ListsItsSubkeysInOrder)
{
    const CScratchKey root;
    for (const wchar_t* name : {L"beta", L"Alpha", L"gamma"})
        Make(root.Handle(), name);
    EXPECT_EQ(Subkeys(root.Handle()), (std::vector<std::wstring>{L"Alpha", L"beta", L"gamma"}));
    wchar_t name[5] = L"";
    DWORD size = 5;
    EXPECT_EQ(RegEnumKeyExW(root.Handle(), 0, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
}

TEST(RegistryKey, CountsItsSubKeysAndValues)
{
    const CScratchKey root;
    Make(root.Handle(), L"four");
    Make(root.Handle(), L"sixsix");
    SetText(root.Handle(), nullptr, L"12345");
    SetText(root.Handle(), L"name", L"1");
    DWORD subkeys = 0;
    DWORD longestSubkey = 0;
    DWORD values = 0;
    DWORD longestName = 0;
    DWORD longestValue = 0;
    EXPECT_EQ(RegQueryInfoKeyW(root.Handle(), nullptr, nullptr, nullptr, &subkeys, &longestSubkey, nullptr,
                               &values, &longestName, &longestValue, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(subkeys, 2u);
    EXPECT_EQ(longestSubkey, 6u);
    EXPECT_EQ(values, 2u);
    EXPECT_EQ(longestName, 4u);
    EXPECT_EQ(longestValue, 6 * sizeof(wchar_t));
}

TEST(RegistryKey, OfClassesIsBeneathTheMachines)
{
    const std::wstring name = L"winport.test." + std::to_wstring(GetCurrentProcessId());
    ASSERT_EQ(Make(HKEY_CLASSES_ROOT, name), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(HKEY_LOCAL_MACHINE, L"Software\\Classes\\" + name), ERROR_SUCCESS);
    EXPECT_EQ(TryOpen(HKEY_CLASSES_ROOT, L"CLSID"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CLASSES_ROOT, name.c_str()), ERROR_SUCCESS);
}

TEST(RegistryValue, KeepsTextNumbersAndBytes)
{
    const CScratchKey root;
    const DWORD number = 0x12345678;
    const BYTE bytes[] = {1, 0, 2};
    EXPECT_EQ(SetText(root.Handle(), nullptr, L"default"), ERROR_SUCCESS);
    EXPECT_EQ(SetText(root.Handle(), L"Text", L"t\u00e4xt"), ERROR_SUCCESS);
    EXPECT_EQ(
        RegSetValueExW(root.Handle(), L"Number", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4),
        ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExW(root.Handle(), L"Bytes", 0, REG_BINARY, bytes, 3), ERROR_SUCCESS);

    EXPECT_EQ(Text(root.Handle(), nullptr), L"default");
    EXPECT_EQ(Text(root.Handle(), L""), L"default");
    EXPECT_EQ(Text(root.Handle(), L"TEXT"), L"t\u00e4xt");
    DWORD read = 0;
    DWORD size = 4;
    DWORD type = 0;
    EXPECT_EQ(
        RegQueryValueExW(root.Handle(), L"number", nullptr, &type, reinterpret_cast<BYTE*>(&read), &size),
        ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(read, number);
    BYTE back[8];
    size = 8;
    EXPECT_EQ(RegQueryValueExW(root.Handle(), L"Bytes", nullptr, &type, back, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_BINARY));
    EXPECT_EQ(size, 3u);
    EXPECT_EQ(std::memcmp(back, bytes, 3), 0);
}

TEST(RegistryValue, ReturnsItsSize)
{
    const CScratchKey root;
    SetText(root.Handle(), L"Text", L"1234");
    DWORD size = 0;
    DWORD type = 0;
    EXPECT_EQ(RegQueryValueExW(root.Handle(), L"Text", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 5 * sizeof(wchar_t));
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    wchar_t text[2] = L"";
    size = sizeof(text);
    EXPECT_EQ(
        RegQueryValueExW(root.Handle(), L"Text", nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size),
        ERROR_MORE_DATA);
    EXPECT_EQ(size, 5 * sizeof(wchar_t));
    EXPECT_EQ(
        RegQueryValueExW(root.Handle(), L"Text", nullptr, nullptr, reinterpret_cast<BYTE*>(text), nullptr),
        ERROR_INVALID_PARAMETER);
}

TEST(RegistryValue, IsReplacedAndDeleted)
{
    const CScratchKey root;
    SetText(root.Handle(), L"v", L"1");
    SetText(root.Handle(), L"V", L"22");
    EXPECT_EQ(Text(root.Handle(), L"v"), L"22");
    EXPECT_EQ(RegDeleteValueW(root.Handle(), L"v"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteValueW(root.Handle(), L"v"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegQueryValueExW(root.Handle(), nullptr, nullptr, nullptr, nullptr, nullptr),
              ERROR_FILE_NOT_FOUND);
}

TEST(RegistryValue, IsListed)
{
    const CScratchKey root;
    SetText(root.Handle(), nullptr, L"d");
    SetText(root.Handle(), L"one", L"1");
    SetText(root.Handle(), L"three", L"333");
    std::set<std::wstring> names;
    wchar_t name[8];
    for (DWORD i = 0; i < 3; ++i)
    {
        wchar_t text[8] = L"";
        DWORD nameSize = 8;
        DWORD size = sizeof(text);
        DWORD type = 0;
        ASSERT_EQ(RegEnumValueW(root.Handle(), i, name, &nameSize, nullptr, &type,
                                reinterpret_cast<BYTE*>(text), &size),
                  ERROR_SUCCESS);
        EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
        names.insert(std::wstring(name, nameSize) + L"=" + text);
    }
    EXPECT_EQ(names, (std::set<std::wstring>{L"=d", L"one=1", L"three=333"}));
    DWORD nameSize = 8;
    EXPECT_EQ(RegEnumValueW(root.Handle(), 3, name, &nameSize, nullptr, nullptr, nullptr, nullptr),
              ERROR_NO_MORE_ITEMS);
}

TEST(DeniedKey, RefusesToBeOpenedChangedAndDeleted)
{
    const CScratchKey root;
    Make(root.Handle(), L"Closed\\Open");
    DenyUserKey(root.Path() + L"\\Closed", true);
    EXPECT_EQ(TryOpen(root.Handle(), L"Closed"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Make(root.Handle(), L"closed"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(root.Handle(), L"Closed"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteTreeW(root.Handle(), L"Closed"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(TryOpen(root.Handle(), L"Closed\\Open"), ERROR_SUCCESS);
    DenyUserKey(root.Path() + L"\\Closed", false);
    EXPECT_EQ(TryOpen(root.Handle(), L"Closed"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteTreeW(root.Handle(), L"Closed"), ERROR_SUCCESS);
}

TEST(DeniedKey, StopsTheDeletionOfATreeAboveIt)
{
    const CScratchKey root;
    Make(root.Handle(), L"Tree\\Closed");
    DenyUserKey(root.Path() + L"\\Tree\\Closed", true);
    EXPECT_EQ(RegDeleteTreeW(root.Handle(), L"Tree"), ERROR_ACCESS_DENIED);
    DenyUserKey(root.Path() + L"\\Tree\\Closed", false);
    EXPECT_EQ(TryOpen(root.Handle(), L"Tree\\Closed"), ERROR_SUCCESS);
}
