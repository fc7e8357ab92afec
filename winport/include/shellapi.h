// Services of the shell.
#pragma once

#include "wpbase.h"

/// Splits a command line by the rules of the Windows shell; the first word is the program. An empty command
/// line gives the path of the running program. The result is one block, which the caller frees with
/// LocalFree. Returns null, with the last error set, if out of memory or if an argument is null.
WINSHELLAPI LPWSTR* CommandLineToArgvW(LPCWSTR commandLine, int* count);
