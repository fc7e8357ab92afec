// The language of the user, from the environment: LC_ALL, LC_MESSAGES or LANG, in this order.
#include "text.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

using namespace winport;

namespace
{
// The identifier of all locales that have a name only.
constexpr LANGID kUnnumbered = 0x1000;

struct Language
{
    LANGID id;
    const wchar_t* name;
};

// The first entry of a language is its default.
constexpr Language kLanguages[] = {
    {0x0409, L"en-US"}, {0x0809, L"en-GB"}, {0x0C09, L"en-AU"}, {0x1009, L"en-CA"}, {0x0407, L"de-DE"},
    {0x0C07, L"de-AT"}, {0x0807, L"de-CH"}, {0x040C, L"fr-FR"}, {0x080C, L"fr-BE"}, {0x0C0C, L"fr-CA"},
    {0x100C, L"fr-CH"}, {0x0410, L"it-IT"}, {0x0810, L"it-CH"}, {0x0C0A, L"es-ES"}, {0x080A, L"es-MX"},
    {0x0416, L"pt-BR"}, {0x0816, L"pt-PT"}, {0x0413, L"nl-NL"}, {0x0813, L"nl-BE"}, {0x0406, L"da-DK"},
    {0x041D, L"sv-SE"}, {0x0414, L"nb-NO"}, {0x040B, L"fi-FI"}, {0x0415, L"pl-PL"}, {0x0405, L"cs-CZ"},
    {0x041B, L"sk-SK"}, {0x040E, L"hu-HU"}, {0x0418, L"ro-RO"}, {0x0402, L"bg-BG"}, {0x0408, L"el-GR"},
    {0x041F, L"tr-TR"}, {0x0419, L"ru-RU"}, {0x0422, L"uk-UA"}, {0x0411, L"ja-JP"}, {0x0412, L"ko-KR"},
    {0x0804, L"zh-CN"}, {0x0404, L"zh-TW"},
};

// "de_AT.UTF-8@euro" as the API names it: "de-AT". C and POSIX are American English.
std::wstring UserLocaleName()
{
    std::string value;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
    {
        const char* set = std::getenv(variable);
        if (!set || !*set)
            continue;
        value = set;
        break;
    }
    std::wstring name = Wide(value.substr(0, value.find_first_of(".@")));
    std::replace(name.begin(), name.end(), L'_', L'-');
    if (name.empty() || name == L"C" || name == L"POSIX" || name.size() >= LOCALE_NAME_MAX_LENGTH)
        return L"en-US";
    if (name.find(L'-') != std::wstring::npos)
        return name;
    for (const Language& language : kLanguages)
        if (CompareNoCase(std::wstring_view(language.name).substr(0, name.size() + 1), name + L"-") == 0)
            return language.name;
    return name;
}

LANGID UserLanguage()
{
    const std::wstring name = UserLocaleName();
    for (const Language& language : kLanguages)
        if (CompareNoCase(language.name, name) == 0)
            return language.id;
    return kUnnumbered;
}

// Returns the length with the terminator, as the locale functions do.
int Deliver(std::wstring_view name, LPWSTR target, int size)
{
    const int needed = static_cast<int>(name.size()) + 1;
    if (size < 0 || (size > 0 && (size < needed || !target)))
    {
        SetLastError(size < 0 || !target ? ERROR_INVALID_PARAMETER : ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    if (size > 0)
        CopyOut(name, target, static_cast<DWORD>(size));
    return needed;
}
} // namespace

LANGID GetUserDefaultUILanguage()
{
    return WithMemory<LANGID>(0x0409, [] { return UserLanguage(); });
}

int LCIDToLocaleName(LCID locale, LPWSTR name, int size, DWORD)
{
    if (locale == kUnnumbered || locale == LOCALE_USER_DEFAULT || locale == LOCALE_NEUTRAL)
        return WithMemory(0, [&] { return Deliver(UserLocaleName(), name, size); });
    const auto* found = std::find_if(std::begin(kLanguages), std::end(kLanguages),
                                     [&](const Language& language) { return language.id == locale; });
    if (found != std::end(kLanguages))
        return Deliver(found->name, name, size);
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}
