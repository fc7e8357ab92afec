// Text between the database (UTF-8) and COM (wide).
#pragma once

#include "Utf8.h"

#include <windows.h>

#include <oleauto.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace refhost
{
/// UTF-8 as wide text. Throws PlantError if `text` is not well-formed UTF-8.
std::wstring FromUtf8(std::string_view text);

/// The path as UTF-8. A native path consists of bytes; converting it to wide text would depend on the locale.
std::string PathText(const std::filesystem::path& path);

/// Whether `text` is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// The text of `string`; null is the empty text.
inline std::wstring_view TextOf(BSTR string)
{
    return string ? std::wstring_view(string) : std::wstring_view();
}
} // namespace refhost
