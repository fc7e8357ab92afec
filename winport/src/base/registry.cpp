#include "registry.h"

#include <winport_test.h>

#include <algorithm>
#include <utility>

namespace winport
{
namespace
{
// Removes the first name from a path and returns it.
std::wstring_view NextName(std::wstring_view& path)
{
    const std::size_t end = path.find(L'\\');
    const std::wstring_view name = path.substr(0, end);
    path = end == std::wstring_view::npos ? std::wstring_view() : path.substr(end + 1);
    return name;
}

DWORD SpecificRights(DWORD access)
{
    constexpr DWORD kMaximumAllowed = 0x02000000;
    constexpr DWORD kGenericAll = 0x10000000;
    if ((access & (kMaximumAllowed | kGenericAll)) != 0)
        access |= KEY_ALL_ACCESS;
    if ((access & GENERIC_READ) != 0)
        access |= KEY_READ;
    if ((access & GENERIC_WRITE) != 0)
        access |= KEY_WRITE;
    return access;
}

void MarkDeleted(RegistryKey& key)
{
    key.deleted = true;
    key.parent = nullptr;
    for (auto& [name, child] : key.children)
        MarkDeleted(*child);
}
} // namespace

RegistryValue* RegistryKey::Value(std::wstring_view valueName)
{
    const auto found = std::find_if(values.begin(), values.end(), [&](const RegistryValue& value) {
        return CompareNoCase(value.name, valueName) == 0;
    });
    return found == values.end() ? nullptr : &*found;
}

std::wstring RegistryKey::Path() const
{
    return (parent ? parent->Path() : std::wstring()) + L"\\" + name;
}

CRegistry::CRegistry()
{
    Plant();
}

CRegistry& CRegistry::Instance()
{
    static CRegistry& registry = *new CRegistry;
    return registry;
}

void CRegistry::Plant()
{
    bool created = false;
    LSTATUS error = ERROR_SUCCESS;
    m_machine = std::make_shared<RegistryKey>();
    m_machine->name = L"MACHINE";
    m_user = std::make_shared<RegistryKey>();
    m_user->name = L"USER";
    m_classes = Create(m_machine, L"Software\\Classes", &created, &error);
    Create(m_classes, L"CLSID", &created, &error);
    Create(m_user, L"Software", &created, &error);
}

std::shared_ptr<RegistryKey> CRegistry::Predefined(HKEY handle) const
{
    // Some Windows headers sign-extend these numbers, others do not.
    switch (static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(handle)))
    {
    case 0x80000000u:
        return m_classes;
    case 0x80000001u:
        return m_user;
    case 0x80000002u:
        return m_machine;
    default:
        return nullptr;
    }
}

std::shared_ptr<RegistryKey> CRegistry::Key(HKEY handle, DWORD access, LSTATUS* error)
{
    if (auto key = Predefined(handle))
        return key;
    const auto found = m_handles.find(reinterpret_cast<ULONG_PTR>(handle));
    *error = found == m_handles.end()                    ? ERROR_INVALID_HANDLE
             : found->second.key->deleted                ? ERROR_KEY_DELETED
             : (found->second.access & access) != access ? ERROR_ACCESS_DENIED
                                                         : ERROR_SUCCESS;
    return *error == ERROR_SUCCESS ? found->second.key : nullptr;
}

HKEY CRegistry::Open(std::shared_ptr<RegistryKey> key, DWORD access)
{
    m_lastHandle += 4;
    m_handles.emplace(m_lastHandle, Handle{std::move(key), SpecificRights(access)});
    return reinterpret_cast<HKEY>(m_lastHandle);
}

LSTATUS CRegistry::Close(HKEY handle)
{
    if (Predefined(handle) || m_handles.erase(reinterpret_cast<ULONG_PTR>(handle)) == 1)
        return ERROR_SUCCESS;
    return ERROR_INVALID_HANDLE;
}

std::shared_ptr<RegistryKey> CRegistry::Find(std::shared_ptr<RegistryKey> key, std::wstring_view path)
{
    while (key && !path.empty())
    {
        const std::wstring_view name = NextName(path);
        if (name.empty())
            continue;
        const auto child = key->children.find(name);
        key = child == key->children.end() ? nullptr : child->second;
    }
    return key;
}

std::shared_ptr<RegistryKey> CRegistry::Create(std::shared_ptr<RegistryKey> key, std::wstring_view path,
                                               bool* created, LSTATUS* error)
{
    *created = false;
    while (!path.empty())
    {
        const std::wstring_view name = NextName(path);
        if (name.empty())
            continue;
        auto child = key->children.find(name);
        if (child == key->children.end())
        {
            auto made = std::make_shared<RegistryKey>();
            made->parent = key.get();
            made->name = name;
            if (IsDenied(*key) || IsDenied(*made))
            {
                *error = ERROR_ACCESS_DENIED;
                return nullptr;
            }
            child = key->children.emplace(name, std::move(made)).first;
            *created = true;
        }
        key = child->second;
    }
    if (!IsDenied(*key))
        return key;
    *error = ERROR_ACCESS_DENIED;
    return nullptr;
}

void CRegistry::Remove(RegistryKey& key)
{
    RegistryKey* parent = key.parent;
    const std::wstring name = key.name;
    MarkDeleted(key);
    parent->children.erase(name);
}

void CRegistry::Deny(HKEY root, std::wstring_view path, bool deny)
{
    std::wstring whole = Predefined(root)->Path();
    while (!path.empty())
        if (const std::wstring_view name = NextName(path); !name.empty())
            whole.append(L"\\").append(name);
    if (deny)
        m_denied.insert(whole);
    else
        m_denied.erase(whole);
}

void CRegistry::Clear()
{
    for (const auto& root : {m_machine, m_user})
        MarkDeleted(*root);
    m_denied.clear();
    Plant();
}
} // namespace winport

using namespace winport;

void WinportDenyKey(HKEY root, const wchar_t* path, bool deny)
{
    CRegistry& registry = CRegistry::Instance();
    const std::lock_guard lock(registry.lock);
    registry.Deny(root, path, deny);
}

void WinportClearRegistry()
{
    CRegistry& registry = CRegistry::Instance();
    const std::lock_guard lock(registry.lock);
    registry.Clear();
}
