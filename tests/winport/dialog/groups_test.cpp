// Which control comes next: by the Tab key, and by the arrows within a group.
#include "DialogHost.h"

#include <gtest/gtest.h>

namespace
{
using Ids = std::vector<int>;

// Numbers by ten; 20 is hidden, 50 disabled, 30 and 80 are no tab stops, groups begin at 30 and 70.
DialogTemplate Description()
{
    DialogTemplate description(L"Groups", kCommonDialog, 0, 0, 150, 150);
    description.Add(0x80, 10, L"10", WS_TABSTOP, 0, 0, 50, 12)
        .AddHidden(0x80, 20, L"20", WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, 30, L"30", WS_GROUP, 0, 0, 50, 12)
        .Add(0x80, 40, L"40", WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, 50, L"50", WS_TABSTOP | WS_DISABLED, 0, 0, 50, 12)
        .Add(0x80, 60, L"60", WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, 70, L"70", WS_GROUP | WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, 80, L"80", 0, 0, 0, 50, 12);
    return description;
}

class DialogGroups : public testing::Test
{
protected:
    int Tab(int from, bool previous) const
    {
        return GetDlgCtrlID(GetNextDlgTabItem(m_host.Window(), from ? m_host.Item(from) : nullptr, previous));
    }
    int Group(int from, bool previous) const
    {
        return GetDlgCtrlID(
            GetNextDlgGroupItem(m_host.Window(), from ? m_host.Item(from) : nullptr, previous));
    }

    DialogHost m_host{Description()};
};
} // namespace

TEST_F(DialogGroups, NextTabStop)
{
    m_host.Show();
    const std::pair<int, int> cases[] = {{0, 10},  {10, 40}, {20, 40}, {30, 40}, {40, 60},
                                         {50, 60}, {60, 70}, {70, 10}, {80, 10}};
    for (const auto& [from, next] : cases)
        EXPECT_EQ(Tab(from, false), next) << from;
}

TEST_F(DialogGroups, PreviousTabStop)
{
    m_host.Show();
    const std::pair<int, int> cases[] = {{10, 70}, {20, 10}, {30, 10}, {40, 10},
                                         {50, 40}, {60, 40}, {70, 60}, {80, 70}};
    for (const auto& [from, next] : cases)
        EXPECT_EQ(Tab(from, true), next) << from;
}

// Controls before the first group belong to the last one.
TEST_F(DialogGroups, NextOfTheGroup)
{
    m_host.Show();
    const std::pair<int, int> cases[] = {{10, 70}, {30, 40}, {40, 60}, {50, 60},
                                         {60, 30}, {70, 80}, {80, 10}};
    for (const auto& [from, next] : cases)
        EXPECT_EQ(Group(from, false), next) << from;
}

TEST_F(DialogGroups, PreviousOfTheGroup)
{
    m_host.Show();
    const std::pair<int, int> cases[] = {{10, 80}, {30, 60}, {40, 30}, {50, 40},
                                         {60, 40}, {70, 10}, {80, 70}};
    for (const auto& [from, next] : cases)
        EXPECT_EQ(Group(from, true), next) << from;
}

TEST_F(DialogGroups, AreTheSameWhileTheDialogIsHidden)
{
    EXPECT_EQ(Tab(0, false), 10);
    EXPECT_EQ(Tab(10, false), 40);
    EXPECT_EQ(Group(30, false), 40);
}

TEST_F(DialogGroups, StartFromAWindowInsideOfAControl)
{
    const HWND inner = CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, 0, 0, 5, 5, m_host.Item(40),
                                       nullptr, nullptr, nullptr);
    EXPECT_EQ(GetDlgCtrlID(GetNextDlgTabItem(m_host.Window(), inner, FALSE)), 60);
}

TEST_F(DialogGroups, ADialogWithoutTabStopsHasNoNext)
{
    DialogTemplate description(L"None", kCommonDialog, 0, 0, 100, 100);
    description.Add(0x82, 10, L"text", 0, 0, 0, 50, 12);
    const DialogHost host(std::move(description));
    EXPECT_NE(GetNextDlgTabItem(host.Window(), host.Item(10), FALSE), nullptr);
    DialogTemplate empty(L"Empty", kCommonDialog, 0, 0, 100, 100);
    const DialogHost nothing(std::move(empty));
    EXPECT_EQ(GetNextDlgTabItem(nothing.Window(), nullptr, FALSE), nullptr);
}
