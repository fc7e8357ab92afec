// The content of a registry key before a change, for restoring it.
#pragma once

#include "RegistrationReport.h"

#include <windows.h>

#include <string>
#include <vector>

/// A key with its values and subkeys. A key that cannot be read is not modified either.
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

/// Copies a key in the constructor; Restore writes it back.
class RegistryBackup
{
public:
    /// `rootName` is used in messages.
    RegistryBackup(HKEY root, std::wstring rootName, const std::wstring& path);

    /// Deletes subkeys and values added since, and writes the copied ones. Failures are reported.
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
