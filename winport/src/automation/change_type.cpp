// Conversions between variant types.
#include <oleauto.h>
#include <winnls.h>

#include "conversion.h"

#include <cwchar>

namespace winport
{
namespace
{
bool IsReal(VARTYPE type)
{
    return type == VT_R4 || type == VT_R8 || type == VT_DATE;
}

bool IsTarget(VARTYPE type)
{
    return IsWhole(type) || IsReal(type) || type == VT_BOOL || type == VT_BSTR;
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
    HRESULT status = V_DISPATCH(source)->Invoke(DISPID_VALUE, IID_NULL, lcid, DISPATCH_PROPERTYGET, &none,
                                                &value, nullptr, nullptr);
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
} // namespace
} // namespace winport

using namespace winport;

HRESULT VariantChangeTypeEx(VARIANTARG* target, const VARIANTARG* source, LCID lcid, USHORT flags,
                            VARTYPE type)
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
