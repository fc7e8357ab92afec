// Conversions between variant types.
#include <oleauto.h>
#include <winnls.h>

#include "wpvariant.h"

#include <cmath>
#include <cwchar>
#include <limits>
#include <utility>

namespace winport
{
namespace
{
// What the source of a conversion to a number is: a whole number, a real one, or neither.
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

bool IsWhole(VARTYPE type)
{
    return type == VT_I2 || type == VT_I4 || (type >= VT_I1 && type <= VT_UINT);
}

bool IsReal(VARTYPE type)
{
    return type == VT_R4 || type == VT_R8 || type == VT_DATE;
}

bool IsTarget(VARTYPE type)
{
    return IsWhole(type) || IsReal(type) || type == VT_BOOL || type == VT_BSTR;
}

LONGLONG WholeOf(const VARIANT* source)
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

// The number in `source` for a conversion to `type`.
HRESULT NumberOf(const VARIANT* source, VARTYPE type, Number* number)
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
        return V_VT(source) == VT_EMPTY || V_VT(source) == VT_BOOL || IsWhole(V_VT(source)) ? S_OK
                                                                                             : DISP_E_TYPEMISMATCH;
    }
    number->kind = Number::Kind::Real;
    return S_OK;
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
    if (!(rounded >= static_cast<double>(Limits::min()) && rounded < static_cast<double>(Limits::max()) + 1.0))
        return DISP_E_OVERFLOW;
    *target = static_cast<T>(rounded);
    return S_OK;
}

HRESULT RealOf(const Number& number, double* value)
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

HRESULT StoreNumber(const Number& number, VARTYPE type, VARIANT* target)
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

bool IsWord(const OLECHAR* text, const OLECHAR* word)
{
    for (; *text && *word; ++text, ++word)
    {
        const OLECHAR lower = *text >= L'A' && *text <= L'Z' ? static_cast<OLECHAR>(*text | 0x20) : *text;
        if (lower != *word)
            return false;
    }
    return *text == *word;
}

bool ReadTruth(const OLECHAR* text, VARIANT_BOOL* value)
{
    *value = IsWord(text, L"true") || std::wcscmp(text, L"#TRUE#") == 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return *value || IsWord(text, L"false") || std::wcscmp(text, L"#FALSE#") == 0;
}

HRESULT ToBool(const VARIANT* source, VARIANT* target)
{
    if (V_VT(source) == VT_BOOL)
    {
        // Carried as it is, also a value that is neither -1 nor 0.
        V_BOOL(target) = V_BOOL(source);
        return S_OK;
    }
    if (V_VT(source) == VT_BSTR && V_BSTR(source) && ReadTruth(V_BSTR(source), &V_BOOL(target)))
        return S_OK;
    Number number;
    HRESULT status = NumberOf(source, VT_R8, &number);
    double value = 0;
    if (status >= 0)
        status = RealOf(number, &value);
    V_BOOL(target) = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return status;
}

HRESULT ToNumber(const VARIANT* source, VARTYPE type, VARIANT* target)
{
    Number number;
    const HRESULT status = NumberOf(source, type, &number);
    return status < 0 ? status : StoreNumber(number, type, target);
}

// Writes a number's text. DISP_E_TYPEMISMATCH if the source is none.
HRESULT WriteText(const VARIANT* source, USHORT flags, OLECHAR (&text)[kNumberLength])
{
    text[0] = L'\0';
    switch (V_VT(source))
    {
    case VT_EMPTY:
        return S_OK;
    case VT_R4:
        WriteReal(static_cast<double>(V_R4(source)), 7, text);
        return S_OK;
    case VT_R8:
        WriteReal(V_R8(source), 15, text);
        return S_OK;
    case VT_DATE:
        return WriteDate(V_DATE(source), text);
    case VT_UI8:
        std::swprintf(text, kNumberLength, L"%llu", static_cast<unsigned long long>(V_UI8(source)));
        return S_OK;
    case VT_BOOL:
        if (flags & (VARIANT_ALPHABOOL | VARIANT_LOCALBOOL))
        {
            std::wcscpy(text, V_BOOL(source) ? L"True" : L"False");
            return S_OK;
        }
        break;
    default:
        if (!IsWhole(V_VT(source)))
            return DISP_E_TYPEMISMATCH;
    }
    std::swprintf(text, kNumberLength, L"%lld", static_cast<long long>(WholeOf(source)));
    return S_OK;
}

HRESULT ToText(const VARIANT* source, USHORT flags, VARIANT* target)
{
    OLECHAR text[kNumberLength];
    const HRESULT status = WriteText(source, flags, text);
    if (status < 0)
        return status;
    V_BSTR(target) = SysAllocString(text);
    return V_BSTR(target) ? S_OK : E_OUTOFMEMORY;
}

HRESULT ToObject(const VARIANT* source, VARTYPE type, VARIANT* target)
{
    if (V_VT(source) != VT_UNKNOWN && V_VT(source) != VT_DISPATCH)
        return DISP_E_TYPEMISMATCH;
    V_UNKNOWN(target) = nullptr;
    if (!V_UNKNOWN(source))
        return S_OK;
    void* found = nullptr;
    const IID& wanted = type == VT_DISPATCH ? __uuidof(IDispatch) : __uuidof(IUnknown);
    const HRESULT status = V_UNKNOWN(source)->QueryInterface(wanted, &found);
    V_UNKNOWN(target) = status < 0 ? nullptr : static_cast<IUnknown*>(found);
    return status;
}

HRESULT Convert(const VARIANT* source, LCID lcid, USHORT flags, VARTYPE type, VARIANT* target);

// An object stands for its default property.
HRESULT ConvertProperty(const VARIANT* source, LCID lcid, USHORT flags, VARTYPE type, VARIANT* target)
{
    if (flags & VARIANT_NOVALUEPROP)
        return DISP_E_TYPEMISMATCH;
    if (!V_DISPATCH(source))
        return DISP_E_BADVARTYPE;
    VARIANT value{};
    DISPPARAMS none{};
    HRESULT status = V_DISPATCH(source)->Invoke(DISPID_VALUE, IID_NULL, lcid, DISPATCH_PROPERTYGET, &none, &value,
                                                nullptr, nullptr);
    if (status < 0)
        return DISP_E_TYPEMISMATCH;
    status = Convert(&value, lcid, flags | VARIANT_NOVALUEPROP, type, target);
    VariantClear(&value);
    return status;
}

// `source` has no reference and another type than wanted.
HRESULT Convert(const VARIANT* source, LCID lcid, USHORT flags, VARTYPE type, VARIANT* target)
{
    V_VT(target) = type;
    const VARTYPE from = V_VT(source);
    if (from == type)
    {
        V_VT(target) = VT_EMPTY;
        return VariantCopy(target, source);
    }
    if (from == VT_NULL || from == VT_ERROR || ((from | type) & (VT_ARRAY | VT_BYREF)))
        return DISP_E_TYPEMISMATCH;
    if (type == VT_EMPTY || type == VT_NULL)
        return S_OK;
    if (type == VT_UNKNOWN || type == VT_DISPATCH)
        return ToObject(source, type, target);
    if (!IsTarget(type))
        return DISP_E_TYPEMISMATCH;
    if (from == VT_DISPATCH)
        return ConvertProperty(source, lcid, flags, type, target);
    if (type == VT_BSTR)
        return ToText(source, flags, target);
    if (type == VT_BOOL)
        return ToBool(source, target);
    return ToNumber(source, type, target);
}

bool IsConvertible(VARTYPE type)
{
    return CheckVariantType(type) >= 0 && (type & VT_TYPEMASK) != VT_CLSID;
}
}
}

using namespace winport;

HRESULT VariantChangeTypeEx(VARIANTARG* target, const VARIANTARG* source, LCID lcid, USHORT flags, VARTYPE type)
{
    if (!target || !source)
        return E_INVALIDARG;
    if (CheckVariantType(V_VT(target)) < 0 || CheckVariantType(V_VT(source)) < 0 || !IsConvertible(type))
        return DISP_E_BADVARTYPE;
    VARIANT value{};
    HRESULT status = VariantCopyInd(&value, source);
    if (status < 0)
        return status;
    VARIANT result{};
    status = Convert(&value, lcid, flags, type, &result);
    VariantClear(&value);
    if (status < 0)
        return status;
    // The target is touched only when the conversion has succeeded.
    status = VariantClear(target);
    if (status < 0)
        VariantClear(&result);
    else
        *target = result;
    return status;
}

HRESULT VariantChangeType(VARIANTARG* target, const VARIANTARG* source, USHORT flags, VARTYPE type)
{
    return VariantChangeTypeEx(target, source, LOCALE_USER_DEFAULT, flags, type);
}
