// Combo boxes: the list that drops down, its notifications, the selection and the text.
#include "ComboListFixture.h"

#include <functional>
#include <initializer_list>
#include <string>

namespace
{
INSTANTIATE_TEST_SUITE_P(Box, ComboBoxList, testing::Values(CBS_DROPDOWNLIST, CBS_DROPDOWN | CBS_AUTOHSCROLL),
                         [](const testing::TestParamInfo<DWORD>& kind) {
                             return kind.param == CBS_DROPDOWNLIST ? "List" : "Field";
                         });

int HeightOf(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect.bottom - rect.top;
}
} // namespace

TEST_P(ComboBoxList, TheHeightGivenIsThatOfTheOpenList)
{
    const int closed = HeightOf(m_box.Control());
    EXPECT_GT(closed, 15);
    EXPECT_LT(closed, 40);
    MoveWindow(m_box.Control(), 5, 5, 150, 200, FALSE);
    EXPECT_EQ(HeightOf(m_box.Control()), closed);
    RECT rect{};
    GetWindowRect(m_box.Control(), &rect);
    EXPECT_EQ(rect.right - rect.left, 150);
    m_box.Show(true);
    EXPECT_EQ(HeightOf(m_box.Control()), closed);
}

TEST_P(ComboBoxList, ShowingNotifiesOnceBeforeItOpens)
{
    std::vector<bool> open;
    m_box.onCommand = [&](int) {
        open.push_back(m_box.Open());
    };
    EXPECT_EQ(m_box.Show(true), TRUE);
    EXPECT_EQ(m_box.Codes(), Codes{CBN_DROPDOWN});
    EXPECT_EQ(open, std::vector<bool>{false});
    EXPECT_TRUE(m_box.Open());
    m_box.Show(true);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxList, HidingGivesTheChoiceUpAndCloses)
{
    m_box.Show(true);
    m_box.Codes();
    std::vector<bool> open;
    m_box.onCommand = [&](int) {
        open.push_back(m_box.Open());
    };
    m_box.Show(false);
    EXPECT_EQ(m_box.Codes(), kGivenUp);
    EXPECT_EQ(open, (std::vector<bool>{true, false}));
    m_box.Show(false);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxList, TheListMayBeFilledWhenItIsAboutToOpen)
{
    m_box.onCommand = [&](int code) {
        if (code != CBN_DROPDOWN)
            return;
        m_box.Send(CB_RESETCONTENT);
        m_box.Insert(-1, L"new");
        m_box.Insert(-1, L"newer");
        m_box.SelectText(0, L"new");
    };
    m_box.Show(true);
    EXPECT_TRUE(m_box.Open());
    EXPECT_EQ(m_box.Items(), L"new|newer");
    EXPECT_EQ(m_box.Codes(), Codes{CBN_DROPDOWN});
}

TEST_P(ComboBoxList, TheSelectionMayBeChangedWhileItIsOpen)
{
    m_box.Show(true);
    m_box.Codes();
    EXPECT_EQ(m_box.Select(2), 2);
    EXPECT_EQ(m_box.Text(), L"three");
    EXPECT_TRUE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxList, AHandlerMayTakeTheSelectionAway)
{
    TakeFocus();
    m_box.onCommand = [&](int code) {
        if (code == CBN_SELCHANGE)
            m_box.Select(-1);
    };
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Text(), L"");
}

TEST_P(ComboBoxList, ABoxMayBeDestroyedByAnyOfItsNotifications)
{
    for (const int last : {CBN_DROPDOWN, CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP, CBN_SETFOCUS})
    {
        const ComboHost unused(GetParam());
        ComboHost box(GetParam(), {L"one"});
        box.onCommand = [&](int code) {
            if (code == last)
                DestroyWindow(box.Control());
        };
        SetFocus(box.Control());
        for (const auto& step : std::initializer_list<std::function<void()>>{[&] { box.Show(true); },
                                                                             [&] { box.PressKey(VK_DOWN); },
                                                                             [&] {
                                                                                 box.PressKey(VK_RETURN);
                                                                             }})
        {
            if (IsWindow(box.Control()))
                step();
        }
        EXPECT_FALSE(IsWindow(box.Control())) << last;
    }
}

TEST(ComboBoxList, AListWithoutFieldHasNoTextOfItsOwn)
{
    ComboHost box(CBS_DROPDOWNLIST, {L"one", L"two"});
    box.Select(1);
    EXPECT_EQ(box.SendText(WM_SETTEXT, 0, L"one"), CB_ERR);
    EXPECT_EQ(box.SendText(WM_SETTEXT, 0, L"free"), CB_ERR);
    EXPECT_EQ(box.Text(), L"two");
    EXPECT_EQ(box.Selected(), 1);
    EXPECT_EQ(box.Codes(), Codes{});
}

TEST(ComboBoxList, AListWithoutFieldHasNoWindowForOne)
{
    const ComboHost box(CBS_DROPDOWNLIST, {L"one"});
    EXPECT_EQ(box.Field(), nullptr);
}

TEST(ComboBoxList, ItsTextIsReadUpToTheSizeOfTheBuffer)
{
    const ComboHost box(CBS_DROPDOWNLIST, {L"three"});
    box.Select(0);
    wchar_t text[4] = {};
    box.Send(WM_GETTEXT, 4, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"thr");
    EXPECT_EQ(box.Send(WM_GETTEXTLENGTH), 5);
}
