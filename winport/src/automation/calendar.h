// The calendar of automation: days since 30 December 1899 with the time of day as a fraction.
#pragma once

#include "variant.h"

namespace winport
{
constexpr int kSecondsOfDay = 86400;

struct CivilDate
{
    int year;
    int month;
    int day;
};

/// Days from 30 December 1899; a day beyond its month's end counts on into the next.
int DaysOf(const CivilDate& date) noexcept;

int DaysInMonth(int year, int month) noexcept;

/// Years of one or two digits lie between 1950 and 2049.
int FullYear(int year) noexcept;

/// The time of a day before the epoch counts forward from its midnight all the same.
DATE Compose(int days, double fraction) noexcept;
} // namespace winport
