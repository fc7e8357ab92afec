// Date pickers: the value, its text, the keys, the notifications.
#include "ControlHost.h"

#include <oleauto.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace
{
using Codes = std::vector<int>;
using Date = std::tuple<int, int, int>;

constexpr int kChange = static_cast<int>(DTN_DATETIMECHANGE);

// With a calendar to drop down, and with arrows instead.
class DatePicker : public testing::TestWithParam<DWORD>
{
protected:
    SYSTEMTIME Value() const
    {
        SYSTEMTIME value{};
        EXPECT_EQ(m_host.Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&value)), GDT_VALID);
        return value;
    }
    Date Day() const
    {
        const SYSTEMTIME value = Value();
        return {value.wYear, value.wMonth, value.wDay};
    }
    bool Set(SYSTEMTIME value, DWORD kind = GDT_VALID) const
    {
        return m_host.Send(DTM_SETSYSTEMTIME, kind, reinterpret_cast<LPARAM>(&value)) != 0;
    }
    bool Set(int year, int month, int day) const
    {
        SYSTEMTIME value{};
        value.wYear = static_cast<WORD>(year);
        value.wMonth = static_cast<WORD>(month);
        value.wDay = static_cast<WORD>(day);
        return Set(value);
    }

    // The first arrow to the right enters the first field.
    void EnterField(int index)
    {
        SetFocus(m_host.Control());
        for (int i = 0; i <= index; ++i)
            m_host.Press(VK_RIGHT);
        m_host.Codes();
    }

    ControlHost m_host{DATETIMEPICK_CLASSW, GetParam() | WS_TABSTOP, 200, 24};
};

INSTANTIATE_TEST_SUITE_P(With, DatePicker,
                         testing::Values(DTS_SHORTDATEFORMAT, DTS_UPDOWN, DTS_UPDOWN | DTS_RIGHTALIGN),
                         [](const testing::TestParamInfo<DWORD>& kind) {
                             return kind.param == DTS_SHORTDATEFORMAT ? "Calendar"
                                    : kind.param == DTS_UPDOWN        ? "Arrows"
                                                                      : "ArrowsOnTheLeft";
                         });

// As the tests' language, American English, writes a date.
std::wstring ShortDate(const SYSTEMTIME& time)
{
    return std::to_wstring(time.wMonth) + L"/" + std::to_wstring(time.wDay) + L"/" +
           std::to_wstring(time.wYear);
}
} // namespace

TEST_P(DatePicker, ShowsTodayAtFirst)
{
    SYSTEMTIME before{};
    GetLocalTime(&before);
    const ControlHost host(DATETIMEPICK_CLASSW, GetParam());
    SYSTEMTIME shown{};
    host.Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
    SYSTEMTIME after{};
    GetLocalTime(&after);
    EXPECT_TRUE((shown.wDay == before.wDay && shown.wMonth == before.wMonth && shown.wYear == before.wYear) ||
                (shown.wDay == after.wDay && shown.wMonth == after.wMonth && shown.wYear == after.wYear));
    EXPECT_EQ(shown.wDayOfWeek, shown.wDay == before.wDay ? before.wDayOfWeek : after.wDayOfWeek);
    EXPECT_EQ(host.Text(), ShortDate(shown));
}

TEST_P(DatePicker, TheTextGivenAtCreationIsNotShown)
{
    const HWND picker = CreateWindowExW(0, DATETIMEPICK_CLASSW, L"text", WS_CHILD | GetParam(), 0, 0, 50, 20,
                                        m_host.Window(), nullptr, nullptr, nullptr);
    wchar_t text[20];
    GetWindowTextW(picker, text, 20);
    EXPECT_STRNE(text, L"text");
    DestroyWindow(picker);
}

TEST_P(DatePicker, ADateIsSetWithItsTimeAndIsSilent)
{
    SYSTEMTIME value{};
    value.wYear = 2024;
    value.wMonth = 2;
    value.wDay = 29;
    value.wHour = 13;
    value.wMinute = 14;
    value.wSecond = 15;
    value.wMilliseconds = 16;
    EXPECT_TRUE(Set(value));
    const SYSTEMTIME now = Value();
    EXPECT_EQ(Day(), Date(2024, 2, 29));
    EXPECT_EQ(now.wHour, 13);
    EXPECT_EQ(now.wMinute, 14);
    EXPECT_EQ(now.wSecond, 15);
    EXPECT_EQ(now.wMilliseconds, 16);
    EXPECT_EQ(m_host.Codes(), Codes{});
}

TEST_P(DatePicker, TheTextIsTheShortDate)
{
    ASSERT_TRUE(Set(2024, 7, 4));
    EXPECT_EQ(m_host.Text(), ShortDate(Value()));
    EXPECT_EQ(m_host.Send(WM_GETTEXTLENGTH), static_cast<LRESULT>(m_host.Text().size()));
    ASSERT_TRUE(Set(2023, 12, 31));
    EXPECT_EQ(m_host.Text(), ShortDate(Value()));
}

TEST_P(DatePicker, TheTextIsReadUpToTheSizeOfTheBuffer)
{
    Set(2023, 12, 31);
    wchar_t text[4] = {};
    EXPECT_EQ(m_host.Send(WM_GETTEXT, 4, reinterpret_cast<LPARAM>(text)), 3);
    EXPECT_EQ(text, m_host.Text().substr(0, 3));
}

TEST_P(DatePicker, TheWeekdayIsReckonedFromTheDate)
{
    struct
    {
        int year, month, day;
        WORD weekday;
    } const dates[] = {{2024, 2, 29, 4},  {2023, 1, 1, 0}, {2000, 1, 1, 6},  {1900, 1, 1, 1},
                       {1899, 12, 30, 6}, {1800, 6, 4, 3}, {2099, 12, 31, 4}};
    for (const auto& date : dates)
    {
        SYSTEMTIME value{};
        value.wYear = static_cast<WORD>(date.year);
        value.wMonth = static_cast<WORD>(date.month);
        value.wDay = static_cast<WORD>(date.day);
        value.wDayOfWeek = static_cast<WORD>((date.weekday + 3) % 7);
        ASSERT_TRUE(Set(value)) << date.year;
        EXPECT_EQ(Value().wDayOfWeek, date.weekday) << date.year;
    }
}

TEST_P(DatePicker, ImpossibleDatesAreRefusedAndTheValueIsKept)
{
    ASSERT_TRUE(Set(2024, 2, 29));
    for (const Date& date : {Date(2023, 2, 29), Date(2023, 13, 1), Date(2023, 0, 1), Date(2023, 1, 0),
                             Date(2023, 4, 31), Date(2023, 1, 32), Date(1900, 2, 29), Date(0, 1, 1)})
    {
        EXPECT_FALSE(std::apply([this](auto... part) { return Set(part...); }, date));
        EXPECT_EQ(Day(), Date(2024, 2, 29));
    }
    EXPECT_EQ(m_host.Text(), ShortDate(Value()));
    EXPECT_EQ(m_host.Codes(), Codes{});
}

TEST_P(DatePicker, DatesBeforeOrAfterTheCalendarAreNotTaken)
{
    ASSERT_TRUE(Set(2024, 2, 29));
    Set(1601, 1, 1);
    EXPECT_EQ(Day(), Date(2024, 2, 29));
    Set(10000, 1, 1);
    EXPECT_EQ(Day(), Date(2024, 2, 29));
}

TEST_P(DatePicker, ImpossibleTimesAreRefusedAndTheValueIsKept)
{
    ASSERT_TRUE(Set(2024, 2, 29));
    for (WORD SYSTEMTIME::*part :
         {&SYSTEMTIME::wHour, &SYSTEMTIME::wMinute, &SYSTEMTIME::wSecond, &SYSTEMTIME::wMilliseconds})
    {
        SYSTEMTIME value{};
        value.wYear = 2023;
        value.wMonth = value.wDay = 1;
        value.*part = 1000;
        EXPECT_FALSE(Set(value));
    }
    EXPECT_EQ(Day(), Date(2024, 2, 29));
}

TEST_P(DatePicker, NoDateIsRefused)
{
    ASSERT_TRUE(Set(2024, 2, 29));
    SYSTEMTIME value = Value();
    value.wDay = 1;
    EXPECT_FALSE(Set(value, GDT_NONE));
    EXPECT_EQ(Day(), Date(2024, 2, 29));
}

TEST_P(DatePicker, ItsTextCannotBeAssigned)
{
    ASSERT_TRUE(Set(2024, 2, 29));
    SetWindowTextW(m_host.Control(), L"text");
    EXPECT_EQ(m_host.Text(), ShortDate(Value()));
}

TEST_P(DatePicker, TheFocusIsNotified)
{
    SetFocus(m_host.Control());
    EXPECT_EQ(GetFocus(), m_host.Control());
    EXPECT_EQ(m_host.Codes(), Codes{static_cast<int>(NM_SETFOCUS)});
    SetFocus(m_host.Window());
    EXPECT_EQ(m_host.Codes(), Codes{static_cast<int>(NM_KILLFOCUS)});
}

TEST_P(DatePicker, AClickTakesTheFocus)
{
    m_host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 5));
    m_host.Send(WM_LBUTTONUP, 0, MAKELPARAM(3, 5));
    EXPECT_EQ(GetFocus(), m_host.Control());
    EXPECT_EQ(m_host.Codes(), Codes{static_cast<int>(NM_SETFOCUS)});
}

TEST_P(DatePicker, UpAndDownChangeTheMonth)
{
    Set(2024, 7, 4);
    EnterField(0);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2024, 8, 4));
    EXPECT_EQ(Value().wDayOfWeek, 0);
    m_host.Press(VK_DOWN);
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Day(), Date(2024, 6, 4));
    EXPECT_EQ(m_host.Codes(), (Codes{kChange, kChange, kChange}));
}

TEST_P(DatePicker, UpAndDownChangeTheDay)
{
    Set(2024, 7, 4);
    EnterField(1);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2024, 7, 5));
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Day(), Date(2024, 7, 4));
}

TEST_P(DatePicker, UpAndDownChangeTheYear)
{
    Set(2024, 7, 4);
    EnterField(2);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2025, 7, 4));
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Day(), Date(2024, 7, 4));
}

TEST_P(DatePicker, LeftGoesBackToTheFieldBefore)
{
    Set(2024, 7, 4);
    EnterField(2);
    m_host.Press(VK_LEFT);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2024, 7, 5));
    m_host.Press(VK_LEFT);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2024, 8, 5));
}

TEST_P(DatePicker, RightOfTheLastFieldIsTheFirst)
{
    Set(2024, 7, 4);
    EnterField(3);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2024, 8, 4));
}

TEST_P(DatePicker, AFieldWrapsWithinItself)
{
    EnterField(0);
    Set(2024, 12, 31);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2024, 1, 31));
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Day(), Date(2024, 12, 31));
    m_host.Press(VK_RIGHT);
    Set(2024, 2, 29);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2024, 2, 1));
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Day(), Date(2024, 2, 29));
}

TEST_P(DatePicker, ADayThatTheYearLacksBecomesTheLastOfItsMonth)
{
    EnterField(2);
    Set(2024, 2, 29);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(2025, 2, 28));
}

TEST_P(DatePicker, TheYearStaysWithinTheCalendar)
{
    EnterField(2);
    Set(9999, 5, 5);
    m_host.Press(VK_UP);
    EXPECT_EQ(Day(), Date(9999, 5, 5));
    Set(1753, 5, 5);
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Day(), Date(1752, 9, 14));
}

TEST_P(DatePicker, AChangeIsNotifiedWithTheNewDateWhenItIsShown)
{
    Set(2024, 7, 4);
    EnterField(0);
    SYSTEMTIME told{};
    DWORD flags = 99;
    std::wstring text;
    HWND from = nullptr;
    m_host.onNotify = [&](NMHDR& header) -> LRESULT {
        const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(header);
        told = change.st;
        flags = change.dwFlags;
        from = header.hwndFrom;
        text = m_host.Text();
        return 0;
    };
    m_host.Press(VK_UP);
    EXPECT_EQ(told.wYear, 2024);
    EXPECT_EQ(told.wMonth, 8);
    EXPECT_EQ(told.wDay, 4);
    EXPECT_EQ(told.wDayOfWeek, 0);
    EXPECT_EQ(flags, static_cast<DWORD>(GDT_VALID));
    EXPECT_EQ(from, m_host.Control());
    EXPECT_EQ(text, ShortDate(told));
}

TEST_P(DatePicker, EnterEscapeTabAndDeleteChangeNothing)
{
    Set(2024, 7, 4);
    EnterField(0);
    for (const WORD key : {VK_RETURN, VK_ESCAPE, VK_TAB, VK_DELETE, VK_SHIFT, VK_CONTROL})
        m_host.Press(key);
    EXPECT_EQ(Day(), Date(2024, 7, 4));
    EXPECT_EQ(m_host.Codes(), Codes{});
}

TEST_P(DatePicker, WantsCharactersAndArrowsFromItsDialog)
{
    EXPECT_EQ(m_host.Send(WM_GETDLGCODE), DLGC_WANTCHARS | DLGC_WANTARROWS);
}

TEST_P(DatePicker, MayBeDestroyedByTheHandlerOfAChange)
{
    EnterField(0);
    m_host.onNotify = [&](NMHDR&) -> LRESULT {
        DestroyWindow(m_host.Control());
        return 0;
    };
    m_host.Press(VK_UP);
    EXPECT_FALSE(IsWindow(m_host.Control()));
}

TEST_P(DatePicker, MayBeDestroyedWhenItLosesTheFocus)
{
    SetFocus(m_host.Control());
    m_host.onNotify = [&](NMHDR& header) -> LRESULT {
        if (header.code == NM_KILLFOCUS)
            DestroyWindow(m_host.Control());
        return 0;
    };
    SetFocus(m_host.Window());
    EXPECT_FALSE(IsWindow(m_host.Control()));
}
