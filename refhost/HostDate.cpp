#include "HostDate.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

namespace refhost
{
namespace
{
using Numbers = std::vector<int>;

struct TimeOfDay
{
    int hour = 0;
    int minute = 0;
    int second = 0;
};

constexpr int kSecondsOfDay = 24 * 60 * 60;

std::string_view Trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// The numbers of at most four digits between `separators`; nothing if there is anything else.
std::optional<Numbers> Split(std::string_view text, char separator)
{
    Numbers numbers;
    for (const char *place = text.data(), *end = place + text.size();; ++place)
    {
        int number = 0;
        const auto [stop, error] = std::from_chars(place, end, number);
        if (error != std::errc() || number < 0 || stop - place > 4)
            return std::nullopt;
        numbers.push_back(number);
        place = stop;
        if (place == end)
            return numbers;
        if (*place != separator)
            return std::nullopt;
    }
}

std::optional<std::chrono::year_month_day> DayIn(std::string_view text)
{
    const auto mark = text.find_first_of("-./");
    if (mark == std::string_view::npos)
        return std::nullopt;
    const std::optional<Numbers> parts = Split(text, text[mark]);
    if (!parts || parts->size() != 3)
        return std::nullopt;
    const auto [first, second, third] = std::array{(*parts)[0], (*parts)[1], (*parts)[2]};
    const auto day = [](int y, int m, int d) {
        return std::chrono::year_month_day(std::chrono::year(y), std::chrono::month(static_cast<unsigned>(m)),
                                           std::chrono::day(static_cast<unsigned>(d)));
    };
    const auto date = text[mark] == '-'   ? day(first, second, third)
                      : text[mark] == '.' ? day(third, second, first)
                                          : day(third, first, second);
    const bool fits = date.ok() && date.year() >= std::chrono::year(1000);
    return fits ? std::optional(date) : std::nullopt;
}

std::optional<TimeOfDay> TimeIn(std::string_view text)
{
    const bool morning = text.ends_with("AM");
    const bool halves = morning || text.ends_with("PM");
    if (halves)
        text = Trimmed(text.substr(0, text.size() - 2));
    const std::optional<Numbers> parts = Split(text, ':');
    if (!parts || parts->size() < 2 || parts->size() > 3)
        return std::nullopt;
    TimeOfDay time{(*parts)[0], (*parts)[1], parts->size() == 3 ? (*parts)[2] : 0};
    if (halves && (time.hour < 1 || time.hour > 12))
        return std::nullopt;
    if (halves)
        time.hour = time.hour % 12 + (morning ? 0 : 12);
    const bool fits = time.hour < 24 && time.minute < 60 && time.second < 60;
    return fits ? std::optional(time) : std::nullopt;
}

std::string Stored(const std::chrono::year_month_day& date, const std::optional<TimeOfDay>& time)
{
    std::array<char, 40> text{};
    int length = std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                               static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    if (time)
    {
        length += std::snprintf(text.data() + length, text.size() - static_cast<std::size_t>(length),
                                " %02d:%02d:%02d", time->hour, time->minute, time->second);
    }
    return {text.data(), static_cast<std::size_t>(length)};
}
} // namespace

std::optional<std::string> StoredDate(std::string_view text)
{
    text = Trimmed(text);
    const auto blank = text.find(' ');
    const auto date = DayIn(text.substr(0, blank));
    if (!date)
        return std::nullopt;
    if (blank == std::string_view::npos)
        return Stored(*date, std::nullopt);
    const auto time = TimeIn(Trimmed(text.substr(blank)));
    return time ? std::optional(Stored(*date, time)) : std::nullopt;
}

std::optional<std::string> StoredDate(double days)
{
    constexpr double kFirst = -657434.0;  // 1 January 100
    constexpr double kBehind = 2958466.0; // 1 January 10000
    if (!(days >= kFirst && days < kBehind))
        return std::nullopt;
    // The whole part counts days, also before the first; the rest is the time of day in either direction.
    const auto whole = static_cast<int>(days);
    const int second = static_cast<int>(std::lround(std::fabs(days - whole) * kSecondsOfDay));
    const std::chrono::sys_days start(std::chrono::year(1899) / 12 / 30);
    const std::chrono::year_month_day date(start + std::chrono::days(whole + second / kSecondsOfDay));
    const int left = second % kSecondsOfDay;
    if (left == 0)
        return Stored(date, std::nullopt);
    return Stored(date, TimeOfDay{left / 3600, left / 60 % 60, left % 60});
}
} // namespace refhost
