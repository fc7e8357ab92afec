// Look-ups among the resources of the current module.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

/// The string `id` of the current module (see CurrentModule), empty if it has none.
std::wstring ResourceString(UINT id);

/// The bytes of a resource of `module`, which live as long as the module. Empty if there is no such resource,
/// and GetLastError then tells why.
std::string_view ResourceBytes(HINSTANCE module, UINT id, LPCWSTR type);

/// The full path of `module` (null: of the program), of any length. Empty on failure, and GetLastError then
/// tells why.
std::wstring ModulePath(HINSTANCE module);
