#include "HostVariant.h"

#include "StatusError.h"

#include <utility>

namespace refhost
{
Variant Resolved(const VARIANT& source)
{
    Variant copy;
    Check(CopyResolved(source, copy));
    return copy;
}

void Become(Variant& value, VARTYPE type)
{
    if (value.Type() == type)
        return;
    Variant converted;
    Check(VariantChangeType(converted.put(), const_cast<VARIANT*>(&value.get()), 0, type));
    value = std::move(converted);
}

Variant OfNumber(LONG number)
{
    Variant made;
    VARIANT* const value = made.put();
    value->vt = VT_I4;
    value->lVal = number;
    return made;
}

Variant OfFlag(bool flag)
{
    Variant made;
    VARIANT* const value = made.put();
    value->vt = VT_BOOL;
    value->boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return made;
}

bool IsNothing(const VARIANT& value)
{
    return value.vt == VT_EMPTY || value.vt == VT_NULL || (IsReference(value) && !value.punkVal);
}

bool IsReference(const VARIANT& value)
{
    return value.vt == VT_UNKNOWN || value.vt == VT_DISPATCH;
}
} // namespace refhost
