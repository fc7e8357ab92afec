// The registry as a tree in memory. One lock guards all of it; the functions of the API take it.
#pragma once

#include "text.h"

#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace winport
{
struct RegistryValue
{
    std::wstring name; ///< empty for the default value
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
};

/// One key. Open handles keep a deleted key alive, marked as deleted.
struct RegistryKey
{
    RegistryKey* parent = nullptr;
    std::wstring name;
    std::map<std::wstring, std::shared_ptr<RegistryKey>, LessNoCase> children;
    std::vector<RegistryValue> values;
    bool deleted = false;

    RegistryValue* Value(std::wstring_view valueName);

    /// The path from the root on, each name preceded by a backslash.
    std::wstring Path() const;
};

class CRegistry
{
public:
    static CRegistry& Instance();

    std::mutex lock;

    /// Returns the key of a handle that has all rights in `access`; otherwise sets `error` and returns null.
    std::shared_ptr<RegistryKey> Key(HKEY handle, DWORD access, LSTATUS* error);

    /// Creates a handle. `access` may contain generic rights.
    HKEY Open(std::shared_ptr<RegistryKey> key, DWORD access);
    LSTATUS Close(HKEY handle);

    /// Returns the key at a path below `key`; null if there is none.
    static std::shared_ptr<RegistryKey> Find(std::shared_ptr<RegistryKey> key, std::wstring_view path);

    /// Returns the key at a path below `key`, and creates missing keys; `created` tells whether. Null, with
    /// ERROR_ACCESS_DENIED, if the key itself or the parent of a key to create denies access.
    std::shared_ptr<RegistryKey> Create(std::shared_ptr<RegistryKey> key, std::wstring_view path,
                                        bool* created, LSTATUS* error);

    bool IsDenied(const RegistryKey& key) const { return m_denied.count(key.Path()) != 0; }
    void Deny(HKEY root, std::wstring_view path, bool deny);
    void Clear();

    /// Removes a key without children from the tree.
    static void Remove(RegistryKey& key);

private:
    struct Handle
    {
        std::shared_ptr<RegistryKey> key;
        DWORD access = 0;
    };

    CRegistry();
    std::shared_ptr<RegistryKey> Predefined(HKEY handle) const;
    void Plant();

    std::shared_ptr<RegistryKey> m_machine;
    std::shared_ptr<RegistryKey> m_user;
    std::shared_ptr<RegistryKey> m_classes; ///< HKEY_LOCAL_MACHINE\Software\Classes
    std::map<ULONG_PTR, Handle> m_handles;
    std::set<std::wstring, LessNoCase> m_denied;
    ULONG_PTR m_lastHandle = 0;
};

/// Runs `body` with the registry locked. Out of memory is returned as a status; the last error is not set.
template <class F>
LSTATUS WithRegistry(F&& body) noexcept
{
    try
    {
        CRegistry& registry = CRegistry::Instance();
        const std::lock_guard lock(registry.lock);
        return body(registry);
    }
    catch (...)
    {
        return ERROR_OUTOFMEMORY;
    }
}

/// The name or path; empty if it is null.
inline std::wstring_view NameView(LPCWSTR text)
{
    return text ? std::wstring_view(text) : std::wstring_view();
}
} // namespace winport
