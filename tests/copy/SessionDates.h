// The way in which a user's session shows dates.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>

/// While it lives, the user's short date is the German or the English one; on Windows it is a setting of the
/// user that all programs share. The native date picker knows the English one only.
class SessionDates
{
public:
    explicit SessionDates(bool german) : m_german(german && kIsASetting)
    {
        Change(m_german ? L"dd.MM.yyyy" : L"M/d/yyyy");
    }
    ~SessionDates() { Change(std::wstring(m_before)); }
    SessionDates(const SessionDates&) = delete;
    SessionDates& operator=(const SessionDates&) = delete;

    /// The date as the user reads it.
    std::wstring Text(const SYSTEMTIME& date) const
    {
        char text[20];
        if (m_german)
            std::snprintf(text, sizeof text, "%02d.%02d.%04d", date.wDay, date.wMonth, date.wYear);
        else
            std::snprintf(text, sizeof text, "%d/%d/%d", date.wMonth, date.wDay, date.wYear);
        return {text, text + std::char_traits<char>::length(text)};
    }

private:
#ifdef _WIN32
    static constexpr bool kIsASetting = true;

    void Change(const std::wstring& format)
    {
        wchar_t before[80] = {};
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, before, 80);
        m_before = before;
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, format.c_str());
    }
#else
    static constexpr bool kIsASetting = false;

    void Change(const std::wstring&) {}
#endif

    std::wstring m_before;
    bool m_german;
};
