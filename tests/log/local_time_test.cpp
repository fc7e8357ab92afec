// Both logs tell the local time, from 00 to 23 hours. The tests run in zones that their registration sets,
// away from the universal time, so that neither that time nor a clock of twelve hours passes for it.
#include "LogFolder.h"
#include "QPUserActionLog.h"
#include "XQPError.h"

#include "ComPtr.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace
{
/// The clock of the zone, computed from the universal time.
class LocalTime : public ::testing::Test
{
protected:
    LocalTime()
    {
        // Letters, then the hours by which the zone is behind: "EAST-9", "WEST+3".
        const char* zone = std::getenv("TZ");
        const std::string name = zone ? zone : "";
        const std::size_t letters = std::min(name.find_first_of("+-"), name.size());
        m_ahead = std::chrono::hours(-std::atoi(name.c_str() + letters));
        EXPECT_NE(m_ahead.count(), 0) << "run by ctest, or with such a zone in TZ (QP_WINE_TZ under Wine)";
    }

    std::string Now(const char* format) const
    {
        using namespace std::chrono;
        const auto now = floor<seconds>(system_clock::now()) + m_ahead;
        const auto day = floor<days>(now);
        const year_month_day date(day);
        const hh_mm_ss time(now - day);
        char text[64];
        std::snprintf(text, sizeof text, format, static_cast<int>(date.year()),
                      static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                      static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                      static_cast<int>(time.seconds().count()));
        return text;
    }

    const LogFolder folder;

private:
    std::chrono::seconds m_ahead{};
};

TEST_F(LocalTime, StampsTheLogOfUserActions)
{
    const char* const format = "Date/Time %04d-%02u-%02u @ %02d:%02d:%02d";
    ComPtr<IQPUserActionLog> log;
    ASSERT_EQ(CreateComObject<qptools::QPUserActionLog>(nullptr, __uuidof(IQPUserActionLog), log.putVoid()),
              S_OK);
    const std::string before = Now(format);
    EXPECT_EQ(log->WriteTimeStamp(), S_OK);
    const std::string stamp = folder.Bytes();
    EXPECT_EQ(stamp.size(), before.size());
    EXPECT_LE(before, stamp);
    EXPECT_LE(stamp, Now(format));
}

TEST_F(LocalTime, StampsTheLogBook)
{
    const char* const format = "%04d-%02u-%02u %02d:%02d:%02d";
    const std::string before = Now(format);
    XQPError::WriteLogLineToLogBook(L"source", L"function", 1, L"text");
    const std::string stamp = folder.Bytes("logbook.log").substr(0, before.size());
    EXPECT_LE(before, stamp);
    EXPECT_LE(stamp, Now(format));
}
} // namespace
