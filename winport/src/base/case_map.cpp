// Case mapping of single characters, and what compares and measures text with it.
#include "text.h"

#include <clocale>
#include <cwctype>

namespace winport
{
namespace
{
// A locale of our own, so that the program's choice of locale changes no name.
locale_t CaseLocale()
{
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}
} // namespace

wchar_t Upper(wchar_t character)
{
    if (character < 0x80)
        return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - 32) : character;
    return CaseLocale() ? static_cast<wchar_t>(towupper_l(static_cast<wint_t>(character), CaseLocale()))
                        : character;
}

wchar_t Lower(wchar_t character)
{
    if (character < 0x80)
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + 32) : character;
    return CaseLocale() ? static_cast<wchar_t>(towlower_l(static_cast<wint_t>(character), CaseLocale()))
                        : character;
}
} // namespace winport

using namespace winport;

DWORD CharLowerBuffW(LPWSTR text, DWORD length)
{
    for (DWORD i = 0; text && i < length; ++i)
        text[i] = Lower(text[i]);
    return text ? length : 0;
}

int CompareStringOrdinal(LPCWSTR a, int lengthA, LPCWSTR b, int lengthB, BOOL ignoreCase)
{
    if (!a || !b || lengthA < -1 || lengthB < -1)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::wstring_view left(a, lengthA < 0 ? std::wcslen(a) : static_cast<std::size_t>(lengthA));
    const std::wstring_view right(b, lengthB < 0 ? std::wcslen(b) : static_cast<std::size_t>(lengthB));
    const int order = ignoreCase ? CompareNoCase(left, right) : left.compare(right);
    return order < 0 ? CSTR_LESS_THAN : (order > 0 ? CSTR_GREATER_THAN : CSTR_EQUAL);
}
