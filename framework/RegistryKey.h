// The owner of an open registry key, and what is done to keys as a whole.
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

    /// Each returns the system's code, ERROR_SUCCESS with the key open.
    LSTATUS Open(HKEY parent, const std::wstring& path, REGSAM access) noexcept;
    LSTATUS Create(HKEY parent, const std::wstring& path, REGSAM access) noexcept;
    void Close() noexcept;

    HKEY get() const noexcept { return m_key; }

    /// The names of the keys directly beneath.
    LSTATUS SubkeyNames(std::vector<std::wstring>& names) const;

    /// Writes a text (REG_SZ) or a number (REG_DWORD); the empty name is the default value.
    LSTATUS SetText(const std::wstring& name, const std::wstring& text) const noexcept;
    LSTATUS SetNumber(const std::wstring& name, DWORD number) const noexcept;

private:
    HKEY m_key = nullptr;
};

/// Whether the key is there, readable or not.
bool RegistryKeyExists(HKEY parent, const std::wstring& path) noexcept;

/// Deletes a key with all beneath it. A key that is not there is no failure. On failure `failedKey` is the
/// path, from `parent` on, of the key that would not go.
LSTATUS DeleteRegistryTree(HKEY parent, const std::wstring& path, std::wstring& failedKey);
