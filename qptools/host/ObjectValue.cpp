#include "ObjectValue.h"

namespace qptools
{
IUnknown* ObjectOf(const VARIANT& value) noexcept
{
    const VARIANT* inner = &value;
    // The system allows one reference to a variant, not a chain.
    if (inner->vt == (VT_BYREF | VT_VARIANT))
        inner = inner->pvarVal;
    if (!inner)
        return nullptr;
    switch (inner->vt)
    {
    case VT_UNKNOWN:
    case VT_DISPATCH:
        return inner->punkVal;
    case VT_BYREF | VT_UNKNOWN:
    case VT_BYREF | VT_DISPATCH:
        return inner->ppunkVal ? *inner->ppunkVal : nullptr;
    default:
        return nullptr;
    }
}

VARIANT BorrowedObject(IUnknown* object) noexcept
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_UNKNOWN;
    value.punkVal = object;
    return value;
}
} // namespace qptools
