// Variants: init, clear, copy, copy of a reference.
#include <oleauto.h>

#include "safe_array.h"
#include "variant.h"

#include <cstring>

namespace winport
{
namespace
{
constexpr bool IsKnown(unsigned type)
{
    return type <= VT_DECIMAL || (type >= VT_I1 && type <= VT_UINT) || type == VT_INT_PTR ||
           type == VT_UINT_PTR || type == VT_CLSID;
}

bool IsReference(const VARIANT* variant)
{
    return V_ISBYREF(variant) != 0;
}

// Replaces the content of a flat copy, which the source owns, by a copy of its own.
HRESULT OwnContent(VARIANT* copy)
{
    if (IsReference(copy))
        return S_OK;
    if (V_ISARRAY(copy))
    {
        SAFEARRAY* source = V_ARRAY(copy);
        return CopyArray(source, &V_ARRAY(copy));
    }
    if (V_VT(copy) == VT_BSTR)
    {
        V_BSTR(copy) = CopyText(V_BSTR(copy));
        return V_BSTR(copy) ? S_OK : E_OUTOFMEMORY;
    }
    if ((V_VT(copy) == VT_UNKNOWN || V_VT(copy) == VT_DISPATCH) && V_UNKNOWN(copy))
        V_UNKNOWN(copy)->AddRef();
    return S_OK;
}

// Moves `content` to `target`; after a failure `target` is empty.
HRESULT Replace(VARIANT* target, VARIANT* content, HRESULT status)
{
    const HRESULT cleared = VariantClear(target);
    if (status >= 0 && cleared >= 0)
    {
        *target = *content;
        return S_OK;
    }
    if (status < 0)
        return status;
    VariantClear(content);
    return cleared;
}

// Reads the value behind a reference to anything but a variant. The source still owns it.
HRESULT ReadReference(const VARIANT* source, VARIANT* value)
{
    const auto type = static_cast<VARTYPE>(V_VT(source) & ~VT_BYREF);
    if (!V_BYREF(source) || type == VT_EMPTY || type == VT_NULL)
        return E_INVALIDARG;
    VariantInit(value);
    V_VT(value) = type;
    if (type & VT_ARRAY)
    {
        V_ARRAY(value) = *V_ARRAYREF(source);
        return S_OK;
    }
    const std::size_t size = ValueSize(type);
    if (!size || type == VT_VARIANT)
        return E_INVALIDARG;
    // A decimal overlaps the type of the variant.
    void* place = type == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(value)) : &V_I8(value);
    std::memcpy(place, V_BYREF(source), size);
    V_VT(value) = type;
    return S_OK;
}
} // namespace

std::size_t ValueSize(VARTYPE type) noexcept
{
    switch (type)
    {
    case VT_I1:
    case VT_UI1:
        return sizeof(BYTE);
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return sizeof(SHORT);
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return sizeof(LONG);
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_INT_PTR:
    case VT_UINT_PTR:
        return sizeof(LONGLONG);
    case VT_BSTR:
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return sizeof(void*);
    case VT_DECIMAL:
        return sizeof(DECIMAL);
    case VT_VARIANT:
        return sizeof(VARIANT);
    default:
        return 0;
    }
}

HRESULT CheckVariantType(VARTYPE type) noexcept
{
    const unsigned base = type & VT_TYPEMASK;
    const bool ofNothing = (type & (VT_ARRAY | VT_BYREF)) && (base == VT_EMPTY || base == VT_NULL);
    return !(type & (VT_VECTOR | VT_RESERVED)) && IsKnown(base) && !ofNothing ? S_OK : DISP_E_BADVARTYPE;
}

BSTR CopyText(BSTR text) noexcept
{
    return SysAllocStringLen(text, SysStringLen(text));
}
} // namespace winport

using namespace winport;

void VariantInit(VARIANTARG* variant)
{
    if (variant)
        *variant = VARIANT{};
}

HRESULT VariantClear(VARIANTARG* variant)
{
    if (!variant)
        return E_INVALIDARG;
    const VARTYPE type = V_VT(variant);
    HRESULT status = CheckVariantType(type);
    if (status >= 0 && V_ISARRAY(variant) && !IsReference(variant))
        status = SafeArrayDestroy(V_ARRAY(variant));
    if (status < 0)
        return status;
    // Emptied before Release, which may call back.
    V_VT(variant) = VT_EMPTY;
    if (type == VT_BSTR)
        SysFreeString(V_BSTR(variant));
    else if ((type == VT_UNKNOWN || type == VT_DISPATCH) && V_UNKNOWN(variant))
        V_UNKNOWN(variant)->Release();
    return S_OK;
}

HRESULT VariantCopy(VARIANTARG* target, const VARIANTARG* source)
{
    if (!target || !source)
        return E_INVALIDARG;
    HRESULT status = CheckVariantType(V_VT(source));
    if (status < 0 || target == source)
        return status;
    status = CheckVariantType(V_VT(target));
    if (status < 0)
        return status;
    VARIANT copy = *source;
    status = OwnContent(&copy);
    return Replace(target, &copy, status);
}

HRESULT VariantCopyInd(VARIANT* target, const VARIANTARG* source)
{
    if (!target || !source)
        return E_INVALIDARG;
    if (!IsReference(source))
        return VariantCopy(target, source);
    HRESULT status = CheckVariantType(V_VT(target));
    if (status < 0)
        return status;
    VARIANT copy{};
    if (V_VT(source) == (VT_VARIANT | VT_BYREF))
    {
        // A reference to a reference to a variant is refused.
        const VARIANT* inner = V_VARIANTREF(source);
        if (!inner || V_VT(inner) == (VT_VARIANT | VT_BYREF))
            status = E_INVALIDARG;
        else
            status = VariantCopyInd(&copy, inner);
    }
    else
    {
        status = ReadReference(source, &copy);
        if (status >= 0)
            status = OwnContent(&copy);
    }
    if (target == source && status < 0)
        return status;
    return Replace(target, &copy, status);
}
