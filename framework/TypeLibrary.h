// The version under which a module's type library is registered and looked up.
#pragma once

#include <windows.h>

constexpr WORD kTypeLibraryMajor = 1;
constexpr WORD kTypeLibraryMinor = 0;
