#include "ShownBox.h"

namespace
{
std::string Utf8(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}
} // namespace

std::string Describe(const ShownBox& box)
{
    return "the box \"" + Utf8(box.title) + "\" with the text \"" + Utf8(box.text) + "\"";
}
