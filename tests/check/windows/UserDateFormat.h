// The form in which the user's dates are shown.
#pragma once

#include <windows.h>

#include <string>

/// Puts the form back at the end: some tests change it for their time, and one that is ended could not put it
/// back.
class UserDateFormat
{
public:
    UserDateFormat() : m_before(Now()) {}
    ~UserDateFormat()
    {
        if (Now() != m_before)
            SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, m_before.c_str());
    }
    UserDateFormat(const UserDateFormat&) = delete;
    UserDateFormat& operator=(const UserDateFormat&) = delete;

    static std::wstring Now()
    {
        wchar_t format[80] = L"";
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, format, 80);
        return format;
    }

private:
    std::wstring m_before;
};
