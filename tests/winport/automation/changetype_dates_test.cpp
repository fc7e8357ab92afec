// Dates as text.
#include "ChangeTypeTest.h"

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
