// A registry of a test's own.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// For as long as it lives, HKEY_CLASSES_ROOT of this process is an empty key of its own, so that tests that
/// write there neither see nor disturb each other or the user. Natively it empties the registry in memory.
/// The component runtime of Windows does not follow it: CoCreateInstance still reads the real one.
class TestRegistry
{
public:
    TestRegistry();
    ~TestRegistry();
    TestRegistry(const TestRegistry&) = delete;
    TestRegistry& operator=(const TestRegistry&) = delete;

    /// Makes a key (and those above it) and gives it a default value.
    void Put(const std::wstring& path, const std::wstring& value);
    void PutValue(const std::wstring& path, const std::wstring& name, DWORD type,
                  const std::vector<BYTE>& data);

    /// Whether the key is there.
    bool Has(const std::wstring& path) const;

    /// A text value; "(none)" if there is no such value.
    std::wstring Text(const std::wstring& path, const std::wstring& name = {}) const;

    /// Everything beneath `path` as lines, sorted: one for each key, one for each value with its type and
    /// data.
    std::vector<std::wstring> Dump(const std::wstring& path = {}) const;

    /// Denies all access to an existing key for every user, or allows it again.
    void Deny(const std::wstring& path);
    void Allow(const std::wstring& path);

private:
    void DumpKey(const std::wstring& path, std::vector<std::wstring>& lines) const;

    std::wstring m_place;               ///< under HKEY_CURRENT_USER, on Windows
    std::vector<std::wstring> m_denied; ///< to be opened again before the end, on Windows
};
