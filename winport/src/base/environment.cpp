// Environment variables, the current and the temporary directory.
#include "text.h"

#include <shlobj.h>

#include <climits>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <unistd.h>

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

// The directory for a user's local data has a name of its own on this system.
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

// Puts values in place of %NAME%; a name that has none stays as it is.
std::wstring Expand(std::wstring_view text)
{
    std::wstring out;
    while (!text.empty())
    {
        const std::size_t first = text.find(L'%');
        out += text.substr(0, first);
        if (first == std::wstring_view::npos)
            break;
        text.remove_prefix(first);
        const std::size_t second = text.find(L'%', 1);
        std::optional<std::wstring> value;
        if (second != std::wstring_view::npos && second > 1)
            value = Lookup(text.substr(1, second - 1));
        out += value ? std::wstring_view(*value) : text.substr(0, 1);
        text.remove_prefix(value ? second + 1 : 1);
    }
    return out;
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

DWORD ExpandEnvironmentStringsW(LPCWSTR source, LPWSTR target, DWORD size)
{
    return WithMemory<DWORD>(0, [&] {
        const std::wstring text = Expand(source);
        // Unlike its siblings this one always counts the terminator.
        CopyOut(text, target, size);
        return static_cast<DWORD>(text.size() + 1);
    });
}

DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer)
{
    return WithMemory<DWORD>(0, [&] {
        char path[PATH_MAX] = ".";
        const char* current = getcwd(path, sizeof(path));
        return CopyOut(Wide(current ? current : "/"), buffer, size);
    });
}

DWORD GetTempPathW(DWORD size, LPWSTR buffer)
{
    return WithMemory<DWORD>(0, [&] {
        std::wstring path = Lookup(L"TMPDIR").value_or(L"/tmp");
        if (path.empty() || path.back() != L'/')
            path += L'/';
        return CopyOut(path, buffer, size);
    });
}

HRESULT SHGetFolderPathW(HWND, int folder, HANDLE token, DWORD flags, LPWSTR path)
{
    if (!path || (folder & ~CSIDL_FLAG_CREATE) != CSIDL_LOCAL_APPDATA || token || flags != SHGFP_TYPE_CURRENT)
        return E_INVALIDARG;
    path[0] = L'\0';
    const DWORD length = GetEnvironmentVariableW(L"LOCALAPPDATA", path, MAX_PATH);
    return length > 0 && length < MAX_PATH ? S_OK : E_FAIL;
}
