// Comparing texts.
#pragma once

#include <windows.h>

#include <string_view>

/// Whether two texts are equal but for the case of their letters, as the system compares names of files and
/// of registry keys: character by character, whatever the user's language.
inline bool SameIgnoringCase(std::wstring_view first, std::wstring_view second) noexcept
{
    if (first.size() != second.size())
        return false;
    const int length = static_cast<int>(first.size());
    return length == 0 ||
           CompareStringOrdinal(first.data(), length, second.data(), length, TRUE) == CSTR_EQUAL;
}
