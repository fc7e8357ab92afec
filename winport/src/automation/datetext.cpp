// Dates: days since 30 December 1899 with the time of day as a fraction, and how a user in the United States writes them.
#include "wpvariant.h"

#include <cmath>
#include <cwchar>
#include <ctime>
#include <initializer_list>

namespace winport
{
namespace
{
constexpr int kSecondsOfDay = 86400;
constexpr int kFirstDay = -657434;
constexpr int kLastDay = 2958465;
// 30 December 1899 counted from 1 March of the year 0.
constexpr int kEpoch = 693899;

struct CivilDate
{
    int year;
    int month;
    int day;
};

// Days from 30 December 1899. Years begin in March here, so that the leap day is a year's last.
int DaysOf(const CivilDate& date)
{
    const int year = date.month <= 2 ? date.year - 1 : date.year;
    const int month = (date.month + 9) % 12;
    return 365 * year + year / 4 - year / 100 + year / 400 + (153 * month + 2) / 5 + date.day - 1 - kEpoch;
}

CivilDate CivilOf(int days)
{
    const int count = days + kEpoch;
    const int era = count / 146097;
    const int ofEra = count - era * 146097;
    const int yearOfEra = (ofEra - ofEra / 1460 + ofEra / 36524 - ofEra / 146096) / 365;
    const int ofYear = ofEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int month = (5 * ofYear + 2) / 153;
    CivilDate date{yearOfEra + era * 400, month < 10 ? month + 3 : month - 9, ofYear - (153 * month + 2) / 5 + 1};
    if (date.month <= 2)
        ++date.year;
    return date;
}

int DaysInMonth(int year, int month)
{
    const CivilDate next{month == 12 ? year + 1 : year, month == 12 ? 1 : month + 1, 1};
    return DaysOf(next) - DaysOf({year, month, 1});
}

// Years of one or two digits lie between 1950 and 2049.
int FullYear(int year)
{
    if (year >= 100)
        return year;
    return year < 50 ? year + 2000 : year + 1900;
}

// The time of a day before the epoch counts forward from its midnight all the same.
DATE Compose(int days, double fraction)
{
    return days < 0 ? days - fraction : days + fraction;
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
    Moment moment{static_cast<int>(whole), static_cast<int>(std::floor(std::fabs(date - whole) * kSecondsOfDay + 0.5))};
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

const OLECHAR* const kMonths[] = {L"january", L"february", L"march",     L"april",   L"may",      L"june",
                                  L"july",    L"august",   L"september", L"october", L"november", L"december"};
const OLECHAR* const kWeekdays[] = {L"sunday", L"monday", L"tuesday", L"wednesday", L"thursday", L"friday", L"saturday"};

OLECHAR Lower(OLECHAR character)
{
    return character >= L'A' && character <= L'Z' ? static_cast<OLECHAR>(character - L'A' + L'a') : character;
}

bool IsLetter(OLECHAR character)
{
    return Lower(character) >= L'a' && Lower(character) <= L'z';
}

bool IsDigit(OLECHAR character)
{
    return character >= L'0' && character <= L'9';
}

// Whether the first `length` letters of `word` are `name` or its first `shortest`.
bool IsName(const OLECHAR* word, std::size_t length, const OLECHAR* name, std::size_t shortest)
{
    const std::size_t whole = std::wcslen(name);
    if (length != whole && length != shortest)
        return false;
    for (std::size_t i = 0; i < length; ++i)
    {
        if (Lower(word[i]) != name[i])
            return false;
    }
    return true;
}

int CurrentYear()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

// Up to three numbers and a month's name for the day; hours, minutes, seconds with a mark for the half of the day.
class CDateReader
{
public:
    explicit CDateReader(const OLECHAR* text) noexcept : m_at(text) {}
    HRESULT Read(DATE* date) noexcept;

private:
    enum class Half
    {
        None,
        Morning,
        Afternoon
    };

    bool Scan() noexcept;
    bool Number() noexcept;
    bool Word() noexcept;
    bool Time(int hour) noexcept;
    int Digits() noexcept;
    void SkipBlanks() noexcept;
    bool AtHalf() const noexcept;
    bool Day(int* days) const noexcept;
    bool Arrange(CivilDate* date) const noexcept;
    bool ArrangeNamed(CivilDate* date) const noexcept;
    bool TimeOfDay(double* fraction) const noexcept;

    const OLECHAR* m_at;
    int m_numbers[3] = {};
    int m_count = 0;
    int m_month = 0;
    int m_hour = -1;
    int m_minute = 0;
    int m_second = 0;
    Half m_half = Half::None;
};

void CDateReader::SkipBlanks() noexcept
{
    while (*m_at == L' ' || *m_at == L'\t')
        ++m_at;
}

int CDateReader::Digits() noexcept
{
    int value = 0;
    for (; IsDigit(*m_at); ++m_at)
    {
        if (value < 100000)
            value = value * 10 + (*m_at - L'0');
    }
    return value;
}

// Whether AM, PM, a or p comes next.
bool CDateReader::AtHalf() const noexcept
{
    const OLECHAR first = Lower(m_at[0]);
    if (first != L'a' && first != L'p')
        return false;
    return !IsLetter(m_at[1]) || (Lower(m_at[1]) == L'm' && !IsLetter(m_at[2]));
}

bool CDateReader::Time(int hour) noexcept
{
    if (m_hour >= 0)
        return false;
    m_hour = hour;
    for (int* part : {&m_minute, &m_second})
    {
        if (*m_at != L':')
            return true;
        ++m_at;
        if (!IsDigit(*m_at))
            return false;
        *part = Digits();
    }
    return true;
}

bool CDateReader::Number() noexcept
{
    const int value = Digits();
    if (*m_at == L':')
        return Time(value);
    SkipBlanks();
    if (AtHalf())
        return Time(value);
    if (m_count == 3)
        return false;
    m_numbers[m_count++] = value;
    return true;
}

bool CDateReader::Word() noexcept
{
    if (AtHalf())
    {
        if (m_hour < 0 || m_half != Half::None)
            return false;
        m_half = Lower(*m_at) == L'a' ? Half::Morning : Half::Afternoon;
        m_at += Lower(m_at[1]) == L'm' ? 2 : 1;
        return true;
    }
    const OLECHAR* word = m_at;
    while (IsLetter(*m_at))
        ++m_at;
    const auto length = static_cast<std::size_t>(m_at - word);
    for (int i = 0; i < 12 && !m_month; ++i)
    {
        if (IsName(word, length, kMonths[i], 3))
        {
            m_month = i + 1;
            return true;
        }
    }
    for (const OLECHAR* weekday : kWeekdays)
    {
        if (IsName(word, length, weekday, 3))
            return true;
    }
    return false;
}

bool CDateReader::Scan() noexcept
{
    for (SkipBlanks(); *m_at; SkipBlanks())
    {
        if (IsDigit(*m_at))
        {
            if (!Number())
                return false;
        }
        else if (IsLetter(*m_at))
        {
            if (!Word())
                return false;
        }
        else if ((*m_at == L'/' || *m_at == L'-' || *m_at == L',') && (m_count || m_month))
            ++m_at;
        else
            return false;
    }
    return true;
}

// The month is written as a name: day and year remain.
bool CDateReader::ArrangeNamed(CivilDate* date) const noexcept
{
    date->month = m_month;
    if (m_count == 1)
    {
        const bool isYear = m_numbers[0] > 31;
        date->year = isYear ? m_numbers[0] : CurrentYear();
        date->day = isYear ? 1 : m_numbers[0];
        return true;
    }
    const bool yearFirst = m_numbers[0] > 31;
    date->day = m_numbers[yearFirst ? 1 : 0];
    date->year = m_numbers[yearFirst ? 0 : 1];
    return m_count == 2;
}

// Month before day; a month that can be none is read as the day.
bool CDateReader::Arrange(CivilDate* date) const noexcept
{
    if (m_month)
        return ArrangeNamed(date);
    if (m_count < 2)
        return false;
    if (m_count == 2)
    {
        const bool hasDay = m_numbers[1] <= 31;
        *date = {hasDay ? CurrentYear() : m_numbers[1], m_numbers[0], hasDay ? m_numbers[1] : 1};
    }
    else if (m_numbers[0] > 31)
        *date = {m_numbers[0], m_numbers[1], m_numbers[2]};
    else
        *date = {m_numbers[2], m_numbers[0], m_numbers[1]};
    if (date->month > 12 && date->day <= 12)
        *date = {date->year, date->day, date->month};
    return true;
}

bool CDateReader::Day(int* days) const noexcept
{
    CivilDate date{};
    if (!Arrange(&date))
        return false;
    date.year = FullYear(date.year);
    if (date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1 ||
        date.day > DaysInMonth(date.year, date.month))
        return false;
    *days = DaysOf(date);
    return true;
}

bool CDateReader::TimeOfDay(double* fraction) const noexcept
{
    if (m_hour > 23 || m_minute > 59 || m_second > 59)
        return false;
    int hour = m_hour;
    if (m_half == Half::Afternoon && hour < 12)
        hour += 12;
    if (m_half == Half::Morning && hour == 12)
        hour = 0;
    *fraction = static_cast<double>((hour * 60 + m_minute) * 60 + m_second) / kSecondsOfDay;
    return true;
}

HRESULT CDateReader::Read(DATE* date) noexcept
{
    const bool readable = Scan();
    const bool hasDay = m_count || m_month;
    int days = 0;
    double fraction = 0;
    if (!readable || (!hasDay && m_hour < 0) || (hasDay && !Day(&days)) || (m_hour >= 0 && !TimeOfDay(&fraction)))
        return DISP_E_TYPEMISMATCH;
    *date = Compose(days, fraction);
    return S_OK;
}
}

HRESULT ReadDate(const OLECHAR* text, DATE* date) noexcept
{
    return text ? CDateReader(text).Read(date) : DISP_E_TYPEMISMATCH;
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
                      hasDay ? L" " : L"", hour % 12 ? hour % 12 : 12, moment.seconds / 60 % 60, moment.seconds % 60,
                      hour < 12 ? L"AM" : L"PM");
    }
    return S_OK;
}
}

using namespace winport;

INT SystemTimeToVariantTime(LPSYSTEMTIME time, DOUBLE* date)
{
    if (!time || !date || time->wYear > 9999 || time->wMonth < 1 || time->wMonth > 12 || time->wDay > 31)
        return FALSE;
    // A day, hour or minute beyond its end runs over into the next unit.
    int seconds = (time->wHour * 60 + time->wMinute) * 60 + time->wSecond;
    const int days =
        DaysOf({FullYear(time->wYear), time->wMonth, time->wDay}) + seconds / kSecondsOfDay;
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
    *time = SYSTEMTIME{static_cast<WORD>(day.year),
                       static_cast<WORD>(day.month),
                       // 30 December 1899 was a Saturday.
                       static_cast<WORD>((moment.days - kFirstDay * 7 + 6) % 7),
                       static_cast<WORD>(day.day),
                       static_cast<WORD>(moment.seconds / 3600),
                       static_cast<WORD>(moment.seconds / 60 % 60),
                       static_cast<WORD>(moment.seconds % 60),
                       0};
    return TRUE;
}
