// The shell's services that qptools' programs use.
#pragma once

#include "wpbase.h"

/// Splits a command line by the rules of the Windows shell; the first word is the program. The result is one
/// block that the caller frees with LocalFree. An empty command line gives the path of the running program.
/// Null, with GetLastError, when memory is short or `arguments` is null.
WINSHELLAPI LPWSTR* CommandLineToArgvW(LPCWSTR commandLine, int* count);
