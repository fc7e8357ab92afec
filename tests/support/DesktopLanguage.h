// The language of the user's desktop, as far as a test can choose it.
#pragma once

#include "TestFolder.h"

#include <windows.h>

/// While it exists, the desktop's language is Canadian French natively. On Windows it is the account's, as
/// the system reports it.
class DesktopLanguage
{
public:
    const std::wstring& Name() const { return m_name; }

private:
#ifdef _WIN32
    static std::wstring Part(LCTYPE which)
    {
        wchar_t text[LOCALE_NAME_MAX_LENGTH] = L"";
        GetLocaleInfoW(MAKELCID(GetUserDefaultUILanguage(), SORT_DEFAULT), which, text, std::size(text));
        return text;
    }

    std::wstring m_name = Part(LOCALE_SISO639LANGNAME) + L"-" + Part(LOCALE_SISO3166CTRYNAME);
#else
    TestVariable m_locale{L"LC_ALL", L"fr_CA.UTF-8"};
    std::wstring m_name = L"fr-CA";
#endif
};
