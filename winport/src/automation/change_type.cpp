// Conversions between variant types.
#include <oleauto.h>
#include <winnls.h>

#include "conversion.h"
#include "window/window.h"

#include <cwchar>

namespace winport
{
namespace
{
// The types to which a value of another type is converted. Windows supports more.
bool IsTarget(VARTYPE type)
{
    return type == VT_I4 || type == VT_INT || type == VT_BOOL || type == VT_BSTR;
}

// True for the types to which Windows converts and winport does not.
bool IsMissing(VARTYPE type)
{
    switch (type)
    {
    case VT_EMPTY:
    case VT_NULL:
    case VT_DISPATCH:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
        return true;
    default:
        return IsWhole(type) && !IsTarget(type);
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
        // Copied unchanged, even if it is neither -1 nor 0.
        V_BOOL(target) = V_BOOL(source);
        return S_OK;
    }
    if (V_VT(source) == VT_BSTR && V_BSTR(source) && ReadTruth(V_BSTR(source), &V_BOOL(target)))
        return S_OK;
    Number number;
    HRESULT status = NumberOf(source, &number);
    double value = 0;
    if (status >= 0)
        status = RealOf(number, &value);
    V_BOOL(target) = value != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    return status;
}

HRESULT ToLong(const VARIANT* source, VARIANT* target)
{
    Number number;
    const HRESULT status = NumberOf(source, &number);
    return status < 0 ? status : LongOf(number, &V_I4(target));
}

// Writes a number or a date. DISP_E_TYPEMISMATCH for any other source.
HRESULT WriteText(const VARIANT* source, OLECHAR (&text)[kNumberLength])
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
    default:
        if (V_VT(source) != VT_BOOL && !IsWhole(V_VT(source)))
            return DISP_E_TYPEMISMATCH;
    }
    std::swprintf(text, kNumberLength, L"%lld", static_cast<long long>(WholeOf(source)));
    return S_OK;
}

HRESULT ToText(const VARIANT* source, VARIANT* target)
{
    OLECHAR text[kNumberLength];
    const HRESULT status = WriteText(source, text);
    if (status < 0)
        return status;
    V_BSTR(target) = SysAllocString(text);
    return V_BSTR(target) ? S_OK : E_OUTOFMEMORY;
}

HRESULT ToObject(const VARIANT* source, VARIANT* target)
{
    if (V_VT(source) != VT_DISPATCH)
        return DISP_E_TYPEMISMATCH;
    V_UNKNOWN(target) = nullptr;
    if (!V_DISPATCH(source))
        return S_OK;
    void* found = nullptr;
    const HRESULT status = V_DISPATCH(source)->QueryInterface(__uuidof(IUnknown), &found);
    V_UNKNOWN(target) = status < 0 ? nullptr : static_cast<IUnknown*>(found);
    return status;
}

HRESULT ToValue(const VARIANT* source, VARTYPE type, VARIANT* target)
{
    if (type == VT_BSTR)
        return ToText(source, target);
    return type == VT_BOOL ? ToBool(source, target) : ToLong(source, target);
}

// An object is converted by its default property; a property that is an object itself is not resolved again.
HRESULT ConvertProperty(const VARIANT* source, VARTYPE type, VARIANT* target)
{
    if (!V_DISPATCH(source))
        return DISP_E_BADVARTYPE;
    VARIANT value{};
    DISPPARAMS none{};
    HRESULT status = V_DISPATCH(source)->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                                DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
    if (status < 0)
        return DISP_E_TYPEMISMATCH;
    status = V_VT(&value) == type ? VariantCopy(target, &value) : ToValue(&value, type, target);
    VariantClear(&value);
    return status;
}

// `source` is not a reference.
HRESULT Convert(const VARIANT* source, VARTYPE type, VARIANT* target)
{
    const VARTYPE from = V_VT(source);
    if (from == type)
        return VariantCopy(target, source);
    V_VT(target) = type;
    if (from == VT_NULL || from == VT_ERROR || ((from | type) & (VT_ARRAY | VT_BYREF)))
        return DISP_E_TYPEMISMATCH;
    if (type == VT_UNKNOWN)
        return ToObject(source, target);
    if (IsMissing(type))
        Missing(nullptr, "conversion to the variant type", type);
    if (!IsTarget(type))
        return DISP_E_TYPEMISMATCH;
    return from == VT_DISPATCH ? ConvertProperty(source, type, target) : ToValue(source, type, target);
}

bool IsConvertible(VARTYPE type)
{
    return CheckVariantType(type) >= 0 && (type & VT_TYPEMASK) != VT_CLSID;
}
} // namespace
} // namespace winport

using namespace winport;

HRESULT VariantChangeType(VARIANTARG* target, const VARIANTARG* source, USHORT flags, VARTYPE type)
{
    if (!target || !source)
        return E_INVALIDARG;
    if (flags)
        Missing(nullptr, "conversion with the flags", flags);
    if (CheckVariantType(V_VT(target)) < 0 || CheckVariantType(V_VT(source)) < 0 || !IsConvertible(type))
        return DISP_E_BADVARTYPE;
    VARIANT value{};
    HRESULT status = VariantCopyInd(&value, source);
    if (status < 0)
        return status;
    VARIANT result{};
    status = Convert(&value, type, &result);
    VariantClear(&value);
    if (status < 0)
        return status;
    // The target is changed only if the conversion has succeeded.
    status = VariantClear(target);
    if (status < 0)
        VariantClear(&result);
    else
        *target = result;
    return status;
}