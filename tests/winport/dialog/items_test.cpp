// The controls of a dialog by their identifiers: texts, integers, marks.
#include "DialogHost.h"

#include <gtest/gtest.h>

namespace
{
using Commands = std::vector<std::string>;

class DialogItems : public testing::Test
{
protected:
    DialogItems() { m_host.Commands(); }

    static DialogTemplate Description()
    {
        DialogTemplate description(L"Items", kCommonDialog, 0, 0, 100, 100);
        description.Add(0x81, 10, L"", ES_AUTOHSCROLL | WS_TABSTOP, 0, 0, 50, 12)
            .Add(0x80, 20, L"Check", BS_AUTOCHECKBOX | WS_TABSTOP, 0, 12, 50, 12);
        for (const int id : {31, 32, 33, 34})
            description.Add(0x80, id, L"Radio", BS_AUTORADIOBUTTON | (id == 31 ? WS_GROUP : 0), 0, 24, 50,
                            12);
        for (const int id : {41, 42})
            description.Add(0x80, id, L"Radio", BS_AUTORADIOBUTTON | (id == 41 ? WS_GROUP : 0), 0, 36, 50,
                            12);
        return description.Add(0x80, 50, L"Push", WS_GROUP, 0, 48, 50, 12);
    }

    std::vector<int> Marked() const
    {
        std::vector<int> marked;
        for (const int id : {31, 32, 33, 34, 41, 42})
            if (SendDlgItemMessageW(m_host.Window(), id, BM_GETCHECK, 0, 0) == BST_CHECKED)
                marked.push_back(id);
        return marked;
    }

    std::wstring TextOfItem(int id) const
    {
        wchar_t text[100];
        const int length = GetWindowTextW(m_host.Item(id), text, 100);
        EXPECT_EQ(static_cast<std::size_t>(length), wcslen(text));
        return text;
    }

    DialogHost m_host{Description()};
};
} // namespace

TEST_F(DialogItems, AreFoundByTheirNumber)
{
    for (const int id : {10, 20, 31, 50})
    {
        ASSERT_NE(GetDlgItem(m_host.Window(), id), nullptr);
        EXPECT_EQ(GetDlgCtrlID(GetDlgItem(m_host.Window(), id)), id);
    }
    EXPECT_EQ(GetDlgItem(m_host.Window(), 11), nullptr);
    EXPECT_EQ(GetDlgItem(nullptr, 10), nullptr);
    EXPECT_EQ(GetDlgCtrlID(nullptr), 0);
}

TEST_F(DialogItems, AreFoundAmongChildrenOnly)
{
    const HWND inner = CreateWindowExW(0, L"Button", L"", WS_CHILD, 0, 0, 5, 5, m_host.Item(50),
                                       reinterpret_cast<HMENU>(INT_PTR{77}), nullptr, nullptr);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(GetDlgItem(m_host.Window(), 77), nullptr);
    EXPECT_EQ(GetDlgItem(m_host.Item(50), 77), inner);
}

TEST_F(DialogItems, TheFirstOfTwoWithOneNumberIsFound)
{
    CreateWindowExW(0, L"Button", L"", WS_CHILD, 0, 0, 5, 5, m_host.Window(),
                    reinterpret_cast<HMENU>(INT_PTR{20}), nullptr, nullptr);
    EXPECT_EQ(TextOfItem(20), L"Check");
}

TEST_F(DialogItems, GetAndGiveTexts)
{
    EXPECT_EQ(TextOfItem(20), L"Check");
    EXPECT_TRUE(SetDlgItemTextW(m_host.Window(), 20, L"Gr\u00f6\u00dfe"));
    EXPECT_EQ(TextOfItem(20), L"Gr\u00f6\u00dfe");
}

TEST_F(DialogItems, HaveNoTextIfTheyAreNotThere)
{
    EXPECT_FALSE(SetDlgItemTextW(m_host.Window(), 99, L"x"));
}

TEST_F(DialogItems, GetMessages)
{
    EXPECT_EQ(SendDlgItemMessageW(m_host.Window(), 20, WM_GETTEXTLENGTH, 0, 0), 5);
    EXPECT_EQ(SendDlgItemMessageW(m_host.Window(), 99, WM_GETTEXTLENGTH, 0, 0), 0);
}

TEST_F(DialogItems, TakeIntegers)
{
    EXPECT_TRUE(SetDlgItemInt(m_host.Window(), 10, static_cast<UINT>(-5), TRUE));
    EXPECT_EQ(TextOfItem(10), L"-5");
    EXPECT_TRUE(SetDlgItemInt(m_host.Window(), 10, static_cast<UINT>(-5), FALSE));
    EXPECT_EQ(TextOfItem(10), L"4294967291");
}

TEST_F(DialogItems, ChooseOneRadioButtonOfARangeSilently)
{
    EXPECT_TRUE(CheckRadioButton(m_host.Window(), 31, 34, 32));
    EXPECT_EQ(Marked(), (std::vector<int>{32}));
    EXPECT_TRUE(CheckRadioButton(m_host.Window(), 31, 34, 34));
    EXPECT_EQ(Marked(), (std::vector<int>{34}));
    EXPECT_EQ(m_host.Commands(), Commands{});
}

TEST_F(DialogItems, LeaveRadioButtonsOutsideOfTheRangeAlone)
{
    CheckRadioButton(m_host.Window(), 41, 42, 42);
    CheckRadioButton(m_host.Window(), 31, 34, 31);
    EXPECT_EQ(Marked(), (std::vector<int>{31, 42}));
    CheckRadioButton(m_host.Window(), 32, 34, 99);
    EXPECT_EQ(Marked(), (std::vector<int>{31, 42})) << "one that is not in the range is not marked";
    SendMessageW(m_host.Item(20), BM_SETCHECK, BST_CHECKED, 0);
    CheckRadioButton(m_host.Window(), 10, 42, 33);
    EXPECT_EQ(Marked(), (std::vector<int>{33}));
}

TEST_F(DialogItems, HaveGroupsInWhichOneRadioButtonIsMarked)
{
    m_host.SetFocusTo(20);
    m_host.Commands();
    SendMessageW(m_host.Item(32), BM_CLICK, 0, 0);
    SendMessageW(m_host.Item(41), BM_CLICK, 0, 0);
    EXPECT_EQ(Marked(), (std::vector<int>{32, 41}));
    SendMessageW(m_host.Item(33), BM_CLICK, 0, 0);
    EXPECT_EQ(Marked(), (std::vector<int>{33, 41}));
    EXPECT_EQ(m_host.Commands(), (Commands{"32:0", "41:0", "33:0"}));
}
