#include "Variant.h"

#include "Bstr.h"
#include "ComException.h"

namespace
{
/// Whether `value` is a VT_BYREF without an address, which the system would read from all the same.
bool HasNullAddress(const VARIANT& value) noexcept
{
    return (value.vt & VT_BYREF) && !value.byref;
}

/// A reference to a variant may refer to one that is a reference itself.
bool RefersToNothing(const VARIANT& value) noexcept
{
    return HasNullAddress(value) || (value.vt == (VT_BYREF | VT_VARIANT) && HasNullAddress(*value.pvarVal));
}
} // namespace

Variant Variant::OfText(std::wstring_view text)
{
    Variant made;
    made.m_value.bstrVal = Bstr(text).detach();
    made.m_value.vt = VT_BSTR;
    return made;
}

HRESULT CopyResolved(const VARIANT& source, Variant& copy) noexcept
{
    VARIANT* const target = copy.put();
    return RefersToNothing(source) ? S_OK : VariantCopyInd(target, const_cast<VARIANT*>(&source));
}

bool CopyConverted(const VARIANT& source, VARTYPE type, Variant& copy)
{
    Variant resolved;
    HRESULT status = CopyResolved(source, resolved);
    VARIANT* const target = copy.put();
    if (status >= 0)
        status = VariantChangeType(target, const_cast<VARIANT*>(&resolved.get()), 0, type);
    if (status == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    return status >= 0;
}

void ReplaceReference(Variant& value)
{
    Variant resolved;
    if (CopyResolved(value.get(), resolved) == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    value = std::move(resolved);
}

bool ChangeToText(Variant& value)
{
    ResolveReference(value);
    Variant text;
    const HRESULT status = VariantChangeType(text.put(), const_cast<VARIANT*>(&value.get()), 0, VT_BSTR);
    if (status == E_OUTOFMEMORY)
        ThrowOutOfMemory();
    if (status < 0)
        return false;
    value = std::move(text);
    return true;
}
