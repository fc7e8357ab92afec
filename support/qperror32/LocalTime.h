// The local time in the logs.
#pragma once

#include <string>

/// The local time, formatted by swprintf. The arguments are year, month, day, hour, minute, second and
/// millisecond, in this order, each an unsigned number; `format` may leave out the last ones. The result has
/// at most 63 characters.
std::wstring LocalTime(const wchar_t* format);
