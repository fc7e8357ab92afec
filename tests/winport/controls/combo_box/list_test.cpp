// Combo boxes: the list that drops down, the keys, the focus, what the owner hears and when.
#include "ComboHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace
{
using Codes = std::vector<int>;

const Codes kPicked{CBN_SELENDOK, CBN_SELCHANGE};
const Codes kAccepted{CBN_SELENDOK, CBN_CLOSEUP};
const Codes kGivenUp{CBN_SELENDCANCEL, CBN_CLOSEUP};

// Each rule holds for both kinds of box.
class ComboBoxList : public testing::TestWithParam<DWORD>
{
protected:
    bool Editable() const { return GetParam() == (CBS_DROPDOWN | CBS_AUTOHSCROLL); }
    void TakeFocus()
    {
        SetFocus(m_box.Control());
        m_box.Codes();
    }

    ComboHost m_box{GetParam(), {L"one", L"two", L"three"}};
};

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

TEST_P(ComboBoxList, TheFocusIsNotifiedOnce)
{
    SetFocus(m_box.Control());
    EXPECT_EQ(GetFocus(), m_box.KeyWindow());
    EXPECT_EQ(m_box.Codes(), Codes{CBN_SETFOCUS});
}

TEST_P(ComboBoxList, LosingTheFocusGivesTheChoiceUp)
{
    TakeFocus();
    SetFocus(m_box.Window());
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_SELENDCANCEL, CBN_KILLFOCUS}));
}

TEST_P(ComboBoxList, LosingTheFocusClosesTheList)
{
    TakeFocus();
    m_box.Show(true);
    m_box.Codes();
    SetFocus(m_box.Window());
    EXPECT_FALSE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_SELENDCANCEL, CBN_CLOSEUP, CBN_KILLFOCUS}));
}

TEST_P(ComboBoxList, AClickOnItsButtonTakesTheFocusOpensAndAccepts)
{
    m_box.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(195, 8));
    m_box.Send(WM_LBUTTONUP, 0, MAKELPARAM(195, 8));
    EXPECT_TRUE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_SETFOCUS, CBN_DROPDOWN}));
    m_box.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(195, 8));
    m_box.Send(WM_LBUTTONUP, 0, MAKELPARAM(195, 8));
    EXPECT_FALSE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), kAccepted);
}

TEST_P(ComboBoxList, ADisabledBoxHasADisabledField)
{
    EnableWindow(m_box.Control(), FALSE);
    EXPECT_FALSE(IsWindowEnabled(m_box.KeyWindow()));
    SetFocus(m_box.Control());
    EXPECT_NE(GetFocus(), m_box.KeyWindow());
    EnableWindow(m_box.Control(), TRUE);
    EXPECT_TRUE(IsWindowEnabled(m_box.KeyWindow()));
}

TEST_P(ComboBoxList, ABoxDisabledFromTheStartHasADisabledField)
{
    const ComboHost box(GetParam() | WS_DISABLED);
    EXPECT_FALSE(IsWindowEnabled(box.KeyWindow()));
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

TEST(ComboBoxList, AnyPointOfAListWithoutFieldOpensIt)
{
    const ComboHost box(CBS_DROPDOWNLIST, {L"one"});
    box.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 8));
    box.Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 8));
    EXPECT_TRUE(box.Open());
}
