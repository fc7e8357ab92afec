// Carries a registry script out.
#pragma once

#include "RegistrationReport.h"
#include "RegistryBackup.h"
#include "RegistryScript.h"

#include <string>
#include <vector>

/// Writes what a script says, or takes it out. %MODULE% in names and texts becomes the module's path; nothing
/// else is replaced.
class RegistryWriter
{
public:
    RegistryWriter(std::wstring modulePath, RegistrationReport& report)
        : m_modulePath(std::move(modulePath)), m_report(report)
    {
    }

    /// Makes the keys and values in the script's order. The first failure ends it and its status is returned.
    HRESULT Apply(const RegistryScript& script);

    /// Takes out what Apply made: keys marked ForceRemove with all beneath them, plain keys once nothing is
    /// left beneath them, values. Goes on after a failure and returns the first one's status. What is not
    /// there is no failure.
    HRESULT Remove(const RegistryScript& script);

    /// The state, before Apply, of every key that the script makes or deletes, apart from those marked
    /// NoRemove.
    std::vector<RegistryBackup> BackUp(const RegistryScript& script) const;

private:
    /// Where the writer stands: the root, its name, the path from it.
    struct Place
    {
        const RegistryRoot* root;
        std::wstring path;

        Place Below(const std::wstring& name) const
        {
            return {root, path.empty() ? name : path + L"\\" + name};
        }
        std::wstring Shown() const { return path.empty() ? root->name : root->name + L"\\" + path; }
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
