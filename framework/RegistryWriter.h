// Applies a registry script.
#pragma once

#include "RegistrationReport.h"
#include "RegistryBackup.h"
#include "RegistryScript.h"

#include <string>
#include <vector>

/// Writes the keys of a script, or removes them. %MODULE% in names and texts is replaced by the module's
/// path.
class RegistryWriter
{
public:
    RegistryWriter(std::wstring modulePath, RegistrationReport& report)
        : m_modulePath(std::move(modulePath)), m_report(report)
    {
    }

    /// Creates the keys and values in the script's order. Stops at the first failure and returns its status.
    HRESULT Apply(const RegistryScript& script);

    /// Removes what Apply creates: keys marked ForceRemove with their subkeys, plain keys if they are empty
    /// then, values. Continues after a failure and returns the first status. A key or value that does not
    /// exist is not a failure.
    HRESULT Remove(const RegistryScript& script);

    /// Copies, before Apply, every key that the script creates or deletes, except those marked NoRemove.
    std::vector<RegistryBackup> BackUp(const RegistryScript& script) const;

private:
    /// A key: its root and the path from there.
    struct Place
    {
        const RegistryRoot* root;
        std::wstring path;

        Place Below(const std::wstring& name) const
        {
            if (path.empty())
                return {root, name};
            return {root, path + L"\\" + name};
        }
        std::wstring Shown() const
        {
            if (path.empty())
                return root->name;
            return root->name + L"\\" + path;
        }
    };

    HRESULT ApplyNode(const Place& around, const RegistryNode& node);
    HRESULT ApplyKey(const Place& key, const RegistryNode& node);
    HRESULT SetValue(const Place& key, const std::wstring& name, const RegistryNode::Data& data);
    HRESULT RemoveNode(const Place& around, const RegistryNode& node);
    HRESULT RemoveIfEmpty(const Place& key);
    HRESULT RemoveValue(const Place& key, const std::wstring& name);
    HRESULT DeleteTree(const Place& key);
    HRESULT Report(const Place& place, LSTATUS code);
    void BackUpNodes(const Place& around, const std::vector<RegistryNode>& nodes,
                     std::vector<RegistryBackup>& backups) const;
    std::wstring Expand(std::wstring text) const;

    std::wstring m_modulePath;
    RegistrationReport& m_report;
};
