#include "Utf8.h"

#include <windows.h>

std::string ToUtf8(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(needed > 0 ? static_cast<size_t>(needed) : 0, '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::wstring FromUtf8(const std::string& bytes)
{
    const int length = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int made = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), length);
    text.resize(made > 0 ? static_cast<size_t>(made) : 0);
    return text;
}

std::filesystem::path ToPath(const std::wstring& text)
{
    const std::string bytes = ToUtf8(text);
    return {std::u8string(bytes.begin(), bytes.end())};
}
