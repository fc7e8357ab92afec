// Identifiers as text, and values of HKEY_CLASSES_ROOT.
#pragma once

#include <objbase.h>

#include <string>

namespace winport
{
/// The length of an identifier in braces.
constexpr std::size_t kGuidLength = 38;

/// Reads the form with braces and hyphens, in upper or lower case. Returns false for any other text and
/// leaves `guid` unchanged.
bool ParseGuid(const wchar_t* text, GUID* guid);
std::wstring GuidText(REFGUID guid);

/// Reads the default value of a key under HKEY_CLASSES_ROOT. ERROR_FILE_NOT_FOUND if the key or the value is
/// missing or not REG_SZ.
LSTATUS ReadClassesText(const std::wstring& path, std::wstring* text);
} // namespace winport
