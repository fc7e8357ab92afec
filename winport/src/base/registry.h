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

/// One key. Handles to a deleted key keep it, marked as deleted.
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

    /// The key behind a handle that has all of the rights `access`. Sets `error` and gives null otherwise.
    std::shared_ptr<RegistryKey> Key(HKEY handle, DWORD access, LSTATUS* error);

    /// Makes a handle. `access` may name general rights.
    HKEY Open(std::shared_ptr<RegistryKey> key, DWORD access);
    LSTATUS Close(HKEY handle);

    /// Walks down from `key`; null if there is no such key.
    static std::shared_ptr<RegistryKey> Find(std::shared_ptr<RegistryKey> key, std::wstring_view path);

    /// Walks down from `key` and makes what is missing, which `created` tells. Null, with
    /// ERROR_ACCESS_DENIED, if the key itself or the one to make a key in refuses access.
    std::shared_ptr<RegistryKey> Create(std::shared_ptr<RegistryKey> key, std::wstring_view path,
                                        bool* created, LSTATUS* error);

    bool IsDenied(const RegistryKey& key) const { return m_denied.count(key.Path()) != 0; }
    void Deny(HKEY root, std::wstring_view path, bool deny);
    void Clear();

    /// Takes a key without children out of the tree.
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

/// Runs `body` with the registry locked; short memory is a status here, not a last error.
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

/// A name or path of which null means the empty one.
inline std::wstring_view NameView(LPCWSTR text)
{
    return text ? std::wstring_view(text) : std::wstring_view();
}
} // namespace winport
