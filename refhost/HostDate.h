// Dates as the host reads and stores them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace refhost
{
/// The date in `text` as the database stores it: "2026-03-01", or "2026-03-01 08:30:00" if it has a time of
/// day. std::nullopt if it is none.
///
/// A date is year-month-day, day.month.year or month/day/year, with a year of four digits. After a blank may
/// follow hours and minutes, with or without seconds, and AM or PM. The user's locale makes no difference.
std::optional<std::string> StoredDate(std::string_view text);

/// The same for a VT_DATE: days since 30 December 1899. std::nullopt beyond the years 100 to 9999.
std::optional<std::string> StoredDate(double days);
} // namespace refhost
