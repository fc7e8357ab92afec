#include "RegistryKey.h"

namespace
{
/// The system allows 255 characters for the name of a key.
constexpr DWORD kNameRoom = 256;
} // namespace

LSTATUS RegistryKey::Open(HKEY parent, const std::wstring& path, REGSAM access) noexcept
{
    Close();
    return RegOpenKeyExW(parent, path.c_str(), 0, access, &m_key);
}

LSTATUS RegistryKey::Create(HKEY parent, const std::wstring& path, REGSAM access) noexcept
{
    Close();
    return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr, &m_key,
                           nullptr);
}

void RegistryKey::Close() noexcept
{
    if (HKEY key = std::exchange(m_key, nullptr))
        RegCloseKey(key);
}

LSTATUS RegistryKey::SubkeyNames(std::vector<std::wstring>& names) const
{
    for (DWORD index = 0;; ++index)
    {
        wchar_t name[kNameRoom];
        DWORD length = kNameRoom;
        const LSTATUS code = RegEnumKeyExW(m_key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (code != ERROR_SUCCESS)
            return code == ERROR_NO_MORE_ITEMS ? ERROR_SUCCESS : code;
        names.emplace_back(name, length);
    }
}

LSTATUS RegistryKey::SetText(const std::wstring& name, const std::wstring& text) const noexcept
{
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return RegSetValueExW(m_key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size);
}

LSTATUS RegistryKey::SetNumber(const std::wstring& name, DWORD number) const noexcept
{
    return RegSetValueExW(m_key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                          sizeof(number));
}

bool RegistryKeyExists(HKEY parent, const std::wstring& path) noexcept
{
    RegistryKey key;
    return key.Open(parent, path, KEY_READ) != ERROR_FILE_NOT_FOUND;
}

LSTATUS DeleteRegistryTree(HKEY parent, const std::wstring& path, std::wstring& failedKey)
{
    std::vector<std::wstring> subkeys;
    RegistryKey key;
    LSTATUS code = key.Open(parent, path, KEY_READ);
    if (code == ERROR_FILE_NOT_FOUND)
        return ERROR_SUCCESS;
    if (code == ERROR_SUCCESS)
        code = key.SubkeyNames(subkeys);
    key.Close();
    for (std::size_t i = 0; code == ERROR_SUCCESS && i < subkeys.size(); ++i)
    {
        code = DeleteRegistryTree(parent, path + L"\\" + subkeys[i], failedKey);
        if (code != ERROR_SUCCESS)
            return code;
    }
    if (code == ERROR_SUCCESS)
        code = RegDeleteKeyW(parent, path.c_str());
    if (code != ERROR_SUCCESS)
        failedKey = path;
    return code;
}
