// The order of names.
#pragma once

#include <windows.h>

#include <string_view>

namespace winport
{
/// Less than, equal to or greater than 0, by the order of names; `flags` are NORM_IGNORECASE and
/// SORT_STRINGSORT.
int CompareNames(std::wstring_view left, std::wstring_view right, ULONG flags);
} // namespace winport
