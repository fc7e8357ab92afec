// Test hooks of the registry, for which Windows has no API call.
#pragma once

#include "windows.h"

/// Denies access to the key `path` under `root`, or grants it again. While access is denied, opening,
/// creating and deleting the key fail with ERROR_ACCESS_DENIED, and so does creating a direct sub key.
/// Existing sub keys can still be opened by their own path. The key need not exist.
void WinportDenyKey(HKEY root, const wchar_t* path, bool deny);

/// Empties the registry and grants access to all keys. Open keys count as deleted.
void WinportClearRegistry();
