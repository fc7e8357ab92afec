// Shared by the sources of automation: types of variants, text of numbers and dates.
#pragma once

#include <oleauto.h>

#include <cstddef>

namespace winport
{
/// S_OK if a variant may have this type, else DISP_E_BADVARTYPE.
HRESULT CheckVariantType(VARTYPE type) noexcept;

/// The size of a value of this type in an array or behind a reference; 0 if neither can hold the type.
std::size_t ValueSize(VARTYPE type) noexcept;

/// A copy of `text`; a null one gives an empty string. Null if out of memory.
BSTR CopyText(BSTR text) noexcept;

/// A number as a text spells it.
struct SpelledNumber
{
    double value = 0;
    /// True for a hexadecimal or octal number: its value is `bits`, which may fill the sign bit of a signed
    /// type.
    bool isBits = false;
    ULONGLONG bits = 0;
};

/// Reads a number, which may have blanks, a sign, parentheses, a currency sign, thousands separators, an
/// exponent. DISP_E_TYPEMISMATCH if `text` is no number, DISP_E_OVERFLOW if no double holds it.
HRESULT ReadNumber(const OLECHAR* text, SpelledNumber* number) noexcept;

/// Large enough for any number or date.
constexpr std::size_t kNumberLength = 64;

/// Writes a number with `digits` significant digits.
void WriteReal(double value, int digits, OLECHAR (&text)[kNumberLength]) noexcept;
/// Writes a date as M/d/yyyy h:mm:ss AM. E_INVALIDARG outside of the years 100 to 9999.
HRESULT WriteDate(DATE date, OLECHAR (&text)[kNumberLength]) noexcept;
} // namespace winport
