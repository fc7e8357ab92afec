#include "TestRegistry.h"

#include "RegistryKey.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <aclapi.h>
#else
#include <winport_test.h>
#endif

namespace
{
void Expect(LSTATUS code, const char* what)
{
    if (code == ERROR_SUCCESS)
        return;
    std::fprintf(stderr, "TestRegistry: %s, error %d\n", what, static_cast<int>(code));
    std::abort();
}

std::wstring Shown(DWORD type, const std::vector<BYTE>& data)
{
    std::wstring text = std::to_wstring(type) + L":";
    if (type == REG_SZ && data.size() >= sizeof(wchar_t))
        return text +
               std::wstring(reinterpret_cast<const wchar_t*>(data.data()), data.size() / sizeof(wchar_t) - 1);
    for (const BYTE byte : data)
        text += std::to_wstring(byte) + L",";
    return text;
}

#ifdef _WIN32
/// Sets the access list of a key of which nothing but its security may be touched.
void SetAccess(const std::wstring& path, ACL* list)
{
    RegistryKey key;
    Expect(key.Open(HKEY_CLASSES_ROOT, path, WRITE_DAC), "opening a key for its security");
    SECURITY_DESCRIPTOR security;
    InitializeSecurityDescriptor(&security, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&security, TRUE, list, FALSE);
    Expect(RegSetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, &security), "setting a key's security");
}
#endif
} // namespace

#ifdef _WIN32
TestRegistry::TestRegistry()
{
    static int made = 0;
    m_place = L"Software\\qptools tests\\" + std::to_wstring(GetCurrentProcessId()) + L"." +
              std::to_wstring(++made);
    RegDeleteTreeW(HKEY_CURRENT_USER, m_place.c_str());
    RegistryKey key;
    Expect(key.Create(HKEY_CURRENT_USER, m_place, KEY_ALL_ACCESS), "making the test's registry");
    Expect(RegOverridePredefKey(HKEY_CLASSES_ROOT, key.get()), "putting it in place");
}

TestRegistry::~TestRegistry()
{
    for (const std::wstring& path : m_denied)
        SetAccess(path, nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, m_place.c_str());
}

void TestRegistry::Deny(const std::wstring& path)
{
    ACL empty;
    InitializeAcl(&empty, sizeof(empty), ACL_REVISION);
    SetAccess(path, &empty);
    m_denied.push_back(path);
}

void TestRegistry::Allow(const std::wstring& path)
{
    SetAccess(path, nullptr);
    m_denied.erase(std::remove(m_denied.begin(), m_denied.end(), path), m_denied.end());
}
#else
TestRegistry::TestRegistry()
{
    WinportClearRegistry();
}

TestRegistry::~TestRegistry()
{
    WinportClearRegistry();
}

void TestRegistry::Deny(const std::wstring& path)
{
    WinportDenyKey(HKEY_CLASSES_ROOT, path.c_str(), true);
}

void TestRegistry::Allow(const std::wstring& path)
{
    WinportDenyKey(HKEY_CLASSES_ROOT, path.c_str(), false);
}
#endif

void TestRegistry::Put(const std::wstring& path, const std::wstring& value)
{
    RegistryKey key;
    Expect(key.Create(HKEY_CLASSES_ROOT, path, KEY_WRITE), "making a key");
    Expect(key.SetText({}, value), "setting a default value");
}

void TestRegistry::PutValue(const std::wstring& path, const std::wstring& name, DWORD type,
                            const std::vector<BYTE>& data)
{
    RegistryKey key;
    Expect(key.Create(HKEY_CLASSES_ROOT, path, KEY_WRITE), "making a key");
    Expect(RegSetValueExW(key.get(), name.c_str(), 0, type, data.data(), static_cast<DWORD>(data.size())),
           "setting a value");
}

bool TestRegistry::Has(const std::wstring& path) const
{
    return RegistryKeyExists(HKEY_CLASSES_ROOT, path);
}

std::wstring TestRegistry::Text(const std::wstring& path, const std::wstring& name) const
{
    RegistryKey key;
    wchar_t text[1024] = {};
    DWORD type = REG_NONE;
    DWORD size = sizeof(text) - sizeof(wchar_t);
    if (key.Open(HKEY_CLASSES_ROOT, path, KEY_READ) != ERROR_SUCCESS ||
        RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text), &size) !=
            ERROR_SUCCESS ||
        type != REG_SZ)
        return L"(none)";
    return text;
}

std::vector<std::wstring> TestRegistry::Dump(const std::wstring& path) const
{
    std::vector<std::wstring> lines;
    DumpKey(path, lines);
    std::sort(lines.begin(), lines.end());
    return lines;
}

void TestRegistry::DumpKey(const std::wstring& path, std::vector<std::wstring>& lines) const
{
    RegistryKey key;
    if (key.Open(HKEY_CLASSES_ROOT, path, KEY_READ) != ERROR_SUCCESS)
    {
        lines.push_back(path + L" (closed)");
        return;
    }
    lines.push_back(path);
    for (DWORD index = 0;; ++index)
    {
        wchar_t name[256];
        std::vector<BYTE> data(4096);
        DWORD length = 256;
        DWORD type = REG_NONE;
        auto size = static_cast<DWORD>(data.size());
        if (RegEnumValueW(key.get(), index, name, &length, nullptr, &type, data.data(), &size) !=
            ERROR_SUCCESS)
            break;
        data.resize(size);
        lines.push_back(path + L" [" + name + L"] " + Shown(type, data));
    }
    std::vector<std::wstring> below;
    Expect(key.SubkeyNames(below), "listing keys");
    for (const std::wstring& name : below)
        DumpKey(path.empty() ? name : path + L"\\" + name, lines);
}
