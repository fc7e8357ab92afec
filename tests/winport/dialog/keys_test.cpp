// The keys that move between the controls of a dialog and press its buttons.
#include "DialogKeysFixture.h"

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

TEST_F(DialogKeys, TabContinuesFromAControlThatIsNoStop)
{
    SetFocus(m_host.Item(kNoStop));
    m_host.Press(VK_TAB);
    EXPECT_EQ(m_host.Focus(), IDOK);
    SetFocus(m_host.Item(kNoStop));
    m_host.PressWithShift(VK_TAB);
    EXPECT_EQ(m_host.Focus(), kSecondPush);
}

TEST_F(DialogKeys, TabReachesControlsThatTheDialogIsTooSmallFor)
{
    RECT place{};
    GetWindowRect(m_host.Window(), &place);
    RECT before{};
    GetWindowRect(m_host.Item(IDCANCEL), &before);
    MoveWindow(m_host.Window(), place.left, place.top, place.right - place.left, 60, TRUE);
    RECT after{};
    GetWindowRect(m_host.Item(IDCANCEL), &after);
    EXPECT_EQ(after.top, before.top);
    EXPECT_TRUE(IsWindowVisible(m_host.Item(IDCANCEL)));
    SetFocus(m_host.Item(IDOK));
    m_host.Press(VK_TAB);
    EXPECT_EQ(m_host.Focus(), IDCANCEL);
}

TEST_F(DialogKeys, TabContinuesFromAControlThatWasHiddenAndDisabled)
{
    m_host.SetFocusTo(kFirstPush);
    ShowWindow(m_host.Item(kFirstPush), SW_HIDE);
    EnableWindow(m_host.Item(kFirstPush), FALSE);
    EXPECT_NE(m_host.Focus(), kFirstPush);
    m_host.Press(VK_TAB);
    EXPECT_GT(m_host.Focus(), 0);
}

TEST_F(DialogKeys, RadioButtonsThatAreShownAgainKeepTheirMark)
{
    CheckRadioButton(m_host.Window(), kFirstRadio, kThirdRadio, kSecondRadio);
    for (const bool shown : {false, true})
        for (const int id : {kFirstRadio, kSecondRadio, kThirdRadio})
        {
            ShowWindow(m_host.Item(id), shown ? SW_SHOW : SW_HIDE);
            EnableWindow(m_host.Item(id), shown);
            EXPECT_EQ(IsChecked(id), id == kSecondRadio) << id;
        }
    SetFocus(m_host.Item(kCheck));
    m_host.Press(VK_TAB);
    EXPECT_EQ(m_host.Focus(), kSecondRadio);
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
    EXPECT_EQ(
        CommandsOf([&] {
            EXPECT_EQ(Walk(3, [&] { m_host.Press(VK_DOWN); }), (Ids{kSecondRadio, kThirdRadio, kFirstRadio}));
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
    EXPECT_EQ(CommandsOf([&] {
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

TEST_F(DialogKeys, TheDefaultLookDoesNotFollowAFocusSetByTheProgram)
{
    SetFocus(m_host.Item(kSecondPush));
    EXPECT_EQ(Defaults(), Ids{IDOK});
    EXPECT_EQ(CommandsOf([&] { m_host.Press(VK_RETURN); }), Commands{"1:0"});
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
    EXPECT_EQ(CommandsOf([&] {
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
        const auto destroy = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
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
