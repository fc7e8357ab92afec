// Resources and paths of modules.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// The string `id` of the current module (see CurrentModule), of any length; empty if it is not found.
std::wstring ResourceString(UINT id);

/// The bytes of a resource of `module`, valid until the module is unloaded. Empty if the resource is not
/// found; GetLastError tells why.
std::string_view ResourceBytes(HINSTANCE module, UINT id, LPCWSTR type);

/// The full path of `module` (null: of the program), of any length. Empty on failure; GetLastError tells why.
std::wstring ModulePath(HINSTANCE module);
