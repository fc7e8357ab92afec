// What the sources of automation share about variants and text.
#pragma once

#include <oleauto.h>

#include <cstddef>

namespace winport
{
/// S_OK if a variant may have this type, else DISP_E_BADVARTYPE.
HRESULT CheckVariantType(VARTYPE type) noexcept;

/// The bytes of a value of this type in an array or behind a reference; 0 if it can stand in neither.
std::size_t ValueSize(VARTYPE type) noexcept;

/// A copy of `text`; a null one gives an empty string. Null if memory is short.
BSTR CopyText(BSTR text) noexcept;

/// A number as a text spells it.
struct SpelledNumber
{
    double value = 0;
    /// Written in hexadecimal or octal: `bits` holds it, and it fills a signed type bit by bit.
    bool isBits = false;
    ULONGLONG bits = 0;
};

/// Reads a number with blanks, sign, parentheses, currency sign, thousands separators and exponent around and
/// in it. DISP_E_TYPEMISMATCH if `text` is none, DISP_E_OVERFLOW if no double holds it.
HRESULT ReadNumber(const OLECHAR* text, SpelledNumber* number) noexcept;

/// Reads a date and/or a time of day. DISP_E_TYPEMISMATCH if `text` is none.
HRESULT ReadDate(const OLECHAR* text, DATE* date) noexcept;

/// Enough room for any number or date.
constexpr std::size_t kNumberLength = 64;

/// 15 significant digits.
void WriteReal(double value, int digits, OLECHAR (&text)[kNumberLength]) noexcept;
/// E_INVALIDARG outside the years 100 to 9999.
HRESULT WriteDate(DATE date, OLECHAR (&text)[kNumberLength]) noexcept;
} // namespace winport
