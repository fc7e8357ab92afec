// Combo boxes: the keys in the closed box and in the open list.
#include "ComboListFixture.h"

#include <string>

TEST_P(ComboBoxList, AnArrowInTheClosedBoxPicksAndNotifiesTwice)
{
    TakeFocus();
    m_box.Select(0);
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Text(), L"two");
    EXPECT_EQ(m_box.Codes(), kPicked);
    m_box.PressKey(VK_UP);
    EXPECT_EQ(m_box.Text(), L"one");
    EXPECT_EQ(m_box.Codes(), kPicked);
}

TEST_P(ComboBoxList, AFieldHasItsOldTextWhenAnArrowNotifies)
{
    TakeFocus();
    m_box.Select(0);
    std::vector<std::wstring> texts;
    std::vector<int> selected;
    m_box.onCommand = [&](int) {
        texts.push_back(m_box.Text());
        selected.push_back(m_box.Selected());
    };
    m_box.PressKey(VK_DOWN);
    const std::wstring seen = Editable() ? L"one" : L"two";
    EXPECT_EQ(texts, (std::vector<std::wstring>{seen, seen}));
    EXPECT_EQ(selected, (std::vector<int>{1, 1}));
    EXPECT_EQ(m_box.Text(), L"two");
}

TEST_P(ComboBoxList, AnyKeyOfTheListPicksTheFirstItemIfNoneIsSelected)
{
    TakeFocus();
    for (const WORD key : {VK_DOWN, VK_UP, VK_NEXT, VK_PRIOR})
    {
        m_box.Select(-1);
        m_box.PressKey(key);
        EXPECT_EQ(m_box.Selected(), 0);
        EXPECT_EQ(m_box.Codes(), kPicked);
    }
}

TEST_P(ComboBoxList, ArrowsStayWithinTheItems)
{
    TakeFocus();
    m_box.Select(0);
    m_box.PressKey(VK_UP);
    EXPECT_EQ(m_box.Selected(), 0);
    m_box.Select(2);
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), 2);
}

TEST_P(ComboBoxList, PageKeysGoToTheEndsOfAShortList)
{
    TakeFocus();
    m_box.Select(0);
    m_box.PressKey(VK_NEXT);
    EXPECT_EQ(m_box.Selected(), 2);
    m_box.PressKey(VK_PRIOR);
    EXPECT_EQ(m_box.Selected(), 0);
}

TEST_P(ComboBoxList, AnArrowInAnEmptyBoxIsSilent)
{
    m_box.Send(CB_RESETCONTENT);
    TakeFocus();
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxList, AnArrowInTheOpenListNotifiesOfTheChangeOnly)
{
    TakeFocus();
    m_box.Select(0);
    m_box.Show(true);
    m_box.Codes();
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Codes(), Codes{CBN_SELCHANGE});
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Text(), L"two");
    EXPECT_TRUE(m_box.Open());
}

TEST_P(ComboBoxList, EnterAcceptsAndCloses)
{
    TakeFocus();
    m_box.Show(true);
    m_box.PressKey(VK_DOWN);
    m_box.Codes();
    std::vector<bool> open;
    m_box.onCommand = [&](int) {
        open.push_back(m_box.Open());
    };
    m_box.PressKey(VK_RETURN);
    EXPECT_EQ(m_box.Codes(), kAccepted);
    EXPECT_EQ(open, (std::vector<bool>{true, false}));
    EXPECT_EQ(m_box.Text(), L"one");
    EXPECT_FALSE(m_box.Open());
}

TEST_P(ComboBoxList, EscapeGivesUpAndCloses)
{
    TakeFocus();
    m_box.Show(true);
    m_box.Codes();
    m_box.PressKey(VK_ESCAPE);
    EXPECT_EQ(m_box.Codes(), kGivenUp);
    EXPECT_FALSE(m_box.Open());
}

TEST_P(ComboBoxList, EnterAndEscapeInTheClosedBoxDoNothing)
{
    TakeFocus();
    m_box.PressKey(VK_RETURN);
    m_box.PressKey(VK_ESCAPE);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_P(ComboBoxList, EnterWithNothingSelectedClosesToo)
{
    TakeFocus();
    m_box.Show(true);
    m_box.Codes();
    m_box.PressKey(VK_RETURN);
    EXPECT_EQ(m_box.Codes(), kAccepted);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Text(), L"");
}

TEST_P(ComboBoxList, F4OpensAndCloses)
{
    TakeFocus();
    m_box.PressKey(VK_F4);
    EXPECT_TRUE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), Codes{CBN_DROPDOWN});
    m_box.PressKey(VK_F4);
    EXPECT_FALSE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), kGivenUp);
}

TEST_P(ComboBoxList, AltWithAnArrowOpensAndCloses)
{
    TakeFocus();
    m_box.Select(1);
    m_box.PressWithAlt(VK_DOWN);
    EXPECT_TRUE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), Codes{CBN_DROPDOWN});
    m_box.PressWithAlt(VK_UP);
    EXPECT_FALSE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), kGivenUp);
    EXPECT_EQ(m_box.Selected(), 1);
}

TEST_P(ComboBoxList, OnlyAnOpenListKeepsEnterAndEscapeFromItsDialog)
{
    TakeFocus();
    const LRESULT code = DLGC_WANTCHARS | DLGC_WANTARROWS | (Editable() ? DLGC_HASSETSEL : 0);
    EXPECT_EQ(m_box.DialogCodeFor(VK_RETURN), code);
    EXPECT_EQ(m_box.DialogCodeFor(VK_ESCAPE), code);
    m_box.Show(true);
    EXPECT_EQ(m_box.DialogCodeFor(VK_RETURN), code | DLGC_WANTMESSAGE);
    EXPECT_EQ(m_box.DialogCodeFor(VK_ESCAPE), code | DLGC_WANTMESSAGE);
    EXPECT_EQ(m_box.DialogCodeFor(VK_TAB), code);
    EXPECT_EQ(m_box.Send(WM_GETDLGCODE), DLGC_WANTCHARS | DLGC_WANTARROWS);
}

TEST(ComboBoxList, HomeAndEndGoToTheEndsOfAListWithoutField)
{
    ComboHost box(CBS_DROPDOWNLIST, {L"one", L"two", L"three"});
    SetFocus(box.Control());
    box.Select(0);
    box.Codes();
    box.PressKey(VK_END);
    EXPECT_EQ(box.Selected(), 2);
    EXPECT_EQ(box.Codes(), kPicked);
    box.PressKey(VK_HOME);
    EXPECT_EQ(box.Selected(), 0);
}

TEST(ComboBoxList, LeftAndRightMoveAsUpAndDownInAListWithoutField)
{
    ComboHost box(CBS_DROPDOWNLIST, {L"one", L"two", L"three"});
    SetFocus(box.Control());
    box.Select(1);
    box.PressKey(VK_RIGHT);
    EXPECT_EQ(box.Selected(), 2);
    box.PressKey(VK_LEFT);
    EXPECT_EQ(box.Selected(), 1);
}
