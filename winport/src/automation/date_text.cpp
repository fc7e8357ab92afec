// How a date is written in the United States. A date counts days since 30 December 1899; its fraction is the
// time of day.
#include "calendar.h"
#include "variant.h"

#include <cmath>
#include <cwchar>

namespace winport
{
namespace
{
constexpr int kFirstDay = -657434;
constexpr int kLastDay = 2958465;
constexpr int kSecondsOfDay = 86400;

// A date in whole seconds, rounded.
struct Moment
{
    int days;
    int seconds;
};

Moment MomentOf(DATE date)
{
    const double whole = std::trunc(date);
    Moment moment{static_cast<int>(whole),
                  static_cast<int>(std::floor(std::fabs(date - whole) * kSecondsOfDay + 0.5))};
    if (moment.seconds >= kSecondsOfDay)
    {
        moment.seconds = 0;
        ++moment.days;
    }
    return moment;
}

bool IsInRange(DATE date)
{
    return date > kFirstDay - 1.0 && date < kLastDay + 1.0;
}
} // namespace

HRESULT WriteDate(DATE date, OLECHAR (&text)[kNumberLength]) noexcept
{
    if (!IsInRange(date))
        return E_INVALIDARG;
    const Moment moment = MomentOf(date);
    // Date and time are written or left out by the value before rounding.
    const bool hasDay = std::trunc(date) != 0;
    const bool hasTime = date != std::trunc(date) || !hasDay;
    int length = 0;
    if (hasDay)
    {
        const CivilDate day = DateOfDays(moment.days);
        length = std::swprintf(text, kNumberLength, L"%d/%d/%d", day.month, day.day, day.year);
    }
    if (hasTime)
    {
        const int hour = moment.seconds / 3600;
        std::swprintf(text + length, kNumberLength - static_cast<std::size_t>(length), L"%ls%d:%02d:%02d %ls",
                      hasDay ? L" " : L"", hour % 12 ? hour % 12 : 12, moment.seconds / 60 % 60,
                      moment.seconds % 60, hour < 12 ? L"AM" : L"PM");
    }
    return S_OK;
}
} // namespace winport
