// The local time in the logs.
#pragma once

#include <string>

/// The local time as `format`, for swprintf, has it: year, month, day, hour, minute, second and millisecond
/// in this order, each an unsigned number. A format may leave out the last ones. At most 63 characters.
std::wstring LocalTime(const wchar_t* format);
