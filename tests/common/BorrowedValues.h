// Variants that own nothing: to be passed on or copied, never cleared.
#pragma once

#include <windows.h>

#include <oleauto.h>

/// A VT_I4.
inline VARIANT NumberValue(LONG number)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_I4;
    value.lVal = number;
    return value;
}

/// A reference to `object`, which may be null. `type` is VT_UNKNOWN or VT_DISPATCH, in odd cases any other.
inline VARIANT ObjectReference(IUnknown* object, VARTYPE type = VT_UNKNOWN)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    value.punkVal = object;
    return value;
}
