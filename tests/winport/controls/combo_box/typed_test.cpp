// What the keys of a combo box do after a text was typed into its field.
#include "ComboHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using Codes = std::vector<int>;

class ComboBoxTyped : public testing::Test
{
protected:
    void SetUp() override
    {
        SetFocus(m_box.Control());
        m_box.Codes();
    }
    void TypeAll(const wchar_t* text)
    {
        SendMessageW(m_box.Field(), EM_SETSEL, 0, -1);
        m_box.TypeText(text);
        m_box.Codes();
    }
    std::wstring After(WORD key)
    {
        m_box.PressKey(key);
        return m_box.Text();
    }

    ComboHost m_box{CBS_DROPDOWN | CBS_AUTOHSCROLL, {L"alpha", L"beta", L"gamma", L"gate", L"delta"}};
};
} // namespace

TEST_F(ComboBoxTyped, AnArrowGoesToTheItemThatBeginsWithTheText)
{
    for (const WORD key : {VK_DOWN, VK_UP, VK_NEXT, VK_PRIOR})
    {
        TypeAll(L"x");
        TypeAll(L"GA");
        EXPECT_EQ(m_box.Selected(), -1);
        EXPECT_EQ(After(key), L"gamma") << key;
        EXPECT_EQ(m_box.Selected(), 2);
        EXPECT_EQ(m_box.Codes(), (Codes{CBN_SELENDOK, CBN_SELCHANGE}));
    }
}

TEST_F(ComboBoxTyped, TheNextArrowContinuesFromThere)
{
    TypeAll(L"ga");
    After(VK_DOWN);
    EXPECT_EQ(After(VK_DOWN), L"gate");
    TypeAll(L"x");
    TypeAll(L"ga");
    After(VK_DOWN);
    EXPECT_EQ(After(VK_UP), L"beta");
}

TEST_F(ComboBoxTyped, AnArrowGoesToTheFirstItemIfNoneBeginsSo)
{
    m_box.Select(3);
    TypeAll(L"x");
    EXPECT_EQ(After(VK_DOWN), L"alpha");
    m_box.Select(3);
    m_box.Codes();
    TypeAll(L"x");
    m_box.PressKey(VK_BACK);
    EXPECT_EQ(m_box.Text(), L"");
    EXPECT_EQ(After(VK_DOWN), L"alpha");
}

TEST_F(ComboBoxTyped, AnItemAddedAfterTheTextIsNotLookedUp)
{
    TypeAll(L"ze");
    m_box.Insert(-1, L"zeta");
    EXPECT_EQ(After(VK_DOWN), L"alpha");
}

TEST_F(ComboBoxTyped, AnAssignedTextIsNotLookedUp)
{
    m_box.SendText(WM_SETTEXT, 0, L"ga");
    EXPECT_EQ(After(VK_DOWN), L"alpha");
    m_box.SendText(WM_SETTEXT, 0, L"ga");
    EXPECT_EQ(After(VK_DOWN), L"beta");
    m_box.SendText(WM_SETTEXT, 0, L"");
    EXPECT_EQ(After(VK_UP), L"alpha");
}

TEST_F(ComboBoxTyped, AnAssignedTextIsLookedUpWhenTheListOpens)
{
    m_box.Select(1);
    m_box.SendText(WM_SETTEXT, 0, L"de");
    EXPECT_EQ(m_box.Selected(), 1);
    m_box.PressWithAlt(VK_DOWN);
    EXPECT_EQ(m_box.Selected(), 4);
    EXPECT_EQ(m_box.Text(), L"delta");
    EXPECT_EQ(After(VK_UP), L"gate");
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_DROPDOWN, CBN_SELCHANGE}));
    EXPECT_EQ(After(VK_ESCAPE), L"gate");
}

TEST_F(ComboBoxTyped, F4ShowsTheItemThatBeginsWithTheTextAndKeepsIt)
{
    TypeAll(L"ga");
    EXPECT_EQ(After(VK_F4), L"gamma");
    EXPECT_TRUE(m_box.Open());
    EXPECT_EQ(m_box.Selected(), 2);
    EXPECT_EQ(After(VK_F4), L"gamma");
    EXPECT_EQ(m_box.Selected(), 2);
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_DROPDOWN, CBN_SELENDCANCEL, CBN_CLOSEUP}));
}

TEST_F(ComboBoxTyped, EnterOrF4InTheOpenListLeaveTheTypedText)
{
    for (const WORD key : {VK_RETURN, VK_F4})
    {
        m_box.Show(true);
        TypeAll(L"ga");
        EXPECT_EQ(m_box.Selected(), 2);
        EXPECT_EQ(After(key), L"ga") << key;
        EXPECT_EQ(m_box.Selected(), 2);
        EXPECT_FALSE(m_box.Open());
    }
}

// The box takes the field's next change for the one that the pick made.
TEST_F(ComboBoxTyped, TheFirstTextAfterAPickedItemKeepsTheSelection)
{
    After(VK_DOWN);
    TypeAll(L"x");
    EXPECT_EQ(m_box.Selected(), 0);
    TypeAll(L"y");
    EXPECT_EQ(m_box.Selected(), -1);
}

TEST_F(ComboBoxTyped, ASelectionMadeAfterThePickIsKeptToo)
{
    After(VK_DOWN);
    m_box.Select(2);
    TypeAll(L"x");
    EXPECT_EQ(m_box.Selected(), 2);
}

TEST_F(ComboBoxTyped, OpeningTheListForgetsThePick)
{
    After(VK_DOWN);
    After(VK_F4);
    TypeAll(L"b");
    EXPECT_EQ(m_box.Selected(), 1);
    After(VK_ESCAPE);
    After(VK_DOWN);
    After(VK_F4);
    After(VK_F4);
    TypeAll(L"x");
    EXPECT_EQ(m_box.Selected(), -1);
}
