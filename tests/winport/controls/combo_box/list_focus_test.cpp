// Combo boxes: the focus, the mouse, and a disabled box.
#include "ComboListFixture.h"

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

TEST(ComboBoxList, AnyPointOfAListWithoutFieldOpensIt)
{
    const ComboHost box(CBS_DROPDOWNLIST, {L"one"});
    box.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 8));
    box.Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 8));
    EXPECT_TRUE(box.Open());
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
