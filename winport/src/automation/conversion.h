// Conversion of numbers between variant types.
#pragma once

#include "variant.h"

namespace winport
{
/// The number that the source of a conversion holds: a whole number, a real one, or a pattern of bits.
struct Number
{
    enum class Kind
    {
        Whole,
        Real,
        Bits
    };
    Kind kind = Kind::Whole;
    LONGLONG whole = 0;
    double real = 0;
    VARTYPE type = VT_EMPTY;
};

/// True for the integer types; false for VT_BOOL.
bool IsWhole(VARTYPE type) noexcept;

/// The whole number or truth value in `source`; 0 for any other type.
LONGLONG WholeOf(const VARIANT* source) noexcept;

/// Reads the number in `source`. DISP_E_TYPEMISMATCH if there is none, DISP_E_OVERFLOW if no double holds it.
HRESULT NumberOf(const VARIANT* source, Number* number) noexcept;

/// DISP_E_OVERFLOW for a pattern of bits that is no positive LONG.
HRESULT RealOf(const Number& number, double* value) noexcept;

/// A real number is rounded; a half goes to the even neighbour. DISP_E_OVERFLOW beyond the range of LONG.
HRESULT LongOf(const Number& number, LONG* value) noexcept;
} // namespace winport
