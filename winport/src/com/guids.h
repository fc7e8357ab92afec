// Identifiers as text, and texts out of the registry's classes.
#pragma once

#include <objbase.h>

#include <string>

namespace winport
{
/// The length of an identifier in braces.
constexpr std::size_t kGuidLength = 38;

/// Reads the form with braces and hyphens, in either case, and nothing else; `guid` stays untouched on
/// failure.
bool ParseGuid(const wchar_t* text, GUID* guid);
std::wstring GuidText(REFGUID guid);

/// Reads the default value of a key under HKEY_CLASSES_ROOT. ERROR_FILE_NOT_FOUND if the key or the value is
/// missing or no text.
LSTATUS ReadClassesText(const std::wstring& path, std::wstring* text);
} // namespace winport
