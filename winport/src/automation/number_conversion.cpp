// Numbers on their way from one variant type to another.
#include "conversion.h"

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

namespace winport
{
namespace
{
HRESULT NumberOfText(BSTR text, VARTYPE type, Number* number)
{
    if (type == VT_DATE)
    {
        number->kind = Number::Kind::Real;
        number->type = VT_DATE;
        return ReadDate(text, &number->real);
    }
    SpelledNumber spelled;
    const HRESULT status = ReadNumber(text, &spelled);
    number->kind = spelled.isBits ? Number::Kind::Bits : Number::Kind::Real;
    number->real = spelled.value;
    number->whole = static_cast<LONGLONG>(spelled.bits);
    number->type = VT_R8;
    return status;
}

// A signed and an unsigned type of the same width.
template <class T>
bool IsCounterpart(VARTYPE type)
{
    switch (type)
    {
    case VT_I1:
    case VT_UI1:
        return sizeof(T) == 1;
    case VT_I2:
    case VT_UI2:
        return sizeof(T) == 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
        return sizeof(T) == 4;
    case VT_I8:
    case VT_UI8:
        return sizeof(T) == 8;
    default:
        return false;
    }
}

// Types of one width share their bits, and so does a truth value with all; others must hold the value.
template <class T>
HRESULT StoreWhole(const Number& number, T* target)
{
    using Limits = std::numeric_limits<T>;
    if (number.kind == Number::Kind::Bits)
    {
        const auto bits = static_cast<ULONGLONG>(number.whole);
        *target = static_cast<T>(bits);
        return bits <= std::numeric_limits<std::make_unsigned_t<T>>::max() ? S_OK : DISP_E_OVERFLOW;
    }
    if (number.kind == Number::Kind::Whole)
    {
        *target = static_cast<T>(number.whole);
        if (IsCounterpart<T>(number.type) || number.type == VT_BOOL)
            return S_OK;
        const bool huge = number.type == VT_UI8 && number.whole < 0;
        return !huge && std::in_range<T>(number.whole) ? S_OK : DISP_E_OVERFLOW;
    }
    // A half goes to the even neighbour.
    const double rounded = std::nearbyint(number.real);
    if (!(rounded >= static_cast<double>(Limits::min()) &&
          rounded < static_cast<double>(Limits::max()) + 1.0))
        return DISP_E_OVERFLOW;
    *target = static_cast<T>(rounded);
    return S_OK;
}

// The calendar ends at the years 100 and 9999; a date that is one already is not asked.
HRESULT StoreDate(const Number& number, DATE* target)
{
    const HRESULT status = RealOf(number, target);
    if (status < 0 || number.type == VT_DATE)
        return status;
    return *target > -657435.0 && *target < 2958466.0 ? S_OK : DISP_E_OVERFLOW;
}

HRESULT StoreSingle(const Number& number, FLOAT* target)
{
    double value = 0;
    const HRESULT status = RealOf(number, &value);
    if (status >= 0 && std::fabs(value) > static_cast<double>(std::numeric_limits<FLOAT>::max()))
        return DISP_E_OVERFLOW;
    *target = static_cast<FLOAT>(value);
    return status;
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

HRESULT NumberOf(const VARIANT* source, VARTYPE type, Number* number) noexcept
{
    number->type = V_VT(source);
    switch (V_VT(source))
    {
    case VT_BSTR:
        return NumberOfText(V_BSTR(source), type, number);
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

HRESULT StoreNumber(const Number& number, VARTYPE type, VARIANT* target) noexcept
{
    switch (type)
    {
    case VT_I1:
        return StoreWhole(number, reinterpret_cast<signed char*>(&V_I1(target)));
    case VT_UI1:
        return StoreWhole(number, &V_UI1(target));
    case VT_I2:
        return StoreWhole(number, &V_I2(target));
    case VT_UI2:
        return StoreWhole(number, &V_UI2(target));
    case VT_I4:
    case VT_INT:
        return StoreWhole(number, &V_I4(target));
    case VT_UI4:
    case VT_UINT:
        return StoreWhole(number, &V_UI4(target));
    case VT_I8:
        return StoreWhole(number, &V_I8(target));
    case VT_UI8:
        return StoreWhole(number, &V_UI8(target));
    case VT_R4:
        return StoreSingle(number, &V_R4(target));
    case VT_R8:
        return RealOf(number, &V_R8(target));
    case VT_DATE:
        return StoreDate(number, &V_DATE(target));
    default:
        return DISP_E_TYPEMISMATCH;
    }
}
} // namespace winport
