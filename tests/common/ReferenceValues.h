// Values by address (VT_BYREF).
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <vector>

/// A VT_BYREF of `type` to `address`, which may be null and is borrowed.
inline VARIANT ByAddress(VARTYPE type, void* address)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = static_cast<VARTYPE>(VT_BYREF | type);
    value.byref = address;
    return value;
}

/// References without an address, the last behind a variant.
inline std::vector<VARIANT> NullAddresses()
{
    static VARIANT inner = ByAddress(VT_BSTR, nullptr);
    return {ByAddress(VT_BSTR, nullptr), ByAddress(VT_UNKNOWN, nullptr), ByAddress(VT_I4, nullptr),
            ByAddress(VT_VARIANT, nullptr), ByAddress(VT_VARIANT, &inner)};
}
