// Known folders of the shell.
#pragma once

#include "objbase.h"
#include "shellapi.h"

#define CSIDL_LOCAL_APPDATA 0x001c
#define CSIDL_FLAG_CREATE 0x8000
#define SHGFP_TYPE_CURRENT 0

/// Writes the path of a folder to `path`, which holds MAX_PATH characters. CSIDL_LOCAL_APPDATA alone is
/// known: it is what GetEnvironmentVariableW gives for LOCALAPPDATA. E_INVALIDARG for any other.
WINSHELLAPI HRESULT SHGetFolderPathW(HWND owner, int folder, HANDLE token, DWORD flags, LPWSTR path);
