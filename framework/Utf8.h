// UTF-8 and wide text.
#pragma once

#include <string>
#include <string_view>

/// Writes the UTF-8 text `bytes` to `text`. Returns false, with `text` empty, if it is not valid UTF-8.
/// Throws std::bad_alloc.
bool WideFromUtf8(std::string_view bytes, std::wstring& text);

/// `text` as UTF-8; what is not valid becomes a replacement character. Throws std::bad_alloc.
std::string Utf8FromWide(std::wstring_view text);
