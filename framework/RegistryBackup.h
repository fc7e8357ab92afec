// What a registry key held before it was changed, and the way back.
#pragma once

#include "RegistrationReport.h"

#include <windows.h>

#include <string>
#include <vector>

/// A key with its values and all beneath it. What may not be read is not touched either.
struct RegistryTree
{
    struct Value
    {
        std::wstring name;
        DWORD type;
        std::vector<BYTE> data;
    };

    std::wstring name;
    bool readable = true;
    std::vector<Value> values;
    std::vector<RegistryTree> subkeys;
};

/// Reads a key when it is made and puts the key back as it was when asked.
class RegistryBackup
{
public:
    /// `rootName` is for messages.
    RegistryBackup(HKEY root, std::wstring rootName, const std::wstring& path);

    /// Deletes what has come since, writes again what is gone or changed. What cannot be put back is
    /// reported.
    void Restore(RegistrationReport& report) const;

private:
    void RestoreKey(const std::wstring& path, const RegistryTree& tree, RegistrationReport& report) const;
    void RestoreValues(HKEY key, const std::wstring& path, const RegistryTree& tree,
                       RegistrationReport& report) const;
    void Delete(const std::wstring& path, RegistrationReport& report) const;
    void Check(LSTATUS code, const std::wstring& path, RegistrationReport& report) const;

    HKEY m_root;
    std::wstring m_rootName;
    bool m_existed;
    RegistryTree m_tree; ///< its name is the path from the root
};
