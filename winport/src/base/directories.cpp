// Directories.
#include "open_file.h"
#include "text.h"

#include <cerrno>
#include <sys/stat.h>

using namespace winport;

namespace
{
std::string WithoutTrailingSlash(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}
} // namespace

BOOL CreateDirectoryW(LPCWSTR path, SECURITY_ATTRIBUTES*)
{
    return WithMemory(FALSE, [&] {
        const std::string name = path ? WithoutTrailingSlash(SystemPath(path)) : std::string();
        if (!name.empty() && mkdir(name.c_str(), 0777) == 0)
            return TRUE;
        const DWORD error = name.empty() ? ERROR_PATH_NOT_FOUND : ErrorFromSystem(errno);
        SetLastError(error == ERROR_FILE_EXISTS      ? ERROR_ALREADY_EXISTS
                     : error == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND
                                                     : error);
        return FALSE;
    });
}
