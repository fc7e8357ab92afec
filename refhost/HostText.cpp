#include "HostText.h"

#include <new>

namespace refhost
{
namespace
{
constexpr char32_t kReplacement = 0xFFFD;
constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

bool IsSurrogate(char32_t c)
{
    return c >= 0xD800 && c <= 0xDFFF;
}

/// The character at `at`, which moves behind it.
char32_t NextWide(std::wstring_view text, std::size_t& at)
{
    const auto c = static_cast<char32_t>(text[at++]);
    if (!IsSurrogate(c))
        return c > 0x10FFFF ? kReplacement : c;
    if (kWideIsUtf16 && c < 0xDC00 && at < text.size())
    {
        const auto low = static_cast<char32_t>(text[at]);
        if (low >= 0xDC00 && low <= 0xDFFF)
        {
            ++at;
            return 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
        }
    }
    return kReplacement;
}

void AppendUtf8(std::string& out, char32_t c)
{
    const auto tail = [c](int shift) {
        return static_cast<char>(0x80 | ((c >> shift) & 0x3F));
    };
    if (c < 0x80)
        out += static_cast<char>(c);
    else if (c < 0x800)
        (out += static_cast<char>(0xC0 | (c >> 6))) += tail(0);
    else if (c < 0x10000)
        ((out += static_cast<char>(0xE0 | (c >> 12))) += tail(6)) += tail(0);
    else
        (((out += static_cast<char>(0xF0 | (c >> 18))) += tail(12)) += tail(6)) += tail(0);
}

void AppendWide(std::wstring& out, char32_t c)
{
    if (kWideIsUtf16 && c >= 0x10000)
    {
        out += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
        out += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
    else
        out += static_cast<wchar_t>(c);
}

/// The character at `at`, which moves behind it, or behind one byte if no character starts there; `good`
/// tells which.
char32_t NextUtf8(std::string_view text, std::size_t& at, bool& good)
{
    const auto lead = static_cast<unsigned char>(text[at++]);
    good = true;
    if (lead < 0x80)
        return lead;
    const int more = lead >= 0xF0 && lead < 0xF5   ? 3
                     : lead >= 0xE0 && lead < 0xF0 ? 2
                     : lead >= 0xC2 && lead < 0xE0 ? 1
                                                   : 0;
    char32_t c = more == 3 ? lead & 0x07 : more == 2 ? lead & 0x0F : lead & 0x1F;
    std::size_t end = at;
    for (int i = 0; i < more && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80;
         ++i)
        c = (c << 6) | (static_cast<unsigned char>(text[end++]) & 0x3F);
    const char32_t least = more == 3 ? 0x10000 : more == 2 ? 0x800 : 0x80;
    good = more > 0 && end - at == static_cast<std::size_t>(more) && c >= least && c <= 0x10FFFF &&
           !IsSurrogate(c);
    if (!good)
        return kReplacement;
    at = end;
    return c;
}
} // namespace

std::string ToUtf8(std::wstring_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        AppendUtf8(out, NextWide(text, at));
    return out;
}

std::string PathText(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::wstring FromUtf8(std::string_view text)
{
    std::wstring out;
    out.reserve(text.size());
    bool good = true;
    for (std::size_t at = 0; at < text.size();)
        AppendWide(out, NextUtf8(text, at, good));
    return out;
}

bool IsUtf8(std::string_view text)
{
    bool good = true;
    for (std::size_t at = 0; at < text.size() && good;)
        NextUtf8(text, at, good);
    return good;
}

BSTR MakeBstr(std::wstring_view text)
{
    const BSTR string = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!string)
        throw std::bad_alloc();
    return string;
}
} // namespace refhost
