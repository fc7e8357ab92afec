// Environment variables.
#include "text.h"

#include <cstdlib>
#include <mutex>
#include <optional>

using namespace winport;

namespace
{
std::mutex& EnvironmentLock()
{
    static std::mutex lock;
    return lock;
}

std::optional<std::string> Variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

// The directory of local application data, by the conventions of Linux desktops.
std::optional<std::string> LocalAppData()
{
    if (auto state = Variable("XDG_STATE_HOME"); state && !state->empty())
        return state;
    if (auto home = Variable("HOME"); home && !home->empty())
        return *home + "/.local/state";
    return std::nullopt;
}

std::optional<std::wstring> Lookup(std::wstring_view name)
{
    const std::lock_guard lock(EnvironmentLock());
    std::optional<std::string> value = Variable(Utf8(name).c_str());
    if (!value && CompareNoCase(name, L"LOCALAPPDATA") == 0)
        value = LocalAppData();
    return value ? std::optional<std::wstring>(Wide(*value)) : std::nullopt;
}
} // namespace

DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size)
{
    return WithMemory<DWORD>(0, [&]() -> DWORD {
        const std::optional<std::wstring> value = Lookup(name ? name : L"");
        if (value)
            return CopyOut(*value, buffer, size);
        SetLastError(ERROR_ENVVAR_NOT_FOUND);
        return 0;
    });
}

BOOL SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value)
{
    if (!name || !*name || std::wcschr(name, L'='))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    return WithMemory(FALSE, [&] {
        const std::string variable = Utf8(name);
        const std::lock_guard lock(EnvironmentLock());
        const int failed =
            value ? setenv(variable.c_str(), Utf8(value).c_str(), 1) : unsetenv(variable.c_str());
        if (failed)
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failed ? FALSE : TRUE;
    });
}
