// The version of the module's type library, for registration and lookup.
#pragma once

#include <windows.h>

constexpr WORD kTypeLibraryMajor = 1;
constexpr WORD kTypeLibraryMinor = 0;
