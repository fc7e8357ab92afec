// Date pickers that can be without a date.
#include "ControlHost.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
// With a calendar to drop down, and with arrows instead.
class OptionalDate : public testing::TestWithParam<DWORD>
{
protected:
    bool Set(DWORD kind) const
    {
        SYSTEMTIME value{2024, 2, 4, 29};
        return m_host.Send(DTM_SETSYSTEMTIME, kind, reinterpret_cast<LPARAM>(&value)) != 0;
    }
    LRESULT Get(SYSTEMTIME& value) const
    {
        return m_host.Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&value));
    }
    LRESULT Get() const
    {
        SYSTEMTIME value{};
        return Get(value);
    }

    ControlHost m_host{DATETIMEPICK_CLASSW, GetParam() | WS_TABSTOP, 200, 24};
};

INSTANTIATE_TEST_SUITE_P(With, OptionalDate, testing::Values(DTS_SHOWNONE, DTS_SHOWNONE | DTS_UPDOWN),
                         [](const testing::TestParamInfo<DWORD>& kind) {
                             return kind.param & DTS_UPDOWN ? "Arrows" : "Calendar";
                         });
} // namespace

TEST_P(OptionalDate, ADateIsSetAndTakenAway)
{
    SYSTEMTIME value{};
    EXPECT_TRUE(Set(GDT_VALID));
    EXPECT_EQ(Get(value), GDT_VALID);
    EXPECT_EQ(value.wYear, 2024);
    EXPECT_TRUE(Set(GDT_NONE));
    EXPECT_EQ(Get(), GDT_NONE);
    EXPECT_TRUE(Set(GDT_VALID));
    EXPECT_EQ(Get(), GDT_VALID);
}

TEST_P(OptionalDate, WithoutADateTheCallersValueIsUnchanged)
{
    Set(GDT_NONE);
    SYSTEMTIME value{};
    value.wYear = 7;
    EXPECT_EQ(Get(value), GDT_NONE);
    EXPECT_EQ(value.wYear, 7);
}

TEST_P(OptionalDate, TheTextStaysWhenTheDateIsTakenAway)
{
    Set(GDT_VALID);
    EXPECT_EQ(m_host.Text(), L"2/29/2024");
    Set(GDT_NONE);
    EXPECT_EQ(m_host.Text(), L"2/29/2024");
}

TEST_P(OptionalDate, SettingAndTakingItAwayIsSilent)
{
    Set(GDT_VALID);
    Set(GDT_NONE);
    EXPECT_EQ(m_host.Codes(), std::vector<int>{});
}

TEST_P(OptionalDate, AnImpossibleDateLeavesItWithoutOne)
{
    Set(GDT_NONE);
    SYSTEMTIME impossible{2023, 2, 4, 29};
    EXPECT_FALSE(m_host.Send(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&impossible)));
    EXPECT_EQ(Get(), GDT_NONE);
}

TEST_P(OptionalDate, KeysChangeADateThatIsThere)
{
    Set(GDT_VALID);
    SetFocus(m_host.Control());
    m_host.Press(VK_RIGHT);
    DWORD flags = 99;
    m_host.onNotify = [&](NMHDR& header) -> LRESULT {
        if (header.code == DTN_DATETIMECHANGE)
            flags = reinterpret_cast<const NMDATETIMECHANGE&>(header).dwFlags;
        return 0;
    };
    m_host.Press(VK_UP);
    EXPECT_EQ(m_host.Text(), L"3/29/2024");
    EXPECT_EQ(flags, static_cast<DWORD>(GDT_VALID));
    EXPECT_EQ(Get(), GDT_VALID);
}

TEST_P(OptionalDate, AMessageClosesIt)
{
    SetFocus(m_host.Control());
    m_host.Send(WM_CLOSE);
    EXPECT_FALSE(IsWindow(m_host.Control()));
    EXPECT_EQ(GetFocus(), m_host.Window());
}
