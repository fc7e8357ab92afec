#include "RegistryBackup.h"

#include "RegistryKey.h"
#include "TextCompare.h"

#include <algorithm>

namespace
{
template <class Named>
bool HasName(const std::vector<Named>& all, const std::wstring& name)
{
    return std::any_of(all.begin(), all.end(),
                       [&](const Named& one) { return SameIgnoringCase(one.name, name); });
}

LSTATUS ReadValues(HKEY key, std::vector<RegistryTree::Value>& values)
{
    DWORD longestName = 0;
    DWORD longestData = 0;
    const LSTATUS asked = RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                           &longestName, &longestData, nullptr, nullptr);
    if (asked != ERROR_SUCCESS)
        return asked;
    std::wstring name(longestName + 1, L'\0');
    std::vector<BYTE> data(longestData + 1);
    for (DWORD index = 0;; ++index)
    {
        DWORD type = 0;
        auto nameLength = static_cast<DWORD>(name.size());
        auto dataSize = static_cast<DWORD>(data.size());
        const LSTATUS code =
            RegEnumValueW(key, index, name.data(), &nameLength, nullptr, &type, data.data(), &dataSize);
        if (code != ERROR_SUCCESS)
            return code == ERROR_NO_MORE_ITEMS ? ERROR_SUCCESS : code;
        values.push_back({name.substr(0, nameLength), type, {data.begin(), data.begin() + dataSize}});
    }
}

/// Reads the tree at `path`. `existed` becomes false if there is no such key.
RegistryTree ReadTree(HKEY root, const std::wstring& path, std::wstring name, bool& existed)
{
    RegistryTree tree;
    tree.name = std::move(name);
    std::vector<std::wstring> subkeys;
    RegistryKey key;
    const LSTATUS opened = key.Open(root, path, KEY_READ);
    existed = opened != ERROR_FILE_NOT_FOUND;
    if (!existed)
        return tree;
    tree.readable = opened == ERROR_SUCCESS && ReadValues(key.get(), tree.values) == ERROR_SUCCESS &&
                    key.SubkeyNames(subkeys) == ERROR_SUCCESS;
    for (const std::wstring& subkey : subkeys)
    {
        bool there = false;
        RegistryTree below = ReadTree(root, path + L"\\" + subkey, subkey, there);
        if (there)
            tree.subkeys.push_back(std::move(below));
    }
    return tree;
}
} // namespace

RegistryBackup::RegistryBackup(HKEY root, std::wstring rootName, const std::wstring& path)
    : m_root(root), m_rootName(std::move(rootName)), m_tree(ReadTree(root, path, path, m_existed))
{
}

void RegistryBackup::Restore(RegistrationReport& report) const
{
    if (m_existed)
        RestoreKey(m_tree.name, m_tree, report);
    else
        Delete(m_tree.name, report);
}

void RegistryBackup::RestoreKey(const std::wstring& path, const RegistryTree& tree,
                                RegistrationReport& report) const
{
    if (!tree.readable)
        return;
    RegistryKey key;
    std::vector<std::wstring> present;
    LSTATUS code = key.Create(m_root, path, KEY_READ | KEY_WRITE);
    if (code == ERROR_SUCCESS)
        code = key.SubkeyNames(present);
    if (code != ERROR_SUCCESS)
    {
        Check(code, path, report);
        return;
    }
    for (const std::wstring& name : present)
    {
        if (!HasName(tree.subkeys, name))
            Delete(path + L"\\" + name, report);
    }
    RestoreValues(key.get(), path, tree, report);
    for (const RegistryTree& subkey : tree.subkeys)
        RestoreKey(path + L"\\" + subkey.name, subkey, report);
}

void RegistryBackup::RestoreValues(HKEY key, const std::wstring& path, const RegistryTree& tree,
                                   RegistrationReport& report) const
{
    std::vector<RegistryTree::Value> present;
    Check(ReadValues(key, present), path, report);
    for (const RegistryTree::Value& value : present)
    {
        if (!HasName(tree.values, value.name))
            Check(RegDeleteValueW(key, value.name.c_str()), path, report);
    }
    for (const RegistryTree::Value& value : tree.values)
    {
        const auto size = static_cast<DWORD>(value.data.size());
        Check(RegSetValueExW(key, value.name.c_str(), 0, value.type, value.data.data(), size), path, report);
    }
}

void RegistryBackup::Delete(const std::wstring& path, RegistrationReport& report) const
{
    std::wstring failedKey;
    Check(DeleteRegistryTree(m_root, path, failedKey), failedKey, report);
}

void RegistryBackup::Check(LSTATUS code, const std::wstring& path, RegistrationReport& report) const
{
    if (code != ERROR_SUCCESS)
        report.AddSystemError(m_rootName + L"\\" + path + L" (putting it back)", code);
}
