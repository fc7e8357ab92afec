// Edit fields: keys that move the caret, select and delete.
#include "ControlHost.h"
#include "KeysWithModifiers.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace
{
using Codes = std::vector<int>;
using Range = std::pair<DWORD, DWORD>;

const Codes kChanged{EN_UPDATE, EN_CHANGE};

class EditKeys : public testing::Test
{
protected:
    EditKeys() { Start(L"abcdef", 2); }

    void Start(const wchar_t* text, int caret)
    {
        SetWindowTextW(m_host.Control(), text);
        Select(caret, caret);
        m_host.Codes();
    }
    void Select(int first, int last) const { m_host.Send(EM_SETSEL, static_cast<WPARAM>(first), last); }
    Range Selection() const
    {
        Range range{99, 99};
        m_host.Send(EM_GETSEL, reinterpret_cast<WPARAM>(&range.first),
                    reinterpret_cast<LPARAM>(&range.second));
        return range;
    }

    ControlHost m_host{WC_EDITW, WS_BORDER | ES_AUTOHSCROLL, 200, 24};
};
} // namespace

TEST_F(EditKeys, ArrowsMoveTheCaret)
{
    m_host.Press(VK_RIGHT);
    EXPECT_EQ(Selection(), Range(3, 3));
    m_host.Press(VK_LEFT);
    m_host.Press(VK_LEFT);
    EXPECT_EQ(Selection(), Range(1, 1));
    EXPECT_EQ(m_host.Codes(), Codes{});
}

TEST_F(EditKeys, UpAndDownMoveTheCaretAsLeftAndRight)
{
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Selection(), Range(3, 3));
    m_host.Press(VK_UP);
    EXPECT_EQ(Selection(), Range(2, 2));
}

TEST_F(EditKeys, TheCaretStaysWithinTheText)
{
    Select(0, 0);
    m_host.Press(VK_LEFT);
    EXPECT_EQ(Selection(), Range(0, 0));
    Select(6, 6);
    m_host.Press(VK_RIGHT);
    EXPECT_EQ(Selection(), Range(6, 6));
}

TEST_F(EditKeys, HomeAndEndGoToTheEnds)
{
    m_host.Press(VK_HOME);
    EXPECT_EQ(Selection(), Range(0, 0));
    m_host.Press(VK_END);
    EXPECT_EQ(Selection(), Range(6, 6));
}

TEST_F(EditKeys, ShiftWithArrowsSelectsFromWhereTheCaretWas)
{
    PressWith(m_host, VK_RIGHT, {VK_SHIFT});
    PressWith(m_host, VK_RIGHT, {VK_SHIFT});
    EXPECT_EQ(Selection(), Range(2, 4));
    PressWith(m_host, VK_LEFT, {VK_SHIFT});
    EXPECT_EQ(Selection(), Range(2, 3));
}

TEST_F(EditKeys, ShiftWithHomeAndEndSelectsToTheEnds)
{
    PressWith(m_host, VK_HOME, {VK_SHIFT});
    EXPECT_EQ(Selection(), Range(0, 2));
    PressWith(m_host, VK_END, {VK_SHIFT});
    EXPECT_EQ(Selection(), Range(2, 6));
}

TEST_F(EditKeys, AMoveWithoutShiftEndsTheSelection)
{
    Select(1, 4);
    m_host.Press(VK_HOME);
    EXPECT_EQ(Selection(), Range(0, 0));
}

TEST_F(EditKeys, ControlWithArrowsMovesByWords)
{
    Start(L"one two  three", 0);
    for (const DWORD expected : {4U, 9U, 14U})
    {
        PressWith(m_host, VK_RIGHT, {VK_CONTROL});
        EXPECT_EQ(Selection(), Range(expected, expected));
    }
    for (const DWORD expected : {9U, 4U, 0U})
    {
        PressWith(m_host, VK_LEFT, {VK_CONTROL});
        EXPECT_EQ(Selection(), Range(expected, expected));
    }
}

TEST_F(EditKeys, ControlAndShiftSelectWords)
{
    Start(L"one two  three", 4);
    PressWith(m_host, VK_RIGHT, {VK_CONTROL, VK_SHIFT});
    EXPECT_EQ(Selection(), Range(4, 9));
}

TEST_F(EditKeys, DeleteTakesTheCharacterBehindTheCaret)
{
    m_host.Press(VK_DELETE);
    EXPECT_EQ(m_host.Text(), L"abdef");
    EXPECT_EQ(Selection(), Range(2, 2));
    EXPECT_EQ(m_host.Codes(), kChanged);
}

TEST_F(EditKeys, BackspaceTakesTheCharacterBeforeTheCaret)
{
    m_host.Press(VK_BACK);
    EXPECT_EQ(m_host.Text(), L"acdef");
    EXPECT_EQ(Selection(), Range(1, 1));
    EXPECT_EQ(m_host.Codes(), kChanged);
}

TEST_F(EditKeys, DeleteAndBackspaceTakeTheSelection)
{
    Select(1, 3);
    m_host.Press(VK_DELETE);
    EXPECT_EQ(m_host.Text(), L"adef");
    EXPECT_EQ(Selection(), Range(1, 1));
    EXPECT_EQ(m_host.Codes(), kChanged);
    Select(0, 2);
    m_host.Press(VK_BACK);
    EXPECT_EQ(m_host.Text(), L"ef");
    EXPECT_EQ(Selection(), Range(0, 0));
    EXPECT_EQ(m_host.Codes(), kChanged);
}

TEST_F(EditKeys, DeleteAtTheEndAndBackspaceAtTheFrontAreSilent)
{
    Select(6, 6);
    m_host.Press(VK_DELETE);
    Select(0, 0);
    m_host.Press(VK_BACK);
    EXPECT_EQ(m_host.Text(), L"abcdef");
    EXPECT_EQ(m_host.Codes(), Codes{});
}

TEST_F(EditKeys, ControlWithDeleteTakesEverythingBehindTheCaret)
{
    PressWith(m_host, VK_DELETE, {VK_CONTROL});
    EXPECT_EQ(m_host.Text(), L"ab");
    EXPECT_EQ(m_host.Codes(), kChanged);
}

TEST_F(EditKeys, KeysThatOnlyModifyDoNothing)
{
    for (const WORD key : {VK_SHIFT, VK_CONTROL, VK_MENU, VK_F2, VK_PRIOR, VK_NEXT})
        m_host.Press(key);
    EXPECT_EQ(m_host.Text(), L"abcdef");
    EXPECT_EQ(Selection(), Range(2, 2));
    EXPECT_EQ(m_host.Codes(), Codes{});
}

TEST_F(EditKeys, ControlAndASelectsAll)
{
    PressWith(m_host, L'A', {VK_CONTROL});
    EXPECT_EQ(Selection(), Range(0, 6));
    EXPECT_EQ(m_host.Text(), L"abcdef");
}

TEST_F(EditKeys, TheLetterAloneSelectsNothing)
{
    m_host.Send(WM_KEYDOWN, L'A', 1);
    EXPECT_EQ(Selection(), Range(2, 2));
}

// As Control with a letter, Enter or Backspace types them.
TEST_F(EditKeys, ControlCharactersTypeNothing)
{
    for (const wchar_t character : {0x01, 0x02, 0x0A, 0x14, 0x7F})
        m_host.Send(WM_CHAR, static_cast<WPARAM>(character), 1);
    EXPECT_EQ(m_host.Text(), L"abcdef");
    EXPECT_EQ(Selection(), Range(2, 2));
    EXPECT_EQ(m_host.Codes(), Codes{});
}
