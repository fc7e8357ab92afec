// Combo boxes with a field to type in.
#include "ComboHost.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
using Codes = std::vector<int>;

const Codes kTyped{CBN_EDITUPDATE, CBN_EDITCHANGE};

class ComboBoxField : public testing::Test
{
protected:
    void TakeFocus()
    {
        SetFocus(m_box.Control());
        m_box.Codes();
    }
    LRESULT FieldSelection() const { return SendMessageW(m_box.Field(), EM_GETSEL, 0, 0); }

    ComboHost m_box{CBS_DROPDOWN | CBS_AUTOHSCROLL | CBS_SORT, {L"alpine", L"beta", L"coop"}};
};
} // namespace

TEST_F(ComboBoxField, TheFieldIsAnEditInsideTheBox)
{
    wchar_t name[20];
    GetClassNameW(m_box.Field(), name, 20);
    EXPECT_STREQ(name, WC_EDITW);
    EXPECT_EQ(GetDlgCtrlID(m_box.Field()), 1001);
    EXPECT_TRUE(IsWindowVisible(m_box.Field()));
    RECT box{};
    RECT field{};
    GetWindowRect(m_box.Control(), &box);
    GetWindowRect(m_box.Field(), &field);
    EXPECT_GT(field.left, box.left);
    EXPECT_LT(field.right, box.right - 10);
    EXPECT_LE(field.bottom, box.bottom);
}

TEST_F(ComboBoxField, TheFieldGrowsWithTheBox)
{
    RECT before{};
    GetWindowRect(m_box.Field(), &before);
    MoveWindow(m_box.Control(), 10, 10, 250, 100, FALSE);
    RECT after{};
    GetWindowRect(m_box.Field(), &after);
    EXPECT_EQ(after.right - after.left, before.right - before.left + 50);
}

TEST_F(ComboBoxField, TypingClearsTheSelectionAndNotifies)
{
    TakeFocus();
    m_box.Select(1);
    m_box.TypeText(L"x");
    EXPECT_EQ(m_box.Text(), L"x");
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Codes(), kTyped);
    m_box.PressKey(VK_BACK);
    EXPECT_EQ(m_box.Text(), L"");
    EXPECT_EQ(m_box.Codes(), kTyped);
}

TEST_F(ComboBoxField, TheNewTextIsSetWhenTypingIsNotified)
{
    TakeFocus();
    m_box.Select(1);
    std::vector<std::wstring> texts;
    int selected = 0;
    m_box.onCommand = [&](int) {
        texts.push_back(m_box.Text());
        selected = m_box.Selected();
    };
    m_box.TypeText(L"x");
    EXPECT_EQ(texts, (std::vector<std::wstring>{L"x", L"x"}));
    EXPECT_EQ(selected, -1);
}

TEST_F(ComboBoxField, TypingAnItemsTextDoesNotSelectIt)
{
    TakeFocus();
    m_box.TypeText(L"beta");
    EXPECT_EQ(m_box.Text(), L"beta");
    EXPECT_EQ(m_box.Selected(), -1);
}

TEST_F(ComboBoxField, AnAssignedTextKeepsTheSelectionAndIsSilent)
{
    m_box.Select(1);
    EXPECT_EQ(m_box.SendText(WM_SETTEXT, 0, L"free"), TRUE);
    EXPECT_EQ(m_box.Text(), L"free");
    EXPECT_EQ(m_box.Selected(), 1);
    m_box.SendText(WM_SETTEXT, 0, L"coop");
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_F(ComboBoxField, ATextAssignedToTheFieldIsThatOfTheBox)
{
    SetWindowTextW(m_box.Field(), L"free");
    EXPECT_EQ(m_box.Text(), L"free");
    EXPECT_EQ(m_box.Send(WM_GETTEXTLENGTH), 4);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_F(ComboBoxField, AnAssignedTextStaysUntilASelectionIsMade)
{
    m_box.Select(1);
    SetWindowTextW(m_box.Control(), L"free");
    m_box.Select(1);
    EXPECT_EQ(m_box.Text(), L"beta");
}

TEST_F(ComboBoxField, TheFocusSelectsAllText)
{
    m_box.Select(1);
    TakeFocus();
    EXPECT_EQ(GetFocus(), m_box.Field());
    EXPECT_EQ(FieldSelection(), MAKELONG(0, 4));
}

TEST_F(ComboBoxField, TheFieldMayBeGivenTheFocusItself)
{
    SetFocus(m_box.Field());
    EXPECT_EQ(m_box.Codes(), Codes{CBN_SETFOCUS});
}

TEST_F(ComboBoxField, APickedTextIsSelected)
{
    TakeFocus();
    m_box.PressKey(VK_DOWN);
    EXPECT_EQ(m_box.Text(), L"alpine");
    EXPECT_EQ(FieldSelection(), MAKELONG(0, 6));
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_SELENDOK, CBN_SELCHANGE}));
}

TEST_F(ComboBoxField, HomeEndLeftAndRightBelongToTheField)
{
    TakeFocus();
    m_box.Select(1);
    m_box.PressKey(VK_END);
    EXPECT_EQ(FieldSelection(), MAKELONG(4, 4));
    m_box.PressKey(VK_LEFT);
    EXPECT_EQ(FieldSelection(), MAKELONG(3, 3));
    m_box.PressKey(VK_HOME);
    EXPECT_EQ(FieldSelection(), MAKELONG(0, 0));
    m_box.PressKey(VK_RIGHT);
    EXPECT_EQ(FieldSelection(), MAKELONG(1, 1));
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Codes(), Codes{});
}

TEST_F(ComboBoxField, CharactersSentToTheBoxAreTyped)
{
    TakeFocus();
    m_box.Send(WM_CHAR, L'k', 1);
    EXPECT_EQ(m_box.Text(), L"k");
    EXPECT_EQ(m_box.Codes(), kTyped);
}

TEST_F(ComboBoxField, OpeningSelectsTheItemThatBeginsWithTheText)
{
    TakeFocus();
    m_box.TypeText(L"BE");
    m_box.Codes();
    m_box.Show(true);
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Text(), L"beta");
    EXPECT_EQ(m_box.Codes(), Codes{CBN_DROPDOWN});
}

TEST_F(ComboBoxField, OpeningWithATextThatNoItemBeginsWithSelectsNone)
{
    m_box.Select(1);
    SetWindowTextW(m_box.Control(), L"free");
    m_box.Show(true);
    EXPECT_EQ(m_box.Selected(), -1);
    EXPECT_EQ(m_box.Text(), L"free");
}

TEST_F(ComboBoxField, OpeningLooksAtTheItemsThatWereFilledInThen)
{
    SetWindowTextW(m_box.Control(), L"ne");
    m_box.onCommand = [&](int code) {
        if (code == CBN_DROPDOWN)
            m_box.Add(L"new");
    };
    m_box.Show(true);
    EXPECT_EQ(m_box.Text(), L"new");
    EXPECT_EQ(m_box.Selected(), 3);
}

TEST_F(ComboBoxField, TypingInTheOpenBoxSelectsTheItemThatBeginsSo)
{
    TakeFocus();
    m_box.Show(true);
    m_box.Codes();
    m_box.TypeText(L"b");
    EXPECT_EQ(m_box.Selected(), 1);
    EXPECT_EQ(m_box.Text(), L"b");
    EXPECT_EQ(m_box.Codes(), kTyped);
    m_box.TypeText(L"x");
    EXPECT_EQ(m_box.Selected(), -1);
}

TEST_F(ComboBoxField, EnterLeavesATextThatIsNoItem)
{
    TakeFocus();
    m_box.TypeText(L"free");
    m_box.Show(true);
    m_box.Codes();
    m_box.PressKey(VK_RETURN);
    EXPECT_EQ(m_box.Text(), L"free");
    EXPECT_EQ(m_box.Codes(), (Codes{CBN_SELENDOK, CBN_CLOSEUP}));
}

TEST_F(ComboBoxField, TheFontIsThatOfTheField)
{
    const auto font = reinterpret_cast<HFONT>(SendMessageW(m_box.Field(), WM_GETFONT, 0, 0));
    EXPECT_EQ(reinterpret_cast<HFONT>(m_box.Send(WM_GETFONT)), font);
}
