// The calendar.
#pragma once

namespace winport
{
struct CivilDate
{
    int year;
    int month;
    int day;
};

/// Days since 30 December 1899. A day beyond the end of its month counts on into the next one.
int DaysOf(const CivilDate& date) noexcept;

int DaysInMonth(int year, int month) noexcept;

/// The date of a number of days since 30 December 1899.
CivilDate DateOfDays(int days) noexcept;
} // namespace winport
