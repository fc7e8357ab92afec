// Conversions between dates, numbers and text.
#include "ChangeTypeTest.h"

#include <cmath>

TEST(ChangeType, ARealNumberIsADateWithinTheCalendar)
{
    EXPECT_EQ(36526.25, ChangedReal(OfR8(36526.25), VT_DATE));
    EXPECT_EQ(36526.25, ChangedReal(OfR8(36526.25, VT_DATE), VT_R8));
    EXPECT_EQ(2958465.5, ChangedReal(OfR8(2958465.5), VT_DATE));
    EXPECT_EQ(-657434.5, ChangedReal(OfR8(-657434.5), VT_DATE));
    EXPECT_EQ(L"overflow", Changed(OfR8(2958466), VT_DATE));
    EXPECT_EQ(L"overflow", Changed(OfR8(-657435), VT_DATE));
    EXPECT_EQ(3e9, ChangedReal(OfR8(3e9, VT_DATE), VT_DATE));
}

TEST(ChangeType, ADateIsWrittenWithTheHalvesItHas)
{
    const std::pair<double, const wchar_t*> cases[] = {{0, L"'12:00:00 AM'"},
                                                       {0.5, L"'12:00:00 PM'"},
                                                       {-0.5, L"'12:00:00 PM'"},
                                                       {1.0 / 24, L"'1:00:00 AM'"},
                                                       {0.99999, L"'11:59:59 PM'"},
                                                       {1, L"'12/31/1899'"},
                                                       {-1, L"'12/29/1899'"},
                                                       {2, L"'1/1/1900'"},
                                                       {60, L"'2/28/1900'"},
                                                       {61, L"'3/1/1900'"},
                                                       {36526, L"'1/1/2000'"},
                                                       {36526.25, L"'1/1/2000 6:00:00 AM'"},
                                                       {36526.5, L"'1/1/2000 12:00:00 PM'"},
                                                       {36526.75, L"'1/1/2000 6:00:00 PM'"},
                                                       {36526.01, L"'1/1/2000 12:14:24 AM'"},
                                                       {-1.25, L"'12/29/1899 6:00:00 AM'"},
                                                       {-36526.25, L"'12/28/1799 6:00:00 AM'"},
                                                       {2958465, L"'12/31/9999'"},
                                                       {2958465.5, L"'12/31/9999 12:00:00 PM'"},
                                                       {-657434, L"'1/1/100'"}};
    for (const auto& [date, expected] : cases)
        EXPECT_EQ(expected, Changed(OfR8(date, VT_DATE), VT_BSTR)) << date;
}

TEST(ChangeType, ADateIsRoundedToTheSecond)
{
    EXPECT_EQ(L"'1/1/2000 12:00:29 PM'", Changed(OfR8(36526.5 + 29.4 / 86400, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"'1/1/2000 12:00:30 PM'", Changed(OfR8(36526.5 + 29.6 / 86400, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"'1/2/2000 12:00:00 AM'", Changed(OfR8(36526.99999999, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"'12:00:00 AM'", Changed(OfR8(0.9999999, VT_DATE), VT_BSTR));
}

TEST(ChangeType, ADateOutsideTheCalendarIsNotWritten)
{
    EXPECT_EQ(L"bad argument", Changed(OfR8(2958466, VT_DATE), VT_BSTR));
    EXPECT_EQ(L"bad argument", Changed(OfR8(-657435, VT_DATE), VT_BSTR));
}

TEST(ChangeType, TextThatIsADate)
{
    const double afternoon = 15.0 / 24 + 4.0 / 1440;
    const std::pair<const wchar_t*, double> cases[] = {{L"1/2/2003", 37623},
                                                       {L" 1/2/2003 ", 37623},
                                                       {L"1-2-2003", 37623},
                                                       {L"1 / 2 / 2003", 37623},
                                                       {L"12/31/1999", 36525},
                                                       {L"2003-01-02", 37623},
                                                       {L"2003/1/2", 37623},
                                                       {L"2003/13/2", 37665},
                                                       {L"13/1/2003", 37634},
                                                       {L"31/12/1999", 36525},
                                                       {L"1/2/03", 37623},
                                                       {L"1/2/00", 36527},
                                                       {L"1/2/49", 54425},
                                                       {L"1/2/50", 18265},
                                                       {L"1/2/99", 36162},
                                                       {L"2/29/2004", 38046},
                                                       {L"12/31/9999", 2958465},
                                                       {L"1/1/100", -657434},
                                                       {L"1899-12-30", 0},
                                                       {L"Jan 2, 2003", 37623},
                                                       {L"January 2, 2003", 37623},
                                                       {L"jan 2 2003", 37623},
                                                       {L"2 January 2003", 37623},
                                                       {L"02-Jan-2003", 37623},
                                                       {L"31-Dec-1999", 36525},
                                                       {L"Mon 1/2/2003", 37623},
                                                       {L"15:04", afternoon},
                                                       {L"15.04", afternoon},
                                                       {L"15.4", afternoon},
                                                       {L"3:04 PM", afternoon},
                                                       {L"15:04:00 PM", afternoon},
                                                       {L"3 PM", 15.0 / 24},
                                                       {L"0:00", 0},
                                                       {L"12:00 AM", 0},
                                                       {L"12:00 PM", 0.5},
                                                       {L"12:30 am", 0.5 / 24},
                                                       {L"23:59:59", 86399.0 / 86400},
                                                       {L"1/2/2003 15:04", 37623 + afternoon},
                                                       {L"1/2/2003 3:04 pm", 37623 + afternoon},
                                                       {L"3:04:00 PM 1/2/2003", 37623 + afternoon},
                                                       {L"2003-01-02 15:04:00", 37623 + afternoon},
                                                       {L"12/29/1899 6:00 AM", -1.25}};
    for (const auto& [text, expected] : cases)
        EXPECT_DOUBLE_EQ(expected, ChangedReal(OfText(text), VT_DATE)) << text;
}

TEST(ChangeType, TextThatIsNoDateIsAMismatch)
{
    for (const wchar_t* text : {L"",
                                L" ",
                                L"abc",
                                L"2/30/2003",
                                L"2/29/2003",
                                L"13/13/2003",
                                L"0/1/2003",
                                L"1/0/2003",
                                L"1/32/2003",
                                L"12/31/99999",
                                L"24:00",
                                L"23:60",
                                L"23:59:60",
                                L"PM",
                                L"12",
                                L"12.",
                                L"1.2.2003",
                                L"12/31/1999 24:00",
                                L"1/2/2003 1/2/2003",
                                L"2003-01-02T03:04:05"})
        EXPECT_EQ(L"mismatch", OfBstr(text, VT_DATE)) << text;
}

TEST(ChangeType, AWrittenDateReadsAsItself)
{
    for (double date = -657434; date < 2958465; date += 100003.0 + 1.0 / 86400)
    {
        const double days = std::trunc(date);
        CTestVariant source = OfR8(days, VT_DATE);
        CTestVariant text;
        ASSERT_EQ(S_OK, VariantChangeType(&text, &source, 0, VT_BSTR));
        EXPECT_EQ(days, ChangedReal(text, VT_DATE)) << Content(V_BSTR(&text));
    }
}

TEST(VariantTime, IsDaysSinceTheEndOf1899)
{
    struct Case
    {
        SYSTEMTIME time;
        double expected;
    };
    const Case cases[] = {{{1899, 12, 0, 30, 0, 0, 0, 0}, 0},
                          {{1899, 12, 0, 30, 6, 0, 0, 0}, 0.25},
                          {{1899, 12, 0, 29, 6, 0, 0, 0}, -1.25},
                          {{2000, 1, 0, 1, 0, 0, 0, 0}, 36526},
                          {{2003, 1, 0, 2, 3, 4, 5, 678}, 37623.127835648149},
                          {{2000, 2, 0, 29, 0, 0, 0, 0}, 36585},
                          {{9999, 12, 0, 31, 0, 0, 0, 0}, 2958465},
                          {{49, 1, 0, 1, 0, 0, 0, 0}, 54424},
                          {{50, 1, 0, 1, 0, 0, 0, 0}, 18264},
                          {{2003, 2, 0, 30, 0, 0, 0, 0}, 37682},
                          {{2003, 1, 0, 1, 24, 0, 0, 0}, 37623}};
    for (const Case& one : cases)
    {
        SYSTEMTIME time = one.time;
        double date = -5;
        EXPECT_TRUE(SystemTimeToVariantTime(&time, &date));
        EXPECT_DOUBLE_EQ(one.expected, date) << time.wYear << ' ' << time.wMonth << ' ' << time.wDay;
    }
}

TEST(VariantTime, RefusesWhatIsNoDate)
{
    for (SYSTEMTIME time : {SYSTEMTIME{2003, 13, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{2003, 1, 0, 32, 0, 0, 0, 0},
                            SYSTEMTIME{10000, 1, 0, 1, 0, 0, 0, 0}})
    {
        double date = 0;
        EXPECT_FALSE(SystemTimeToVariantTime(&time, &date))
            << time.wYear << ' ' << time.wMonth << ' ' << time.wDay;
    }
    SYSTEMTIME time{};
    EXPECT_FALSE(VariantTimeToSystemTime(-657435, &time));
    EXPECT_FALSE(VariantTimeToSystemTime(2958466, &time));
}

TEST(VariantTime, GivesTheCalendarBack)
{
    SYSTEMTIME time{};
    EXPECT_TRUE(VariantTimeToSystemTime(37623.62783564815, &time));
    EXPECT_EQ(2003, time.wYear);
    EXPECT_EQ(1, time.wMonth);
    EXPECT_EQ(2, time.wDay);
    EXPECT_EQ(4, time.wDayOfWeek);
    EXPECT_EQ(15, time.wHour);
    EXPECT_EQ(4, time.wMinute);
    EXPECT_EQ(5, time.wSecond);
    EXPECT_EQ(0, time.wMilliseconds);
    EXPECT_TRUE(VariantTimeToSystemTime(-36526.25, &time));
    EXPECT_EQ(1799, time.wYear);
    EXPECT_EQ(12, time.wMonth);
    EXPECT_EQ(28, time.wDay);
    EXPECT_EQ(6, time.wDayOfWeek);
    EXPECT_EQ(6, time.wHour);
}
