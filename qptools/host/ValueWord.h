// Whether a value that the host delivered counts as set.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace qptools
{
/// The value of `value` as one number, of which callers test whether it is zero. References (VT_BYREF) are
/// followed.
///
/// - nothing, null: 0
/// - booleans, integers, error codes: their value
/// - strings, objects, arrays: 1 if the pointer is not null, so an empty but present text counts as set
/// - floating point numbers, dates, currency, decimals: 1 if any bit is set, so -0.0 counts as set
/// - anything else: 0
LONGLONG ValueWord(const VARIANT& value) noexcept;
} // namespace qptools
