#include "Machine.h"

#include "UserDateFormat.h"

#include "Utf8.h"

#include <windows.h>

#include <cstdio>

namespace
{
constexpr const wchar_t* kVersionKey = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";

std::string RegistryText(HKEY root, const wchar_t* key, const wchar_t* name)
{
    wchar_t text[256] = L"";
    DWORD size = sizeof text - sizeof(wchar_t);
    RegGetValueW(root, key, name, RRF_RT_REG_SZ, nullptr, text, &size);
    return Utf8FromWide(text);
}

DWORD RegistryNumber(HKEY root, const wchar_t* key, const wchar_t* name)
{
    DWORD number = 0;
    DWORD size = sizeof number;
    RegGetValueW(root, key, name, RRF_RT_REG_DWORD, nullptr, &number, &size);
    return number;
}

template <class Function>
Function* SystemFunction(const char* name)
{
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

std::string WineVersion()
{
    const auto version = SystemFunction<const char*()>("wine_get_version");
    return version ? version() : "";
}

// GetVersionEx tells a program without a manifest that it runs on an older system.
std::string WindowsVersion()
{
    OSVERSIONINFOW version = {};
    version.dwOSVersionInfoSize = sizeof version;
    if (const auto tell = SystemFunction<LONG WINAPI(OSVERSIONINFOW*)>("RtlGetVersion"))
        tell(&version);
    char text[80];
    std::snprintf(text, sizeof text, "%u.%u build %u.%u", static_cast<unsigned>(version.dwMajorVersion),
                  static_cast<unsigned>(version.dwMinorVersion), static_cast<unsigned>(version.dwBuildNumber),
                  static_cast<unsigned>(RegistryNumber(HKEY_LOCAL_MACHINE, kVersionKey, L"UBR")));
    return text + (", " + RegistryText(HKEY_LOCAL_MACHINE, kVersionKey, L"ProductName")) + " " +
           RegistryText(HKEY_LOCAL_MACHINE, kVersionKey, L"DisplayVersion");
}

std::string LanguageName(LANGID language)
{
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    LCIDToLocaleName(MAKELCID(language, SORT_DEFAULT), name, LOCALE_NAME_MAX_LENGTH, 0);
    return Utf8FromWide(name);
}

std::string LocaleName()
{
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
    return Utf8FromWide(name);
}

// This program is told 96 whatever the setting is; the system's own programs follow the setting.
std::string Dpi()
{
    const DWORD applied =
        RegistryNumber(HKEY_CURRENT_USER, L"Control Panel\\Desktop\\WindowMetrics", L"AppliedDPI");
    const HDC screen = GetDC(nullptr);
    const int told = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return std::to_string(applied ? static_cast<int>(applied) : told) +
           " (programs that do not ask: " + std::to_string(told) + ")";
}

std::string Screen()
{
    return std::to_string(GetSystemMetrics(SM_CXSCREEN)) + " x " +
           std::to_string(GetSystemMetrics(SM_CYSCREEN)) +
           ", screens: " + std::to_string(GetSystemMetrics(SM_CMONITORS)) +
           (GetSystemMetrics(SM_REMOTESESSION) ? ", remote session" : "");
}

std::string TimeZone()
{
    TIME_ZONE_INFORMATION zone = {};
    const DWORD part = GetTimeZoneInformation(&zone);
    const LONG bias = zone.Bias + (part == TIME_ZONE_ID_DAYLIGHT ? zone.DaylightBias : zone.StandardBias);
    char text[40];
    std::snprintf(text, sizeof text, ", now %+d minutes from UTC", static_cast<int>(-bias));
    return Utf8FromWide(zone.StandardName) + text;
}

bool IsElevated()
{
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token))
        return false;
    TOKEN_ELEVATION elevation = {};
    DWORD size = 0;
    GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size);
    CloseHandle(token);
    return elevation.TokenIsElevated != 0;
}

std::string Now()
{
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d", now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute);
    return text;
}
} // namespace

bool RunsUnderWine()
{
    return !WineVersion().empty();
}

MachineFacts ReadMachine()
{
    MachineFacts facts;
    const std::string locale = LocaleName();
    const std::string language = LanguageName(GetUserDefaultUILanguage());
    const std::string dates = Utf8FromWide(UserDateFormat::Now());
    const bool elevated = IsElevated();
    SYSTEM_INFO system = {};
    GetNativeSystemInfo(&system);
    facts.lines = {{"time", Now()},
                   {"Windows", WindowsVersion()},
                   {"Wine", RunsUnderWine() ? WineVersion() : "no"},
                   {"language", language},
                   {"regional format", locale + ", short date " + dates},
                   {"code pages", "ANSI " + std::to_string(GetACP()) + ", OEM " + std::to_string(GetOEMCP())},
                   {"DPI", Dpi()},
                   {"screen", Screen()},
                   {"time zone", TimeZone()},
                   {"processors", std::to_string(system.dwNumberOfProcessors)},
                   {"elevated", elevated ? "yes" : "no"}};
    facts.conditions.insert(RunsUnderWine() ? "wine" : "windows");
    if (locale != "en-US" || language != "en-US" || dates != "M/d/yyyy")
        facts.conditions.insert("session");
    if (elevated && !RunsUnderWine())
        facts.conditions.insert("elevated");
    return facts;
}
