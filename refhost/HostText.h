// Text between the database (UTF-8) and COM (wide).
#pragma once

#include <oleauto.h>
#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace refhost
{
/// Wide text as UTF-8. A lone surrogate becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);

/// UTF-8 as wide text. Bytes that are not UTF-8 become U+FFFD.
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

/// A new string for the caller to free. Throws std::bad_alloc when there is no memory.
BSTR MakeBstr(std::wstring_view text);
} // namespace refhost
