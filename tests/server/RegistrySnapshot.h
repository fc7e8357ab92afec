// What the registry holds under a key, as text that compares and prints well.
#pragma once

#include <windows.h>

#include <map>
#include <string>

/// Every key and value at `path` below HKEY_CLASSES_ROOT and beneath: a key as "path" = "key", a value as
/// "path -> name" = its text (the default value has the name "(default)"). A key that may not be read is
/// "path" = "unreadable". Empty if there is no such key. Names are as the registry spells them, apart from
/// `path` itself.
std::map<std::wstring, std::wstring> ClassesSnapshot(const std::wstring& path);

/// The spelling under which HKEY_CLASSES_ROOT\`path` holds its subkey `name`, or empty.
std::wstring SpellingOf(const std::wstring& path, const std::wstring& name);

/// Makes a key below HKEY_CLASSES_ROOT with a default value.
void MakeClassesKey(const std::wstring& path, const std::wstring& value);

/// Deletes a key below HKEY_CLASSES_ROOT and all beneath it, if it is there.
void DeleteClassesKey(const std::wstring& path);

/// A key below HKEY_CLASSES_ROOT that no user may open: its access list is empty. The destructor deletes it.
class CLockedClassesKey
{
public:
    explicit CLockedClassesKey(std::wstring path);
    ~CLockedClassesKey();
    CLockedClassesKey(const CLockedClassesKey&) = delete;
    CLockedClassesKey& operator=(const CLockedClassesKey&) = delete;

private:
    /// An empty list denies access to every user, a null list grants it.
    void SetAccess(ACL* list);

    std::wstring m_path;
    HKEY m_key = nullptr;
};
