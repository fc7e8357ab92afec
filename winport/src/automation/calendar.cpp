#include "calendar.h"

#include <chrono>

namespace winport
{
namespace
{
using namespace std::chrono;

constexpr sys_days kEpoch = December / 30 / 1899;
} // namespace

int DaysOf(const CivilDate& date) noexcept
{
    const sys_days first = year(date.year) / month(static_cast<unsigned>(date.month)) / 1;
    return static_cast<int>((first - kEpoch).count()) + date.day - 1;
}

int DaysInMonth(int year, int month) noexcept
{
    const CivilDate next{month == 12 ? year + 1 : year, month == 12 ? 1 : month + 1, 1};
    return DaysOf(next) - DaysOf({year, month, 1});
}

CivilDate DateOfDays(int days) noexcept
{
    const year_month_day date = kEpoch + std::chrono::days(days);
    return {int{date.year()}, static_cast<int>(unsigned{date.month()}),
            static_cast<int>(unsigned{date.day()})};
}
} // namespace winport
