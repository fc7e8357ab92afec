#include "LogBookEntry.h"

#include "LocalTime.h"

#include <cwchar>
#include <string_view>

namespace
{
// Line separators outside the control characters, to which the third one, NEL (U+0085), belongs.
constexpr wchar_t kLineSeparator = 0x2028;
constexpr wchar_t kParagraphSeparator = 0x2029;

bool MustBeEscaped(wchar_t character)
{
    return character < 0x20 || (character >= 0x7f && character < 0xa0) || character == kLineSeparator ||
           character == kParagraphSeparator;
}

template <class... Values>
std::wstring Formatted(const wchar_t* format, Values... values)
{
    wchar_t text[64];
    const int length = std::swprintf(text, std::size(text), format, values...);
    return {text, static_cast<std::size_t>(length < 0 ? 0 : length)};
}

void AppendEscaped(std::wstring& line, std::wstring_view field)
{
    for (const wchar_t character : field)
    {
        if (character == L'\\')
            line += L"\\\\";
        else if (character == L'\n')
            line += L"\\n";
        else if (character == L'\r')
            line += L"\\r";
        else if (character == L'\t')
            line += L"\\t";
        else if (MustBeEscaped(character))
            line += Formatted(L"\\u%04x", static_cast<unsigned>(character));
        else
            line += character;
    }
}

void AppendField(std::wstring& line, const wchar_t* field)
{
    AppendEscaped(line, field && *field ? field : L"-");
    line += L'\t';
}
} // namespace

std::wstring LogBookLine(const LogBookEntry& entry)
{
    std::wstring line;
    AppendField(line, LocalTime(L"%04u-%02u-%02u %02u:%02u:%02u.%03u").c_str());
    AppendField(line, entry.kind);
    AppendField(line, entry.source);
    AppendField(line, entry.function);
    AppendField(line, Formatted(L"%u", static_cast<unsigned>(entry.line)).c_str());
    AppendField(line,
                entry.status ? Formatted(L"0x%08X", static_cast<unsigned>(*entry.status)).c_str() : nullptr);
    AppendField(line, entry.flags);
    AppendEscaped(line, entry.text ? entry.text : L"");
    line += L'\n';
    return line;
}
