#include "text.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr char32_t kBad = 0xFFFFFFFF;

bool IsCodePoint(char32_t value)
{
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

struct Lead
{
    int following; ///< continuation bytes; negative for what cannot start a sequence
    char32_t bits; ///< the lead byte's share of the code point
    unsigned char
        low; ///< the second byte's range, which keeps out overlong forms, surrogates and too large values
    unsigned char high;
};

Lead LeadOf(unsigned char byte)
{
    if (byte < 0x80)
        return {0, byte, 0, 0};
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, byte & 0x1Fu, 0x80, 0xBF};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, byte & 0x0Fu, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, byte & 0x07u, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
    return {-1, 0, 0, 0};
}

// Removes one sequence from the front of `text`, or the longest valid beginning of an invalid one.
char32_t NextCodePoint(std::string_view& text)
{
    const Lead lead = LeadOf(static_cast<unsigned char>(text.front()));
    text.remove_prefix(1);
    if (lead.following < 0)
        return kBad;
    char32_t value = lead.bits;
    for (int i = 0; i < lead.following; ++i)
    {
        const unsigned char byte = text.empty() ? 0 : static_cast<unsigned char>(text.front());
        if (byte < (i == 0 ? lead.low : 0x80) || byte > (i == 0 ? lead.high : 0xBF))
            return kBad;
        value = (value << 6) | (byte & 0x3Fu);
        text.remove_prefix(1);
    }
    return value;
}

void AppendUtf8(std::string& out, char32_t value)
{
    const auto tail = [&](int shift) {
        out.push_back(static_cast<char>(0x80 | ((value >> shift) & 0x3F)));
    };
    if (value < 0x80)
    {
        out.push_back(static_cast<char>(value));
        return;
    }
    if (value < 0x800)
        out.push_back(static_cast<char>(0xC0 | (value >> 6)));
    else if (value < 0x10000)
        out.push_back(static_cast<char>(0xE0 | (value >> 12)));
    else
        out.push_back(static_cast<char>(0xF0 | (value >> 18)));
    if (value >= 0x10000)
        tail(12);
    if (value >= 0x800)
        tail(6);
    tail(0);
}
} // namespace

std::wstring Wide(std::string_view text, bool* invalid)
{
    std::wstring out;
    out.reserve(text.size());
    while (!text.empty())
    {
        const char32_t value = NextCodePoint(text);
        if (value == kBad && invalid)
            *invalid = true;
        out.push_back(value == kBad ? kReplacement : static_cast<wchar_t>(value));
    }
    return out;
}

std::string Utf8(std::wstring_view text, bool* invalid)
{
    std::string out;
    out.reserve(text.size());
    for (const wchar_t character : text)
    {
        const auto value = static_cast<char32_t>(character);
        if (!IsCodePoint(value) && invalid)
            *invalid = true;
        AppendUtf8(out, IsCodePoint(value) ? value : static_cast<char32_t>(kReplacement));
    }
    return out;
}

std::wstring WideFromUtf16(const unsigned char* data, std::size_t units)
{
    const auto unit = [&](std::size_t i) {
        return static_cast<char32_t>(data[2 * i] | (data[2 * i + 1] << 8));
    };
    std::wstring out;
    out.reserve(units);
    for (std::size_t i = 0; i < units; ++i)
    {
        const char32_t first = unit(i);
        const char32_t second = i + 1 < units ? unit(i + 1) : 0;
        const bool pair = first >= 0xD800 && first <= 0xDBFF && second >= 0xDC00 && second <= 0xDFFF;
        const char32_t value = pair ? 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00) : first;
        out.push_back(IsCodePoint(value) ? static_cast<wchar_t>(value) : kReplacement);
        i += pair ? 1 : 0;
    }
    return out;
}

int CompareNoCase(std::wstring_view a, std::wstring_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i)
    {
        if (a[i] == b[i])
            continue;
        const wchar_t left = Upper(a[i]);
        const wchar_t right = Upper(b[i]);
        if (left != right)
            return left < right ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

DWORD CopyOut(std::wstring_view text, LPWSTR buffer, DWORD size)
{
    const auto length = static_cast<DWORD>(text.size());
    if (!buffer || size <= length)
        return length + 1;
    text.copy(buffer, length);
    buffer[length] = L'\0';
    return length;
}

std::string SystemPath(std::wstring_view path)
{
    constexpr std::wstring_view kLongPath = L"\\\\?\\";
    if (path.substr(0, kLongPath.size()) == kLongPath)
        path.remove_prefix(kLongPath.size());
    std::string out = Utf8(path);
    std::replace(out.begin(), out.end(), '\\', '/');
    return out;
}
} // namespace winport
