// The keys that move between the controls of a dialog and press its buttons.
#include "DialogHost.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
using Commands = std::vector<std::string>;
using Ids = std::vector<int>;

constexpr int kEdit = 10;
constexpr int kCheck = 20;
constexpr int kFirstRadio = 31;
constexpr int kSecondRadio = 32;
constexpr int kThirdRadio = 33;
constexpr int kLabel = 40;
constexpr int kLabelled = 41;
constexpr int kFirstPush = 51;
constexpr int kSecondPush = 52;
constexpr int kHidden = 60;
constexpr int kDisabled = 61;
constexpr int kNoStop = 62;

DialogTemplate Description()
{
    DialogTemplate description(L"Keys", kCommonDialog, 0, 0, 150, 150);
    description.Add(0x81, kEdit, L"text", ES_AUTOHSCROLL | WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, kCheck, L"&Check", BS_AUTOCHECKBOX | WS_TABSTOP, 0, 12, 50, 12)
        .Add(0x80, kFirstRadio, L"&One", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 0, 24, 50, 12)
        .Add(0x80, kSecondRadio, L"&Two", BS_AUTORADIOBUTTON, 0, 36, 50, 12)
        .Add(0x80, kThirdRadio, L"T&hree", BS_AUTORADIOBUTTON, 0, 48, 50, 12)
        .Add(0x82, kLabel, L"&Label", WS_GROUP, 0, 60, 50, 12)
        .Add(0x81, kLabelled, L"", ES_AUTOHSCROLL | WS_TABSTOP, 0, 72, 50, 12)
        .Add(0x80, kFirstPush, L"&Push", WS_GROUP | WS_TABSTOP, 60, 0, 50, 12)
        .Add(0x80, kSecondPush, L"&Same", WS_TABSTOP, 60, 12, 50, 12)
        .AddHidden(0x80, kHidden, L"H&idden", WS_TABSTOP, 60, 24, 50, 12)
        .Add(0x80, kDisabled, L"&Disabled", WS_TABSTOP | WS_DISABLED, 60, 36, 50, 12)
        .Add(0x80, kNoStop, L"&No stop", 0, 60, 48, 50, 12)
        .Add(0x80, IDOK, L"OK", BS_DEFPUSHBUTTON | WS_GROUP | WS_TABSTOP, 60, 60, 50, 12)
        .Add(0x80, IDCANCEL, L"Cancel", WS_TABSTOP, 60, 72, 50, 12);
    return description;
}

class DialogKeys : public testing::Test
{
protected:
    DialogKeys() { m_host.Show(); }

    // Where the focus goes with each press.
    Ids Walk(int presses, const std::function<void()>& press) const
    {
        Ids ids;
        for (int index = 0; index < presses; ++index)
        {
            press();
            ids.push_back(m_host.Focus());
        }
        return ids;
    }

    Commands CommandsOf(const std::function<void()>& act)
    {
        m_host.Commands();
        act();
        Commands commands = m_host.Commands();
        // What edit fields tell is not of interest here.
        std::erase_if(commands, [](const std::string& command)
                      { return command.rfind("10:", 0) == 0 || command.rfind("41:", 0) == 0; });
        return commands;
    }

    DWORD KindOf(int id) const
    {
        return static_cast<DWORD>(GetWindowLongW(m_host.Item(id), GWL_STYLE)) & BS_TYPEMASK;
    }

    // The buttons that look like the default.
    Ids Defaults() const
    {
        Ids ids;
        for (const int id : {kFirstPush, kSecondPush, kDisabled, kNoStop, IDOK, IDCANCEL})
            if (KindOf(id) == BS_DEFPUSHBUTTON)
                ids.push_back(id);
        return ids;
    }

    bool IsChecked(int id) const { return IsDlgButtonChecked(m_host.Window(), id) == BST_CHECKED; }

    DialogHost m_host{Description()};
};
} // namespace

TEST_F(DialogKeys, TabGoesThroughTheControls)
{
    EXPECT_EQ(m_host.Focus(), kEdit);
    EXPECT_EQ(Walk(8, [&] { m_host.Press(VK_TAB); }),
              (Ids{kCheck, kFirstRadio, kLabelled, kFirstPush, kSecondPush, IDOK, IDCANCEL, kEdit}));
    EXPECT_EQ(Walk(8, [&] { m_host.PressWithShift(VK_TAB); }),
              (Ids{IDCANCEL, IDOK, kSecondPush, kFirstPush, kLabelled, kFirstRadio, kCheck, kEdit}));
}

TEST_F(DialogKeys, TabReachesTheMarkedRadioButtonOfAGroup)
{
    SendMessageW(m_host.Item(kThirdRadio), BM_CLICK, 0, 0);
    SetFocus(m_host.Item(kCheck));
    m_host.Press(VK_TAB);
    EXPECT_EQ(m_host.Focus(), kThirdRadio);
}

TEST_F(DialogKeys, TabSelectsTheTextOfAnEditField)
{
    SetFocus(m_host.Item(kCheck));
    SendMessageW(m_host.Item(kEdit), EM_SETSEL, 2, 2);
    m_host.PressWithShift(VK_TAB);
    DWORD start = 9;
    DWORD end = 9;
    SendMessageW(m_host.Item(kEdit), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0u);
    EXPECT_EQ(end, 4u);
}

TEST_F(DialogKeys, TabGoesOnFromAControlThatIsNoStop)
{
    SetFocus(m_host.Item(kNoStop));
    m_host.Press(VK_TAB);
    EXPECT_EQ(m_host.Focus(), IDOK);
    SetFocus(m_host.Item(kNoStop));
    m_host.PressWithShift(VK_TAB);
    EXPECT_EQ(m_host.Focus(), kSecondPush);
}

TEST_F(DialogKeys, TabGoesFromTheDialogToTheFirstControl)
{
    SetFocus(nullptr);
    m_host.Press(VK_TAB);
    EXPECT_EQ(m_host.Focus(), kEdit);
}

TEST_F(DialogKeys, ArrowsMarkTheRadioButtonsOfAGroup)
{
    SetFocus(m_host.Item(kFirstRadio));
    EXPECT_EQ(CommandsOf(
                  [&] {
                      EXPECT_EQ(Walk(3, [&] { m_host.Press(VK_DOWN); }),
                                (Ids{kSecondRadio, kThirdRadio, kFirstRadio}));
                  }),
              (Commands{"32:0", "33:0", "31:0"}));
    EXPECT_TRUE(IsChecked(kFirstRadio));
    EXPECT_EQ(Walk(2, [&] { m_host.Press(VK_UP); }), (Ids{kThirdRadio, kSecondRadio}));
    EXPECT_TRUE(IsChecked(kSecondRadio));
    EXPECT_FALSE(IsChecked(kThirdRadio));
    EXPECT_EQ(Walk(2, [&] { m_host.Press(VK_RIGHT); }), (Ids{kThirdRadio, kFirstRadio}));
    EXPECT_EQ(Walk(1, [&] { m_host.Press(VK_LEFT); }), (Ids{kThirdRadio}));
}

TEST_F(DialogKeys, ArrowsSkipWhatCannotBeUsed)
{
    EnableWindow(m_host.Item(kSecondRadio), FALSE);
    SetFocus(m_host.Item(kFirstRadio));
    m_host.Press(VK_DOWN);
    EXPECT_EQ(m_host.Focus(), kThirdRadio);
}

TEST_F(DialogKeys, ArrowsGoThroughPushButtonsWithoutPressingThem)
{
    SetFocus(m_host.Item(kFirstPush));
    EXPECT_EQ(CommandsOf(
                  [&]
                  {
                      EXPECT_EQ(Walk(4, [&] { m_host.Press(VK_DOWN); }),
                                (Ids{kSecondPush, kNoStop, kFirstPush, kSecondPush}));
                  }),
              Commands{});
}

TEST_F(DialogKeys, ArrowsStayInAnEditField)
{
    SendMessageW(m_host.Item(kEdit), EM_SETSEL, 0, 0);
    m_host.Press(VK_RIGHT);
    DWORD start = 9;
    SendMessageW(m_host.Item(kEdit), EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    EXPECT_EQ(start, 1u);
    EXPECT_EQ(m_host.Focus(), kEdit);
}

TEST_F(DialogKeys, EnterPressesTheDefaultButton)
{
    for (const int id : {kEdit, kCheck, kFirstRadio})
    {
        SetFocus(m_host.Item(id));
        EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_RETURN); }), Commands{"1:0"}) << id;
        EXPECT_EQ(m_host.Focus(), id);
    }
    EXPECT_FALSE(IsChecked(kCheck));
}

TEST_F(DialogKeys, EnterPressesThePushButtonThatHasTheFocus)
{
    SetFocus(m_host.Item(kCheck));
    m_host.PressWithShift(VK_TAB);
    SendMessageW(m_host.Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_host.Item(kSecondPush)), TRUE);
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_RETURN); }), Commands{"52:0"});
}

TEST_F(DialogKeys, EnterDoesNothingWhenTheDefaultButtonIsDisabled)
{
    EnableWindow(m_host.Item(IDOK), FALSE);
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_RETURN); }), Commands{});
}

TEST_F(DialogKeys, EnterMeansOkWithoutADefaultButton)
{
    DialogTemplate description(L"None", kCommonDialog, 0, 0, 100, 100);
    description.Add(0x81, kEdit, L"", ES_AUTOHSCROLL | WS_TABSTOP, 0, 0, 50, 12);
    DialogHost host(std::move(description));
    host.Show();
    host.Commands();
    host.Press(VK_RETURN);
    EXPECT_EQ(host.Commands(), Commands{"1:0"});
}

TEST_F(DialogKeys, EnterFollowsTheDefaultButtonThatWasSet)
{
    SendMessageW(m_host.Window(), DM_SETDEFID, kFirstPush, 0);
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_RETURN); }), Commands{"51:0"});
}

TEST_F(DialogKeys, EscapeMeansCancel)
{
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_ESCAPE); }), Commands{"2:0"});
    SetFocus(m_host.Item(kFirstPush));
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_ESCAPE); }), Commands{"2:0"});
}

TEST_F(DialogKeys, EscapeMeansCancelWithoutTheButton)
{
    DestroyWindow(m_host.Item(IDCANCEL));
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_ESCAPE); }), Commands{"2:0"});
}

TEST_F(DialogKeys, EscapeMeansCancelWhereTheButtonIsHidden)
{
    ShowWindow(m_host.Item(IDCANCEL), SW_HIDE);
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_ESCAPE); }), Commands{"2:0"});
}

TEST_F(DialogKeys, SpacePressesWhatHasTheFocus)
{
    SetFocus(m_host.Item(kCheck));
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_SPACE); }), Commands{"20:0"});
    EXPECT_TRUE(IsChecked(kCheck));
    SetFocus(m_host.Item(kFirstPush));
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_SPACE); }), Commands{"51:0"});
}

TEST_F(DialogKeys, LettersWithAltReachTheirControls)
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

TEST_F(DialogKeys, LettersWithoutAltReachTheirControlsFromAButton)
{
    SetFocus(m_host.Item(kFirstPush));
    EXPECT_EQ(CommandsOf([&] { m_host.Press('C'); }), Commands{"20:0"});
    EXPECT_EQ(m_host.Focus(), kCheck);
    EXPECT_EQ(CommandsOf([&] { m_host.Press('L'); }), Commands{});
    EXPECT_EQ(m_host.Focus(), kLabelled);
}

TEST_F(DialogKeys, LettersAreTypedIntoAnEditField)
{
    SendMessageW(m_host.Item(kEdit), EM_SETSEL, 4, 4);
    EXPECT_EQ(CommandsOf([&] { m_host.Press('C'); }), Commands{});
    EXPECT_EQ(m_host.Focus(), kEdit);
    wchar_t text[20];
    GetDlgItemTextW(m_host.Window(), kEdit, text, 20);
    EXPECT_STREQ(text, L"textc");
}

TEST_F(DialogKeys, LettersDoNotReachWhatCannotBeUsed)
{
    SetFocus(m_host.Item(kFirstPush));
    for (const int letter : {'I', 'D', 'X'})
    {
        EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt(letter); }), Commands{}) << letter;
        EXPECT_EQ(m_host.Focus(), kFirstPush) << letter;
    }
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('N'); }), Commands{"62:0"}) << "no tab stop is needed";
}

TEST(DialogLetters, OfALabelGoToTheNextControlThatCanBeReached)
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

TEST(DialogBoxes, KeepEnterAndEscapeWhileTheyAreOpen)
{
    for (const DWORD kind : {CBS_DROPDOWNLIST, CBS_DROPDOWN})
    {
        DialogTemplate description(L"Boxes", kCommonDialog, 0, 0, 100, 100);
        description.Add(0x85, 10, L"", kind | WS_TABSTOP, 0, 0, 50, 60)
            .Add(0x80, IDOK, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 0, 20, 50, 12)
            .Add(0x80, IDCANCEL, L"Cancel", WS_TABSTOP, 0, 40, 50, 12);
        DialogHost host(description);
        host.Show();
        host.SetFocusTo(10);
        for (const int key : {VK_RETURN, VK_ESCAPE})
        {
            SendMessageW(host.Item(10), CB_SHOWDROPDOWN, TRUE, 0);
            host.Commands();
            host.Press(key);
            EXPECT_FALSE(SendMessageW(host.Item(10), CB_GETDROPPEDSTATE, 0, 0)) << key;
            for (const std::string& command : host.Commands())
                EXPECT_EQ(command.rfind("10:", 0), 0u) << command << " by " << key;
            host.Press(key);
            EXPECT_EQ(host.Commands(), Commands{key == VK_RETURN ? "1:0" : "2:0"});
        }
    }
}

TEST_F(DialogKeys, TheDefaultLookFollowsTheFocusAmongPushButtons)
{
    EXPECT_EQ(Defaults(), Ids{IDOK});
    SetFocus(m_host.Item(kLabelled));
    m_host.Press(VK_TAB);
    EXPECT_EQ(m_host.Focus(), kFirstPush);
    EXPECT_EQ(Defaults(), Ids{kFirstPush});
    m_host.Press(VK_DOWN);
    EXPECT_EQ(Defaults(), Ids{kSecondPush});
    EXPECT_EQ(SendMessageW(m_host.Window(), DM_GETDEFID, 0, 0), MAKELONG(IDOK, DC_HASDEFID));
    m_host.PressWithShift(VK_TAB);
    m_host.PressWithShift(VK_TAB);
    EXPECT_EQ(m_host.Focus(), kLabelled);
    EXPECT_EQ(Defaults(), Ids{IDOK});
}

TEST_F(DialogKeys, TheDefaultLookDoesNotFollowTheFocusThatAProgramGives)
{
    SetFocus(m_host.Item(kSecondPush));
    EXPECT_EQ(Defaults(), Ids{IDOK});
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_RETURN); }), Commands{"1:0"});
}

TEST_F(DialogKeys, ALetterOfTwoButtonsPressesTheNextOne)
{
    SetDlgItemTextW(m_host.Window(), kFirstPush, L"&Same");
    SetFocus(m_host.Item(kEdit));
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('S'); }), Commands{"51:0"});
    EXPECT_EQ(m_host.Focus(), kFirstPush);
}

TEST_F(DialogKeys, AnAmpersandOfItsOwnIsNoLetter)
{
    SetDlgItemTextW(m_host.Window(), kFirstPush, L"This && &That");
    SetFocus(m_host.Item(kLabelled));
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('T'); }), Commands{"51:0"});
    SetDlgItemTextW(m_host.Window(), kFirstPush, L"This &&that");
    SetFocus(m_host.Item(kLabelled));
    EXPECT_EQ(CommandsOf([&] { m_host.PressWithAlt('T'); }), Commands{"32:0"});
}

TEST_F(DialogKeys, AGroupBoxLeadsIntoItself)
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

TEST_F(DialogKeys, AreForTheDialogOnly)
{
    DialogHost other(Description());
    MSG message{other.Item(kCheck), WM_KEYDOWN, VK_TAB, 1};
    EXPECT_FALSE(IsDialogMessageW(m_host.Window(), &message));
    message.hwnd = nullptr;
    EXPECT_FALSE(IsDialogMessageW(m_host.Window(), &message));
    message.hwnd = m_host.Window();
    EXPECT_TRUE(IsDialogMessageW(m_host.Window(), &message));
    message.hwnd = m_host.Item(kCheck);
    EXPECT_TRUE(IsDialogMessageW(m_host.Window(), &message));
    EXPECT_FALSE(IsDialogMessageW(nullptr, &message));
}

TEST_F(DialogKeys, EveryOtherMessageIsDispatched)
{
    MSG message{m_host.Item(kCheck), BM_SETCHECK, BST_CHECKED, 0};
    EXPECT_TRUE(IsDialogMessageW(m_host.Window(), &message));
    EXPECT_TRUE(IsChecked(kCheck));
    EXPECT_EQ(CommandsOf(
                  [&]
                  {
                      MSG down{m_host.Item(kFirstPush), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2)};
                      EXPECT_TRUE(IsDialogMessageW(m_host.Window(), &down));
                      MSG up{m_host.Item(kFirstPush), WM_LBUTTONUP, 0, MAKELPARAM(2, 2)};
                      EXPECT_TRUE(IsDialogMessageW(m_host.Window(), &up));
                  }),
              Commands{"51:0"});
}

TEST_F(DialogKeys, AHandlerMayDestroyTheDialog)
{
    for (const int key : {VK_RETURN, VK_ESCAPE, VK_SPACE})
    {
        const auto destroy = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR
        {
            if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED)
                DestroyWindow(dialog);
            return message == WM_INITDIALOG;
        };
        DialogHost host(Description(), destroy);
        host.Show();
        SetFocus(host.Item(kFirstPush));
        host.Press(key);
        EXPECT_EQ(host.Window(), nullptr);
    }
}
