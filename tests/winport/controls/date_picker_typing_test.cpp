// Date pickers: digits typed into a field, keys that turn it, and the months that are too short for the day.
#include "ControlHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace
{
using Codes = std::vector<int>;

constexpr int kChange = static_cast<int>(DTN_DATETIMECHANGE);
constexpr int kLost = static_cast<int>(NM_KILLFOCUS);

class DatePickerTyping : public testing::Test
{
protected:
    void SetUp() override
    {
        SetFocus(m_host.Control());
        Set(2024, 7, 31);
    }
    void Set(int year, int month, int day)
    {
        SYSTEMTIME value{};
        value.wYear = static_cast<WORD>(year);
        value.wMonth = static_cast<WORD>(month);
        value.wDay = static_cast<WORD>(day);
        m_host.Send(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&value));
        m_host.Codes();
    }
    std::string Day() const
    {
        SYSTEMTIME value{};
        m_host.Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&value));
        return std::to_string(value.wYear) + "-" + std::to_string(value.wMonth) + "-" +
               std::to_string(value.wDay);
    }

    // r and l move to the field on that side, u, d, p (plus) and m (minus) change it by one, h and e are Home
    // and End; anything else is typed. Returns the date.
    std::string After(const std::string& keys)
    {
        static const std::map<char, WORD> acts{{'r', VK_RIGHT}, {'l', VK_LEFT}, {'u', VK_UP},
                                               {'d', VK_DOWN},  {'p', VK_ADD},  {'m', VK_SUBTRACT},
                                               {'h', VK_HOME},  {'e', VK_END}};
        for (const char key : keys)
        {
            const auto act = acts.find(key);
            if (act != acts.end())
            {
                m_host.Press(act->second);
                continue;
            }
            m_host.Send(WM_KEYDOWN, static_cast<WPARAM>(key), 1);
            m_host.Send(WM_CHAR, static_cast<WPARAM>(key), 1);
        }
        return Day();
    }

    ControlHost m_host{DATETIMEPICK_CLASSW, DTS_UPDOWN | WS_TABSTOP, 200, 24};
};
} // namespace

TEST_F(DatePickerTyping, TwoDigitsAreAMonthOrADay)
{
    EXPECT_EQ(After("r12"), "2024-12-31");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
    EXPECT_EQ(After("r24"), "2024-12-24");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, FourDigitsAreAYear)
{
    EXPECT_EQ(After("rrr202"), "2024-7-31");
    EXPECT_EQ(m_host.Codes(), Codes{});
    EXPECT_EQ(After("6"), "2026-7-31");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, AWholeDateIsTypedFieldByField)
{
    EXPECT_EQ(After("r12r24r2026"), "2026-12-24");
    EXPECT_EQ(m_host.Text(), L"12/24/2026");
}

TEST_F(DatePickerTyping, OneDigitCountsWhenItsFieldIsLeft)
{
    EXPECT_EQ(After("r3"), "2024-7-31");
    EXPECT_EQ(After("r"), "2024-3-31");
    EXPECT_EQ(After("4"), "2024-3-31");
    EXPECT_EQ(After("l"), "2024-3-4");
    EXPECT_EQ(m_host.Codes(), (Codes{kChange, kChange}));
}

TEST_F(DatePickerTyping, LosingTheFocusIsNotifiedBeforeTheTypedDate)
{
    After("r3");
    std::vector<std::string> dates;
    m_host.onNotify = [&](NMHDR&) -> LRESULT {
        dates.push_back(Day());
        return 0;
    };
    SetFocus(m_host.Window());
    EXPECT_EQ(m_host.Codes(), (Codes{kLost, kChange}));
    EXPECT_EQ(dates, (std::vector<std::string>{"2024-7-31", "2024-3-31"}));
}

TEST_F(DatePickerTyping, AClickTakesWhatWasTyped)
{
    After("r3");
    m_host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 12));
    m_host.Send(WM_LBUTTONUP, 0, MAKELPARAM(3, 12));
    EXPECT_EQ(Day(), "2024-3-31");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, AnInvalidMonthOrDayIsIgnored)
{
    for (const char* keys : {"r0r", "r00r", "r13r", "rr0r", "rr00r", "rr32r"})
    {
        SetFocus(m_host.Window());
        SetFocus(m_host.Control());
        m_host.Codes();
        EXPECT_EQ(After(keys), "2024-7-31") << keys;
        EXPECT_EQ(m_host.Codes(), Codes{}) << keys;
    }
}

TEST_F(DatePickerTyping, AnInvalidYearNotifiesWithTheOldOne)
{
    for (const char* year : {"0000", "1000", "1234"})
    {
        EXPECT_EQ(After("rrr"), "2024-7-31");
        m_host.Codes();
        EXPECT_EQ(After(year), "2024-7-31") << year;
        EXPECT_EQ(m_host.Codes(), Codes{kChange}) << year;
    }
    EXPECT_EQ(After("25r"), "2024-7-31");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, AnUnchangedValueIsNotifiedAgain)
{
    EXPECT_EQ(After("r7r"), "2024-7-31");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, AnArrowForgetsWhatWasTyped)
{
    EXPECT_EQ(After("r1u"), "2024-8-31");
    EXPECT_EQ(After("r"), "2024-8-31");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, AnAssignedDateKeepsWhatWasTyped)
{
    After("r1");
    Set(2020, 5, 2);
    EXPECT_EQ(After("r"), "2020-1-2");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, OtherCharactersAreIgnoredAndKeepTheDigits)
{
    EXPECT_EQ(After("r1x/- \b\r\x1br"), "2024-1-31");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, DigitsBeforeTheFirstFieldAreIgnored)
{
    EXPECT_EQ(After("12rrrr"), "2024-7-31");
    EXPECT_EQ(m_host.Codes(), Codes{});
}

TEST_F(DatePickerTyping, WithTheFocusTheFieldIsLost)
{
    After("r");
    SetFocus(m_host.Window());
    SetFocus(m_host.Control());
    EXPECT_EQ(After("u"), "2024-7-31");
    EXPECT_EQ(After("ru"), "2024-8-31");
}

TEST_F(DatePickerTyping, ATypedMonthOrYearThatIsTooShortTakesItsLastDay)
{
    EXPECT_EQ(After("r2r"), "2024-2-29");
    EXPECT_EQ(After("r2023"), "2023-2-28");
}

TEST_F(DatePickerTyping, AnArrowToAMonthThatIsTooShortTakesItsFirstDay)
{
    After("r");
    Set(2023, 1, 30);
    EXPECT_EQ(After("u"), "2023-2-1");
    EXPECT_EQ(After("u"), "2023-3-1");
    Set(2024, 3, 31);
    EXPECT_EQ(After("d"), "2024-2-1");
    Set(2024, 5, 31);
    EXPECT_EQ(After("u"), "2024-6-1");
    Set(2024, 1, 29);
    EXPECT_EQ(After("u"), "2024-2-29");
    Set(2024, 12, 31);
    EXPECT_EQ(After("u"), "2024-1-31");
}

TEST_F(DatePickerTyping, EndSetsAFieldToItsLastValue)
{
    Set(2024, 2, 15);
    EXPECT_EQ(After("re"), "2024-12-15");
    EXPECT_EQ(After("e"), "2024-12-15");
    Set(2024, 2, 15);
    EXPECT_EQ(After("re"), "2024-2-29");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
    EXPECT_EQ(After("re"), "9999-2-28");
}

TEST_F(DatePickerTyping, HomeSetsTheYearToItsFirstValue)
{
    EXPECT_EQ(After("rrrh"), "1752-9-14");
    EXPECT_EQ(m_host.Codes(), Codes{kChange});
}

TEST_F(DatePickerTyping, HomeSetsMonthAndDayToTheirLastValue)
{
    Set(2024, 2, 15);
    EXPECT_EQ(After("rh"), "2024-12-15");
    EXPECT_EQ(After("rh"), "2024-12-31");
}

TEST_F(DatePickerTyping, HomeAndEndDiscardTypedDigits)
{
    EXPECT_EQ(After("r1e"), "2024-12-31");
    EXPECT_EQ(After("1h"), "2024-12-31");
    EXPECT_EQ(After("r"), "2024-12-31");
    EXPECT_EQ(m_host.Codes(), (Codes{kChange, kChange}));
}

TEST_F(DatePickerTyping, WithoutAFieldHomeAndEndOnlyNotify)
{
    EXPECT_EQ(After("he"), "2024-7-31");
    EXPECT_EQ(m_host.Codes(), (Codes{kChange, kChange}));
}

TEST_F(DatePickerTyping, PlusAndMinusOfTheKeypadWorkLikeArrows)
{
    EXPECT_EQ(After("rrp"), "2024-7-1");
    EXPECT_EQ(After("mm"), "2024-7-30");
    EXPECT_EQ(m_host.Codes(), (Codes{kChange, kChange, kChange}));
}

TEST_F(DatePickerTyping, LeftInTheFirstFieldLeavesTheFields)
{
    EXPECT_EQ(After("rlu"), "2024-7-31");
    EXPECT_EQ(After("ru"), "2024-8-31");
    EXPECT_EQ(After("lllrru"), "2024-8-31");
    EXPECT_EQ(After("ru"), "2024-9-1");
}

TEST_F(DatePickerTyping, MayBeDestroyedByWhatWasTyped)
{
    m_host.onNotify = [&](NMHDR& header) -> LRESULT {
        if (header.code == DTN_DATETIMECHANGE)
            DestroyWindow(m_host.Control());
        return 0;
    };
    After("r3");
    m_host.Press(VK_RIGHT);
    EXPECT_FALSE(IsWindow(m_host.Control()));
}

// The calendar of the real one opens by the mouse only.
TEST(DatePickerCalendar, F4AndAltWithAnArrowDoNothing)
{
    ControlHost host(DATETIMEPICK_CLASSW, WS_TABSTOP, 200, 24);
    SetFocus(host.Control());
    host.Codes();
    host.Press(VK_F4);
    for (const WORD key : {VK_DOWN, VK_UP})
    {
        host.Send(WM_SYSKEYDOWN, key, 0x20000001);
        host.Send(WM_SYSKEYUP, key, static_cast<LPARAM>(0xE0000001));
    }
    EXPECT_EQ(GetFocus(), host.Control());
    EXPECT_EQ(host.Codes(), Codes{});
}

TEST(DatePickerCalendar, AClickOnItsButtonKeepsTheDate)
{
    ControlHost host(DATETIMEPICK_CLASSW, WS_TABSTOP, 200, 24);
    const std::wstring before = host.Text();
    for (int i = 0; i < 2; ++i)
    {
        host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(190, 12));
        host.Send(WM_LBUTTONUP, 0, MAKELPARAM(190, 12));
    }
    EXPECT_EQ(host.Text(), before);
    const Codes codes = host.Codes();
    EXPECT_EQ(std::count(codes.begin(), codes.end(), kChange), 0);
}

TEST_F(DatePickerTyping, WithArrowsNoCalendarDropsDown)
{
    m_host.Press(VK_F4);
    m_host.Send(WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    m_host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(190, 12));
    m_host.Send(WM_LBUTTONUP, 0, MAKELPARAM(190, 12));
    for (const int code : m_host.Codes())
    {
        EXPECT_NE(code, static_cast<int>(DTN_DROPDOWN));
        EXPECT_NE(code, static_cast<int>(DTN_CLOSEUP));
    }
    EXPECT_EQ(GetFocus(), m_host.Control());
    EXPECT_EQ(Day(), "2024-7-31");
}
