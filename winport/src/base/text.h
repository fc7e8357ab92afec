// Text between the wide form of the API and the UTF-8 of the system beneath, and names compared without
// regard to case.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace winport
{
/// The code point that stands for what is no character.
constexpr wchar_t kReplacement = 0xFFFD;

/// Decodes UTF-8; each invalid sequence becomes one U+FFFD. `invalid`, if given, is set when there was any.
std::wstring Wide(std::string_view text, bool* invalid = nullptr);

/// Encodes as UTF-8; a value that is no code point becomes U+FFFD. `invalid`, if given, is set when there was
/// any.
std::string Utf8(std::wstring_view text, bool* invalid = nullptr);

/// Decodes UTF-16 in little-endian byte order, as resources hold it.
std::wstring WideFromUtf16(const unsigned char* data, std::size_t units);

wchar_t Upper(wchar_t character);
wchar_t Lower(wchar_t character);

/// Negative, zero or positive: the order of two names by their upper-case characters.
int CompareNoCase(std::wstring_view a, std::wstring_view b);

/// Orders the names of a map without regard to case.
struct LessNoCase
{
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const { return CompareNoCase(a, b) < 0; }
};

/// Copies `text` and its terminator to a caller's buffer of `size` characters, by the rule that most
/// functions share: the length without the terminator if it fits, else the size needed with it, and nothing
/// is written.
DWORD CopyOut(std::wstring_view text, LPWSTR buffer, DWORD size);

/// A path for the system: UTF-8, slashes for backslashes, without the prefix of long paths.
std::string SystemPath(std::wstring_view path);

/// Runs `body`; when memory runs short, GetLastError says so and `failure` is returned.
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
