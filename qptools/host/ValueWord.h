// Whether a value of the host counts as set.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace qptools
{
/// `value` as one number, which callers compare with zero. VT_BYREF is resolved.
///
/// - VT_EMPTY, VT_NULL: 0
/// - booleans, integers, error codes: their value
/// - strings, objects, arrays: 1 if the pointer is not null, so an empty but non-null text counts as set
/// - floating point numbers, dates, currency, decimals: 1 if any bit is set, so -0.0 counts as set
/// - anything else, a null address included: 0
LONGLONG ValueWord(const VARIANT& value) noexcept;
} // namespace qptools
