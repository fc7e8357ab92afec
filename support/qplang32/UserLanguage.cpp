#include "UserLanguage.h"

#include "OutOfMemory.h"

#include <windows.h>

#include <algorithm>

namespace
{
constexpr DWORD kMaxName = LOCALE_NAME_MAX_LENGTH;

bool MayStandInName(wchar_t character)
{
    return (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z') ||
           (character >= L'0' && character <= L'9') || character == L'-';
}
} // namespace

std::wstring UserLanguage()
{
    wchar_t name[kMaxName] = {};
    SetLastError(ERROR_SUCCESS);
    const DWORD length = GetEnvironmentVariableW(L"QPTOOLS_LANG", name, kMaxName);
    if (length >= kMaxName)
        return {};
    if (length == 0)
    {
        ThrowIfOutOfMemory();
        LCIDToLocaleName(MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT), name, kMaxName, 0);
    }
    return name;
}

std::vector<std::wstring> LanguageFallbacks(const std::wstring& language)
{
    std::wstring name = language.substr(0, language.find_first_of(L".@"));
    std::replace(name.begin(), name.end(), L'_', L'-');
    std::vector<std::wstring> names;
    if (name.size() >= kMaxName || !std::all_of(name.begin(), name.end(), MayStandInName))
        return names;
    while (!name.empty())
    {
        names.push_back(name);
        const std::size_t hyphen = name.rfind(L'-');
        name.resize(hyphen == std::wstring::npos ? 0 : hyphen);
    }
    return names;
}
