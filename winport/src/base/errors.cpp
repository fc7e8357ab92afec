// The calling thread's last error.
#include <windows.h>

namespace
{
thread_local DWORD t_lastError = ERROR_SUCCESS;
}

DWORD GetLastError()
{
    return t_lastError;
}

void SetLastError(DWORD code)
{
    t_lastError = code;
}
