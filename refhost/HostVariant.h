// Reading and making the values of host calls.
#pragma once

#include "Variant.h"

#include <windows.h>

namespace refhost
{
/// A copy of `source` with VT_BYREF resolved. Throws StatusError with the status of a failed copy.
Variant Resolved(const VARIANT& source);

/// Converts in place. Throws StatusError with the status of a failed conversion.
void Become(Variant& value, VARTYPE type);

Variant OfNumber(LONG number);
Variant OfFlag(bool flag);

/// Whether `value` means "no value": VT_EMPTY, VT_NULL or a null object reference.
bool IsNothing(const VARIANT& value);

/// Whether `value` is an object reference, which may be null.
bool IsReference(const VARIANT& value);
} // namespace refhost
