// The calendar of automation, and how a date is written in the United States.
#include "calendar.h"

#include <cmath>
#include <cwchar>

namespace winport
{
namespace
{
constexpr int kFirstDay = -657434;
constexpr int kLastDay = 2958465;
// 30 December 1899 counted from 1 March of the year 0.
constexpr int kEpoch = 693899;

CivilDate CivilOf(int days)
{
    const int count = days + kEpoch;
    const int era = count / 146097;
    const int ofEra = count - era * 146097;
    const int yearOfEra = (ofEra - ofEra / 1460 + ofEra / 36524 - ofEra / 146096) / 365;
    const int ofYear = ofEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int month = (5 * ofYear + 2) / 153;
    CivilDate date{yearOfEra + era * 400, month < 10 ? month + 3 : month - 9,
                   ofYear - (153 * month + 2) / 5 + 1};
    if (date.month <= 2)
        ++date.year;
    return date;
}

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

// Years begin in March here, so that the leap day is a year's last.
int DaysOf(const CivilDate& date) noexcept
{
    const int year = date.month <= 2 ? date.year - 1 : date.year;
    const int month = (date.month + 9) % 12;
    return 365 * year + year / 4 - year / 100 + year / 400 + (153 * month + 2) / 5 + date.day - 1 - kEpoch;
}

int DaysInMonth(int year, int month) noexcept
{
    const CivilDate next{month == 12 ? year + 1 : year, month == 12 ? 1 : month + 1, 1};
    return DaysOf(next) - DaysOf({year, month, 1});
}

int FullYear(int year) noexcept
{
    if (year >= 100)
        return year;
    return year < 50 ? year + 2000 : year + 1900;
}

DATE Compose(int days, double fraction) noexcept
{
    return days < 0 ? days - fraction : days + fraction;
}

HRESULT WriteDate(DATE date, OLECHAR (&text)[kNumberLength]) noexcept
{
    if (!IsInRange(date))
        return E_INVALIDARG;
    const Moment moment = MomentOf(date);
    // Which halves are written is decided before rounding.
    const bool hasDay = std::trunc(date) != 0;
    const bool hasTime = date != std::trunc(date) || !hasDay;
    int length = 0;
    if (hasDay)
    {
        const CivilDate day = CivilOf(moment.days);
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

using namespace winport;

INT SystemTimeToVariantTime(LPSYSTEMTIME time, DOUBLE* date)
{
    if (!time || !date || time->wYear > 9999 || time->wMonth < 1 || time->wMonth > 12 || time->wDay > 31)
        return FALSE;
    // A day, hour or minute beyond its end runs over into the next unit.
    int seconds = (time->wHour * 60 + time->wMinute) * 60 + time->wSecond;
    const int days = DaysOf({FullYear(time->wYear), time->wMonth, time->wDay}) + seconds / kSecondsOfDay;
    seconds %= kSecondsOfDay;
    *date = Compose(days, static_cast<double>(seconds) / kSecondsOfDay);
    return TRUE;
}

INT VariantTimeToSystemTime(DOUBLE date, LPSYSTEMTIME time)
{
    if (!time || !IsInRange(date))
        return FALSE;
    const Moment moment = MomentOf(date);
    const CivilDate day = CivilOf(moment.days);
    *time = SYSTEMTIME{static_cast<WORD>(day.year), static_cast<WORD>(day.month),
                       // 30 December 1899 was a Saturday.
                       static_cast<WORD>((moment.days - kFirstDay * 7 + 6) % 7), static_cast<WORD>(day.day),
                       static_cast<WORD>(moment.seconds / 3600), static_cast<WORD>(moment.seconds / 60 % 60),
                       static_cast<WORD>(moment.seconds % 60), 0};
    return TRUE;
}
