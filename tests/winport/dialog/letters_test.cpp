// The letters that are marked in the texts of a dialog's controls.
#include "DialogKeysFixture.h"

namespace
{
class DialogLetters : public DialogKeys
{
};
} // namespace

TEST_F(DialogLetters, WithAltReachTheirControls)
{
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('C'); }), Commands{"20:0"});
    EXPECT_EQ(m_host.Focus(), kCheck);
    EXPECT_TRUE(IsChecked(kCheck));
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('T'); }), Commands{"32:0"});
    EXPECT_EQ(m_host.Focus(), kSecondRadio);
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('P'); }), Commands{"51:0"});
    EXPECT_EQ(m_host.Focus(), kFirstPush);
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('L'); }), Commands{});
    EXPECT_EQ(m_host.Focus(), kLabelled);
}

TEST_F(DialogLetters, WithoutAltReachTheirControlsFromAButton)
{
    SetFocus(m_host.Item(kFirstPush));
    EXPECT_EQ(CommandsOf([&] { m_host.Press('C'); }), Commands{"20:0"});
    EXPECT_EQ(m_host.Focus(), kCheck);
    EXPECT_EQ(CommandsOf([&] { m_host.Press('L'); }), Commands{});
    EXPECT_EQ(m_host.Focus(), kLabelled);
}

TEST_F(DialogLetters, AreTypedIntoAnEditField)
{
    SendMessageW(m_host.Item(kEdit), EM_SETSEL, 4, 4);
    EXPECT_EQ(CommandsOf([&] { m_host.Press('C'); }), Commands{});
    EXPECT_EQ(m_host.Focus(), kEdit);
    wchar_t text[20];
    GetWindowTextW(m_host.Item(kEdit), text, 20);
    EXPECT_STREQ(text, L"textc");
}

TEST_F(DialogLetters, DoNotReachWhatCannotBeUsed)
{
    SetFocus(m_host.Item(kFirstPush));
    for (const int letter : {'I', 'D', 'X'})
    {
        EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt(letter); }), Commands{}) << letter;
        EXPECT_EQ(m_host.Focus(), kFirstPush) << letter;
    }
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('N'); }), Commands{"62:0"}) << "no tab stop is needed";
}

TEST_F(DialogLetters, OfALabelGoToTheNextControlThatCanBeReached)
{
    DialogTemplate description(L"Labels", kCommonDialog, 0, 0, 100, 100);
    description.Add(0x80, 10, L"First", WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x82, 20, L"&Disabled", 0, 0, 12, 50, 12)
        .Add(0x81, 21, L"", WS_TABSTOP | WS_DISABLED, 0, 24, 50, 12)
        .Add(0x81, 22, L"", WS_TABSTOP, 0, 36, 50, 12)
        .Add(0x82, 30, L"&Used", 0, 0, 48, 50, 12)
        .Add(0x82, 31, L"Second line", 0, 0, 60, 50, 12)
        .Add(0x81, 32, L"", WS_TABSTOP, 0, 72, 50, 12)
        .Add(0x82, 40, L"&No stop", 0, 0, 48, 50, 12)
        .Add(0x81, 41, L"", 0, 0, 60, 50, 12)
        .Add(0x81, 42, L"", WS_TABSTOP, 0, 72, 50, 12);
    DialogHost host(description);
    host.Show();
    host.SetFocusTo(10);
    host.PressWithAlt('D');
    EXPECT_EQ(host.Focus(), 22);
    host.PressWithAlt('U');
    EXPECT_EQ(host.Focus(), 32);
    host.PressWithAlt('N');
    EXPECT_EQ(host.Focus(), 42);
}

TEST_F(DialogLetters, ALetterOfTwoButtonsPressesTheNextOne)
{
    SetDlgItemTextW(m_host.Window(), kFirstPush, L"&Same");
    SetFocus(m_host.Item(kEdit));
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('S'); }), Commands{"51:0"});
    EXPECT_EQ(m_host.Focus(), kFirstPush);
}

TEST_F(DialogLetters, AnAmpersandOfItsOwnIsNoLetter)
{
    SetDlgItemTextW(m_host.Window(), kFirstPush, L"This && &That");
    SetFocus(m_host.Item(kLabelled));
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('T'); }), Commands{"51:0"});
    SetDlgItemTextW(m_host.Window(), kFirstPush, L"This &&that");
    SetFocus(m_host.Item(kLabelled));
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('T'); }), Commands{"32:0"});
}

TEST_F(DialogLetters, AGroupBoxLeadsIntoItself)
{
    DialogTemplate description(L"Group", kCommonDialog, 0, 0, 150, 150);
    description.Add(0x80, 70, L"Push", WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, 71, L"&Group", BS_GROUPBOX, 0, 12, 50, 50)
        .Add(0x80, 72, L"Inside", BS_AUTOCHECKBOX | WS_TABSTOP, 0, 24, 50, 12);
    DialogHost host(std::move(description));
    host.Show();
    EXPECT_EQ(host.Focus(), 70);
    host.PressWithAlt('G');
    EXPECT_EQ(host.Focus(), 72);
    EXPECT_EQ(host.Commands(), Commands{});
}
