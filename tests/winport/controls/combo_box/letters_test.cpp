// A letter typed on a combo box without field picks the next item that begins with it.
#include "ComboHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using Codes = std::vector<int>;

const Codes kPicked{CBN_SELENDOK, CBN_SELCHANGE};

class ComboBoxLetters : public testing::Test
{
protected:
    void SetUp() override
    {
        SetFocus(m_box.Control());
        m_box.Codes();
    }

    // A key with its character, as a keyboard sends them.
    int Typed(wchar_t letter)
    {
        m_box.Send(WM_KEYDOWN, static_cast<WPARAM>(letter) - L'a' + L'A', 1);
        m_box.Send(WM_CHAR, static_cast<WPARAM>(letter), 1);
        return m_box.Selected();
    }

    ComboHost m_box{CBS_DROPDOWNLIST, {L"alpha", L"beta", L"bravo", L"Gamma", L"gate", L"2 two", L" blank"}};
};
} // namespace

TEST_F(ComboBoxLetters, ALetterPicksTheItemAndNotifiesTwice)
{
    EXPECT_EQ(Typed(L'b'), 1);
    EXPECT_EQ(m_box.Text(), L"beta");
    EXPECT_EQ(m_box.Codes(), kPicked);
}

TEST_F(ComboBoxLetters, TheSameLetterGoesRoundTheItemsThatBeginWithIt)
{
    EXPECT_EQ(Typed(L'b'), 1);
    EXPECT_EQ(Typed(L'b'), 2);
    EXPECT_EQ(Typed(L'b'), 1);
}

TEST_F(ComboBoxLetters, TheSearchBeginsBehindTheSelection)
{
    m_box.Select(1);
    EXPECT_EQ(Typed(L'b'), 2);
    EXPECT_EQ(Typed(L'a'), 0);
}

TEST_F(ComboBoxLetters, WithNothingSelectedTheFirstItemIsTheLastOneTried)
{
    m_box.Insert(1, L"apple");
    EXPECT_EQ(Typed(L'a'), 1);
    EXPECT_EQ(Typed(L'a'), 0);
}

TEST_F(ComboBoxLetters, TheOnlyItemIsPickedAndNotifiedAgain)
{
    EXPECT_EQ(Typed(L'a'), 0);
    m_box.Codes();
    EXPECT_EQ(Typed(L'a'), 0);
    EXPECT_EQ(m_box.Codes(), kPicked);
}

TEST_F(ComboBoxLetters, CaseDoesNotCount)
{
    m_box.TypeText(L"g");
    EXPECT_EQ(m_box.Text(), L"Gamma");
    m_box.TypeText(L"G");
    EXPECT_EQ(m_box.Text(), L"gate");
}

TEST_F(ComboBoxLetters, DigitsAndBlanksAreSearchedToo)
{
    m_box.TypeText(L"2");
    EXPECT_EQ(m_box.Text(), L"2 two");
    m_box.TypeText(L" ");
    EXPECT_EQ(m_box.Text(), L" blank");
}

TEST_F(ComboBoxLetters, ALetterThatNoItemBeginsWithIsSilent)
{
    m_box.Select(1);
    EXPECT_EQ(Typed(L'x'), 1);
    m_box.TypeText(L"\r\x1b\x01");
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_F(ComboBoxLetters, ALetterInAnEmptyBoxIsSilent)
{
    m_box.Send(CB_RESETCONTENT);
    EXPECT_EQ(Typed(L'a'), -1);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_F(ComboBoxLetters, ALetterInTheOpenListPicksAndCloses)
{
    m_box.Show(true);
    m_box.Codes();
    std::vector<bool> open;
    std::vector<int> selected;
    m_box.onCommand = [&](int) {
        open.push_back(m_box.Open());
        selected.push_back(m_box.Selected());
    };
    EXPECT_EQ(Typed(L'b'), 1);
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_SELENDOK, CBN_CLOSEUP, CBN_SELCHANGE}));
    EXPECT_EQ(open, (std::vector<bool>{true, false, false}));
    EXPECT_EQ(selected, (std::vector<int>{1, 1, 1}));
    EXPECT_EQ(m_box.Text(), L"beta");
}

TEST_F(ComboBoxLetters, ALetterWithoutItemLeavesTheListOpen)
{
    m_box.Show(true);
    m_box.Codes();
    EXPECT_EQ(Typed(L'x'), -1);
    EXPECT_TRUE(m_box.Open());
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_F(ComboBoxLetters, ABoxMayBeDestroyedByThePickOfALetter)
{
    for (const bool open : {false, true})
    {
        for (const int last : {CBN_SELENDOK, CBN_SELCHANGE})
        {
            ComboHost box(CBS_DROPDOWNLIST, {L"one"});
            box.Show(open);
            box.onCommand = [&](int code) {
                if (code == last)
                    DestroyWindow(box.Control());
            };
            box.Send(WM_CHAR, L'o', 1);
            EXPECT_FALSE(IsWindow(box.Control())) << open << last;
        }
    }
}

TEST_F(ComboBoxLetters, AKeyGoesToTheItemThatWasLeftBySelectingNone)
{
    m_box.Select(2);
    m_box.Select(-1);
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), 2);
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), 3);
}

TEST_F(ComboBoxLetters, AKeyGoesToTheOldIndexWhenItemsWentBeforeIt)
{
    m_box.Select(3);
    m_box.Delete(0);
    EXPECT_EQ(m_box.Selected(), 2);
    m_box.PressKey(VK_UP);
    EXPECT_EQ(m_box.Selected(), 3);
}

TEST_F(ComboBoxLetters, AKeyGoesToTheFirstItemOfNewContent)
{
    m_box.Select(2);
    m_box.Send(CB_RESETCONTENT);
    m_box.Add(L"one");
    m_box.Add(L"two");
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), 0);
}
