// The owner of an open registry key, and functions for whole keys.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

class RegistryKey
{
public:
    RegistryKey() noexcept = default;
    RegistryKey(RegistryKey&& other) noexcept : m_key(std::exchange(other.m_key, nullptr)) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept
    {
        std::swap(m_key, other.m_key);
        return *this;
    }
    ~RegistryKey() { Close(); }

    /// Each returns the system's error code; the key is open after ERROR_SUCCESS.
    LSTATUS Open(HKEY parent, const std::wstring& path, REGSAM access) noexcept;
    LSTATUS Create(HKEY parent, const std::wstring& path, REGSAM access) noexcept;
    void Close() noexcept;

    HKEY get() const noexcept { return m_key; }

    /// The names of the direct subkeys.
    LSTATUS SubkeyNames(std::vector<std::wstring>& names) const;

    /// Writes a value of type REG_SZ or REG_DWORD; the empty name is the default value.
    LSTATUS SetText(const std::wstring& name, const std::wstring& text) const noexcept;
    LSTATUS SetNumber(const std::wstring& name, DWORD number) const noexcept;

private:
    HKEY m_key = nullptr;
};

/// Returns true if the key exists, readable or not.
bool RegistryKeyExists(HKEY parent, const std::wstring& path) noexcept;

/// Deletes a key and its subkeys. Returns ERROR_SUCCESS if it does not exist. On failure `failedKey` is the
/// path, relative to `parent`, of the key that could not be deleted.
LSTATUS DeleteRegistryTree(HKEY parent, const std::wstring& path, std::wstring& failedKey);
