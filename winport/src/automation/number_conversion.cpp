// Conversion of numbers between variant types.
#include "conversion.h"

#include <cmath>
#include <limits>
#include <utility>

namespace winport
{
namespace
{
HRESULT NumberOfText(BSTR text, Number* number)
{
    SpelledNumber spelled;
    const HRESULT status = ReadNumber(text, &spelled);
    number->kind = spelled.isBits ? Number::Kind::Bits : Number::Kind::Real;
    number->real = spelled.value;
    number->whole = static_cast<LONGLONG>(spelled.bits);
    return status;
}

// An unsigned number of four bytes keeps its bits; any other must be in range.
HRESULT LongOfWhole(const Number& number, LONG* value)
{
    *value = static_cast<LONG>(number.whole);
    if (number.type == VT_UI4 || number.type == VT_UINT)
        return S_OK;
    const bool huge = number.type == VT_UI8 && number.whole < 0;
    return !huge && std::in_range<LONG>(number.whole) ? S_OK : DISP_E_OVERFLOW;
}
} // namespace

bool IsWhole(VARTYPE type) noexcept
{
    return type == VT_I2 || type == VT_I4 || (type >= VT_I1 && type <= VT_UINT);
}

LONGLONG WholeOf(const VARIANT* source) noexcept
{
    switch (V_VT(source))
    {
    case VT_I1:
        return static_cast<signed char>(V_I1(source));
    case VT_UI1:
        return V_UI1(source);
    case VT_I2:
    case VT_BOOL:
        return V_I2(source);
    case VT_UI2:
        return V_UI2(source);
    case VT_I4:
    case VT_INT:
        return V_I4(source);
    case VT_UI4:
    case VT_UINT:
        return V_UI4(source);
    case VT_I8:
    case VT_UI8:
        return V_I8(source);
    default:
        return 0;
    }
}

HRESULT NumberOf(const VARIANT* source, Number* number) noexcept
{
    number->type = V_VT(source);
    switch (V_VT(source))
    {
    case VT_BSTR:
        return NumberOfText(V_BSTR(source), number);
    case VT_R4:
        number->real = V_R4(source);
        break;
    case VT_R8:
    case VT_DATE:
        number->real = V_R8(source);
        break;
    default:
        number->whole = WholeOf(source);
        return V_VT(source) == VT_EMPTY || V_VT(source) == VT_BOOL || IsWhole(V_VT(source))
                   ? S_OK
                   : DISP_E_TYPEMISMATCH;
    }
    number->kind = Number::Kind::Real;
    return S_OK;
}

HRESULT RealOf(const Number& number, double* value) noexcept
{
    if (number.kind == Number::Kind::Bits)
    {
        *value = static_cast<double>(number.whole);
        return number.whole >= 0 && number.whole <= std::numeric_limits<LONG>::max() ? S_OK : DISP_E_OVERFLOW;
    }
    if (number.kind == Number::Kind::Real)
        *value = number.real;
    else
        *value = number.type == VT_UI8 ? static_cast<double>(static_cast<ULONGLONG>(number.whole))
                                       : static_cast<double>(number.whole);
    return S_OK;
}

HRESULT LongOf(const Number& number, LONG* value) noexcept
{
    using Limits = std::numeric_limits<LONG>;
    if (number.kind == Number::Kind::Whole)
        return LongOfWhole(number, value);
    if (number.kind == Number::Kind::Bits)
    {
        const auto bits = static_cast<ULONGLONG>(number.whole);
        *value = static_cast<LONG>(bits);
        return bits <= std::numeric_limits<ULONG>::max() ? S_OK : DISP_E_OVERFLOW;
    }
    const double rounded = std::nearbyint(number.real);
    if (!(rounded >= Limits::min() && rounded <= Limits::max()))
        return DISP_E_OVERFLOW;
    *value = static_cast<LONG>(rounded);
    return S_OK;
}
} // namespace winport
