#include "RegistrySnapshot.h"

#include <cwchar>
#include <utility>
#include <vector>

namespace
{
using Snapshot = std::map<std::wstring, std::wstring>;

std::wstring DataText(DWORD type, const std::vector<BYTE>& data)
{
    if (type == REG_SZ)
    {
        const auto* text = reinterpret_cast<const wchar_t*>(data.data());
        return {text, wcsnlen(text, data.size() / sizeof(wchar_t))};
    }
    std::wstring text = L"type " + std::to_wstring(type) + L":";
    for (const BYTE byte : data)
        text += L" " + std::to_wstring(byte);
    return text;
}

void AddValues(HKEY key, const std::wstring& path, Snapshot& snapshot)
{
    for (DWORD i = 0;; ++i)
    {
        wchar_t name[256];
        DWORD length = 256;
        DWORD type = 0;
        DWORD size = 0;
        if (RegEnumValueW(key, i, name, &length, nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            return;
        std::vector<BYTE> data(size + sizeof(wchar_t));
        RegQueryValueExW(key, name, nullptr, &type, data.data(), &size);
        data.resize(size);
        snapshot[path + L" -> " + (length > 0 ? name : L"(default)")] = DataText(type, data);
    }
}

std::vector<std::wstring> SubkeysOf(HKEY key)
{
    std::vector<std::wstring> names;
    for (DWORD i = 0;; ++i)
    {
        wchar_t name[256];
        DWORD length = 256;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return names;
        names.emplace_back(name, length);
    }
}

void AddKey(const std::wstring& path, Snapshot& snapshot)
{
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key);
    if (status != ERROR_SUCCESS)
    {
        if (status != ERROR_FILE_NOT_FOUND)
            snapshot[path] = L"unreadable";
        return;
    }
    snapshot[path] = L"key";
    AddValues(key, path, snapshot);
    for (const std::wstring& name : SubkeysOf(key))
        AddKey(path + L"\\" + name, snapshot);
    RegCloseKey(key);
}
} // namespace

Snapshot ClassesSnapshot(const std::wstring& path)
{
    Snapshot snapshot;
    AddKey(path, snapshot);
    return snapshot;
}

std::wstring SpellingOf(const std::wstring& path, const std::wstring& name)
{
    HKEY key = nullptr;
    std::wstring spelling;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return spelling;
    for (const std::wstring& candidate : SubkeysOf(key))
    {
        if (_wcsicmp(candidate.c_str(), name.c_str()) == 0)
            spelling = candidate;
    }
    RegCloseKey(key);
    return spelling;
}

void MakeClassesKey(const std::wstring& path, const std::wstring& value)
{
    RegSetValueW(HKEY_CLASSES_ROOT, path.c_str(), REG_SZ, value.c_str(), 0);
}

void DeleteClassesKey(const std::wstring& path)
{
    RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str());
}

CLockedClassesKey::CLockedClassesKey(std::wstring path) : m_path(std::move(path))
{
    RegCreateKeyExW(HKEY_CLASSES_ROOT, m_path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key,
                    nullptr);
    alignas(ACL) BYTE list[sizeof(ACL)];
    auto* nobody = reinterpret_cast<ACL*>(list);
    InitializeAcl(nobody, sizeof list, ACL_REVISION);
    SetAccess(nobody);
}

CLockedClassesKey::~CLockedClassesKey()
{
    SetAccess(nullptr);
    RegCloseKey(m_key);
    DeleteClassesKey(m_path);
}

void CLockedClassesKey::SetAccess(ACL* list)
{
    SECURITY_DESCRIPTOR descriptor;
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
    RegSetKeySecurity(m_key, DACL_SECURITY_INFORMATION, &descriptor);
}
