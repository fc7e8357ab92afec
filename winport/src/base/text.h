// Conversion between wide text and UTF-8, and comparison without case.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace winport
{
/// The replacement character for invalid text.
constexpr wchar_t kReplacement = 0xFFFD;

/// Decodes UTF-8; each invalid sequence becomes one U+FFFD. `invalid`, if given, is set if there was one.
std::wstring Wide(std::string_view text, bool* invalid = nullptr);

/// Encodes as UTF-8; a value that is no code point becomes U+FFFD. `invalid`, if given, is set when there was
/// any.
std::string Utf8(std::wstring_view text, bool* invalid = nullptr);

/// Decodes UTF-16 in little-endian byte order, as resources hold it.
std::wstring WideFromUtf16(const unsigned char* data, std::size_t units);

wchar_t Upper(wchar_t character);
wchar_t Lower(wchar_t character);

/// Compares two names by their upper-case characters: negative, zero or positive.
int CompareNoCase(std::wstring_view a, std::wstring_view b);

/// The order of names in a map, without case.
struct LessNoCase
{
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const { return CompareNoCase(a, b) < 0; }
};

/// Copies `text` with its terminator to a buffer of `size` characters. Returns the length without the
/// terminator if it fits; otherwise writes nothing and returns the required size with the terminator.
DWORD CopyOut(std::wstring_view text, LPWSTR buffer, DWORD size);

/// Returns a path in UTF-8, with slashes for backslashes and without the prefix of long paths.
std::string SystemPath(std::wstring_view path);

/// Runs `body`. Out of memory sets the last error and returns `failure`.
template <class R, class F>
R WithMemory(R failure, F&& body) noexcept
{
    try
    {
        return body();
    }
    catch (...)
    {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return failure;
    }
}
} // namespace winport
