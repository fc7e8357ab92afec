// Dates as a user in the United States writes them.
#include "calendar.h"

#include <ctime>
#include <cwchar>
#include <initializer_list>

namespace winport
{
namespace
{
const OLECHAR* const kMonths[] = {L"january",   L"february", L"march",    L"april",
                                  L"may",       L"june",     L"july",     L"august",
                                  L"september", L"october",  L"november", L"december"};
const OLECHAR* const kWeekdays[] = {L"sunday",   L"monday", L"tuesday", L"wednesday",
                                    L"thursday", L"friday", L"saturday"};

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

// Up to three numbers and a month's name for the day; hours, minutes, seconds with a mark for the half of the
// day.
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
    bool AtTimeMark() const noexcept { return *m_at == L':' || *m_at == L'.'; }
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
        if (!AtTimeMark())
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
    if (AtTimeMark())
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
    if (!readable || (!hasDay && m_hour < 0) || (hasDay && !Day(&days)) ||
        (m_hour >= 0 && !TimeOfDay(&fraction)))
        return DISP_E_TYPEMISMATCH;
    *date = Compose(days, fraction);
    return S_OK;
}
} // namespace

HRESULT ReadDate(const OLECHAR* text, DATE* date) noexcept
{
    return text ? CDateReader(text).Read(date) : DISP_E_TYPEMISMATCH;
}
} // namespace winport
