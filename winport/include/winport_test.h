// What tests may do to winport that a program on Windows cannot do with an API call.
#pragma once

#include "windows.h"

/// Makes the key `path` under `root` refuse access (or grant it again): opening, creating and deleting it
/// fail with ERROR_ACCESS_DENIED, and so does creating a key directly beneath it. Keys beneath it that exist
/// stay open to access by their own path. The key need not exist.
void WinportDenyKey(HKEY root, const wchar_t* path, bool deny);

/// Empties the registry, whose open keys count as deleted, and forgets which keys refuse access.
void WinportClearRegistry();
