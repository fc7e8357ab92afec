// Directories and files by name: making, removing, attributes.
#include "open_file.h"
#include "text.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

using namespace winport;

namespace
{
std::string WithoutTrailingSlash(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

bool ParentIsThere(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    struct stat state;
    if (slash == std::string::npos || slash == 0)
        return true;
    return stat(path.substr(0, slash).c_str(), &state) == 0 && S_ISDIR(state.st_mode);
}

// Runs a system call on a path. What it reports as missing is a file or, with its directory gone too, a path.
template <class F>
BOOL OnPath(LPCWSTR path, F&& call)
{
    return WithMemory(FALSE, [&] {
        const std::string name = path ? WithoutTrailingSlash(SystemPath(path)) : std::string();
        if (!name.empty() && call(name) == 0)
            return TRUE;
        DWORD error = name.empty() ? ERROR_PATH_NOT_FOUND : ErrorFromSystem(errno);
        if (error == ERROR_FILE_NOT_FOUND && !ParentIsThere(name))
            error = ERROR_PATH_NOT_FOUND;
        SetLastError(error);
        return FALSE;
    });
}

int Fail(int code)
{
    errno = code;
    return -1;
}
} // namespace

BOOL CreateDirectoryW(LPCWSTR path, SECURITY_ATTRIBUTES*)
{
    if (OnPath(path, [](const std::string& name) { return mkdir(name.c_str(), 0777); }))
        return TRUE;
    if (GetLastError() == ERROR_FILE_EXISTS)
        SetLastError(ERROR_ALREADY_EXISTS);
    else if (GetLastError() == ERROR_FILE_NOT_FOUND)
        SetLastError(ERROR_PATH_NOT_FOUND);
    return FALSE;
}

BOOL RemoveDirectoryW(LPCWSTR path)
{
    struct stat state;
    if (OnPath(path, [](const std::string& name) { return rmdir(name.c_str()); }))
        return TRUE;
    const bool isFile =
        GetLastError() == ERROR_PATH_NOT_FOUND && path && stat(SystemPath(path).c_str(), &state) == 0;
    if (isFile)
        SetLastError(ERROR_DIRECTORY);
    return FALSE;
}

DWORD GetFileAttributesW(LPCWSTR path)
{
    struct stat state;
    if (!OnPath(path, [&](const std::string& name) { return stat(name.c_str(), &state); }))
        return INVALID_FILE_ATTRIBUTES;
    if (S_ISDIR(state.st_mode))
        return FILE_ATTRIBUTE_DIRECTORY;
    return FILE_ATTRIBUTE_ARCHIVE | ((state.st_mode & 0222) == 0 ? FILE_ATTRIBUTE_READONLY : 0);
}

BOOL SetFileAttributesW(LPCWSTR path, DWORD attributes)
{
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return OnPath(path, [&](const std::string& name) {
        struct stat state;
        if (stat(name.c_str(), &state) != 0)
            return -1;
        // The mark has no meaning on a directory.
        if (S_ISDIR(state.st_mode))
            return 0;
        const mode_t mode = state.st_mode & 07777u;
        return chmod(name.c_str(), readOnly ? mode & ~static_cast<mode_t>(0222) : mode | 0200u);
    });
}

BOOL DeleteFileW(LPCWSTR path)
{
    return OnPath(path, [](const std::string& name) {
        struct stat state;
        if (stat(name.c_str(), &state) != 0)
            return -1;
        if (S_ISDIR(state.st_mode) || (state.st_mode & 0222) == 0)
            return Fail(EACCES);
        return unlink(name.c_str());
    });
}
