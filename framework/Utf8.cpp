#include "Utf8.h"

#include "OutOfMemory.h"

#include <windows.h>

bool WideFromUtf8(std::string_view bytes, std::wstring& text)
{
    text.clear();
    if (bytes.empty())
        return true;
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
    text.resize(static_cast<std::size_t>(length));
    if (length > 0 &&
        MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, text.data(), length) == length)
        return true;
    ThrowIfOutOfMemory();
    text.clear();
    return false;
}

std::string Utf8FromWide(std::wstring_view text)
{
    std::string bytes;
    if (text.empty())
        return bytes;
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    if (WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr) == size)
        return bytes;
    ThrowIfOutOfMemory();
    return {};
}
