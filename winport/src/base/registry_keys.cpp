// Registry functions: create, open, close, delete and enumerate keys.
#include "registry.h"

#include <algorithm>
#include <utility>

using namespace winport;

namespace
{
// Deletes everything below a key, up to the first key that denies access.
LSTATUS Empty(const CRegistry& registry, RegistryKey& key)
{
    while (!key.children.empty())
    {
        RegistryKey& child = *key.children.begin()->second;
        if (registry.IsDenied(child))
            return ERROR_ACCESS_DENIED;
        if (const LSTATUS status = Empty(registry, child); status != ERROR_SUCCESS)
            return status;
        CRegistry::Remove(child);
    }
    return ERROR_SUCCESS;
}

// The key to delete; null, with a status, if there is none. Predefined keys are not deleted.
std::shared_ptr<RegistryKey> ToDelete(CRegistry& registry, HKEY handle, std::wstring_view path,
                                      LSTATUS* status)
{
    const auto start = registry.Key(handle, 0, status);
    auto key = start ? CRegistry::Find(start, path) : nullptr;
    if (start && !key)
        *status = ERROR_FILE_NOT_FOUND;
    else if (key && (registry.IsDenied(*key) || !key->parent))
        *status = ERROR_ACCESS_DENIED;
    return *status == ERROR_SUCCESS ? key : nullptr;
}
} // namespace

LSTATUS RegCreateKeyExW(HKEY handle, LPCWSTR path, DWORD reserved, LPWSTR, DWORD, REGSAM access,
                        SECURITY_ATTRIBUTES*, HKEY* result, DWORD* disposition)
{
    if (!result || !path || reserved)
        return result && path ? ERROR_INVALID_PARAMETER : ERROR_BADKEY;
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        bool created = false;
        auto key = registry.Key(handle, 0, &status);
        if (key)
            key = registry.Create(std::move(key), path, &created, &status);
        if (!key)
            return status;
        *result = registry.Open(std::move(key), access);
        if (disposition)
            *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
        return ERROR_SUCCESS;
    });
}

LSTATUS RegOpenKeyExW(HKEY handle, LPCWSTR path, DWORD, REGSAM access, HKEY* result)
{
    if (!result)
        return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        auto key = registry.Key(handle, 0, &status);
        if (!key)
            return status;
        key = CRegistry::Find(std::move(key), NameView(path));
        if (!key)
            return ERROR_FILE_NOT_FOUND;
        if (registry.IsDenied(*key))
            return ERROR_ACCESS_DENIED;
        *result = registry.Open(std::move(key), access);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCloseKey(HKEY handle)
{
    return WithRegistry([&](CRegistry& registry) { return registry.Close(handle); });
}

LSTATUS RegDeleteKeyW(HKEY handle, LPCWSTR path)
{
    if (!path)
        return ERROR_INVALID_PARAMETER;
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const auto key = ToDelete(registry, handle, path, &status);
        if (!key)
            return status;
        if (!key->children.empty())
            return ERROR_ACCESS_DENIED;
        CRegistry::Remove(*key);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteTreeW(HKEY handle, LPCWSTR path)
{
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const bool itself = !NameView(path).empty();
        const auto key =
            itself ? ToDelete(registry, handle, path, &status) : registry.Key(handle, 0, &status);
        if (!key)
            return status;
        status = Empty(registry, *key);
        if (status != ERROR_SUCCESS)
            return status;
        if (itself)
            CRegistry::Remove(*key);
        else
            key->values.clear();
        return ERROR_SUCCESS;
    });
}

LSTATUS RegEnumKeyExW(HKEY handle, DWORD index, LPWSTR name, DWORD* size, DWORD*, LPWSTR className,
                      DWORD* classSize, FILETIME*)
{
    if (!name || !size)
        return ERROR_INVALID_PARAMETER;
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const auto key = registry.Key(handle, KEY_ENUMERATE_SUB_KEYS, &status);
        if (!key)
            return status;
        if (index >= key->children.size())
            return ERROR_NO_MORE_ITEMS;
        const std::wstring& found =
            std::next(key->children.begin(), static_cast<std::ptrdiff_t>(index))->first;
        if (*size <= found.size())
            return ERROR_MORE_DATA;
        *size = CopyOut(found, name, *size);
        if (className && classSize)
            *classSize = CopyOut({}, className, *classSize);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegQueryInfoKeyW(HKEY handle, LPWSTR className, DWORD* classSize, DWORD*, DWORD* subkeys,
                         DWORD* longestSubkey, DWORD* longestClass, DWORD* values, DWORD* longestValueName,
                         DWORD* longestValue, DWORD* security, FILETIME* written)
{
    const auto put = [](DWORD* target, std::size_t value) {
        if (target)
            *target = static_cast<DWORD>(value);
    };
    return WithRegistry([&](CRegistry& registry) -> LSTATUS {
        LSTATUS status = ERROR_SUCCESS;
        const auto key = registry.Key(handle, KEY_QUERY_VALUE, &status);
        if (!key)
            return status;
        std::size_t subkey = 0;
        std::size_t name = 0;
        std::size_t data = 0;
        for (const auto& child : key->children)
            subkey = std::max(subkey, child.first.size());
        for (const RegistryValue& value : key->values)
        {
            name = std::max(name, value.name.size());
            data = std::max(data, value.data.size());
        }
        put(subkeys, key->children.size());
        put(longestSubkey, subkey);
        put(longestClass, 0);
        put(values, key->values.size());
        put(longestValueName, name);
        put(longestValue, data);
        put(security, 0);
        if (className && classSize)
            *classSize = CopyOut({}, className, *classSize);
        if (written)
            *written = {};
        return ERROR_SUCCESS;
    });
}
