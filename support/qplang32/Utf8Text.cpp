#include "Utf8Text.h"

#include "NoMemory.h"

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
    ThrowIfNoMemory();
    text.clear();
    return false;
}
