// Numbers on their way from one variant type to another.
#pragma once

#include "variant.h"

namespace winport
{
/// What the source of a conversion is: a whole number, a real one, or a pattern of bits.
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

/// Whether variants of this type hold a whole number; VT_BOOL is none.
bool IsWhole(VARTYPE type) noexcept;

/// The whole number or truth value in `source`; 0 for any other type.
LONGLONG WholeOf(const VARIANT* source) noexcept;

/// The number in `source` for a conversion to `type`. DISP_E_TYPEMISMATCH if there is none, DISP_E_OVERFLOW
/// if no double holds it.
HRESULT NumberOf(const VARIANT* source, VARTYPE type, Number* number) noexcept;

/// DISP_E_OVERFLOW for a pattern of bits that is no positive LONG.
HRESULT RealOf(const Number& number, double* value) noexcept;

/// Writes the value of `target`, which has or will have the number type `type`. DISP_E_OVERFLOW if it does
/// not fit.
HRESULT StoreNumber(const Number& number, VARTYPE type, VARIANT* target) noexcept;
} // namespace winport
