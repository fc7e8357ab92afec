// What a dialog does with its messages beside its own procedure.
#include "DialogHost.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace
{
using Commands = std::vector<std::string>;

constexpr int kEdit = 11;
constexpr int kPush = 12;
constexpr int kOther = 13;

DialogTemplate Description()
{
    DialogTemplate description(L"Procedure", kCommonDialog, 0, 0, 150, 150);
    description.Add(0x81, kEdit, L"text", ES_AUTOHSCROLL | WS_TABSTOP, 0, 12, 50, 12)
        .Add(0x80, kPush, L"Push", WS_TABSTOP, 0, 24, 50, 12)
        .Add(0x80, kOther, L"Other", WS_TABSTOP, 0, 36, 50, 12)
        .Add(0x80, IDOK, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 0, 48, 50, 12)
        .Add(0x80, IDCANCEL, L"Cancel", WS_TABSTOP, 0, 60, 50, 12);
    return description;
}

class DialogProcedure : public testing::Test
{
protected:
    DialogProcedure() { m_host.Show(); }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageW(m_host.Window(), message, wParam, lParam);
    }

    DWORD KindOf(int id) const
    {
        return static_cast<DWORD>(GetWindowLongW(m_host.Item(id), GWL_STYLE)) & BS_TYPEMASK;
    }

    INT_PTR OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const INT_PTR handled = m_handler ? m_handler(dialog, message, wParam, lParam) : FALSE;
        return message == WM_INITDIALOG || handled;
    }

    DialogHost::Handler m_handler;
    DialogHost m_host{Description(), [this](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
                          return OnMessage(dialog, message, wParam, lParam);
                      }};
};

HWND OtherWindow()
{
    return CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                           nullptr);
}
} // namespace

TEST_F(DialogProcedure, KnowsTheDefaultButton)
{
    EXPECT_EQ(Send(DM_GETDEFID), MAKELONG(IDOK, DC_HASDEFID));
    EXPECT_EQ(Send(DM_SETDEFID, kPush), TRUE);
    EXPECT_EQ(Send(DM_GETDEFID), MAKELONG(kPush, DC_HASDEFID));
    EXPECT_EQ(KindOf(kPush), static_cast<DWORD>(BS_DEFPUSHBUTTON));
    EXPECT_EQ(KindOf(IDOK), static_cast<DWORD>(BS_PUSHBUTTON));
}

TEST_F(DialogProcedure, TurnsTheCloseBoxIntoCancel)
{
    m_host.Commands();
    Send(WM_SYSCOMMAND, SC_CLOSE);
    EXPECT_EQ(m_host.Commands(), Commands{}) << "it is posted";
    m_host.Pump();
    EXPECT_EQ(m_host.Commands(), Commands{"2:0"});
    Send(WM_CLOSE);
    m_host.Pump();
    EXPECT_EQ(m_host.Commands(), Commands{"2:0"});
    EXPECT_TRUE(IsWindow(m_host.Window()));
}

TEST_F(DialogProcedure, TurnsTheCloseBoxIntoCancelWithoutTheButton)
{
    DestroyWindow(m_host.Item(IDCANCEL));
    m_host.Commands();
    Send(WM_CLOSE);
    m_host.Pump();
    EXPECT_EQ(m_host.Commands(), Commands{"2:0"});
}

TEST_F(DialogProcedure, TurnsTheCloseBoxIntoCancelWhereTheButtonIsDisabled)
{
    EnableWindow(m_host.Item(IDCANCEL), FALSE);
    m_host.Commands();
    Send(WM_CLOSE);
    m_host.Pump();
    EXPECT_EQ(m_host.Commands(), Commands{"2:0"});
}

TEST_F(DialogProcedure, LeavesWhatIsHandledAlone)
{
    m_handler = [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        return message == WM_CLOSE;
    };
    m_host.Commands();
    Send(WM_CLOSE);
    m_host.Pump();
    EXPECT_EQ(m_host.Commands(), Commands{});
}

TEST_F(DialogProcedure, AnswersWithWhatTheHandlerLeft)
{
    m_handler = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_NOTIFY || message == WM_APP)
            SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 1234);
        return message == WM_NOTIFY;
    };
    NMHDR header{};
    EXPECT_EQ(Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 1234);
    EXPECT_EQ(Send(WM_APP), 0) << "which was not handled";
}

TEST_F(DialogProcedure, AnswersHandledMessagesWithZeroIfNothingWasLeft)
{
    m_handler = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_NOTIFY)
            SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 5);
        return message == WM_APP ? 77 : 0;
    };
    EXPECT_EQ(Send(WM_APP), 0);
    NMHDR header{};
    Send(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
    EXPECT_EQ(Send(WM_APP), 0) << "what an earlier message left does not count";
}

TEST_F(DialogProcedure, AnswersSomeMessagesDirectly)
{
    m_handler = [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        return message == WM_CTLCOLORSTATIC ? 4321 : 0;
    };
    EXPECT_EQ(Send(WM_CTLCOLORSTATIC), 1);
    EXPECT_EQ(Send(WM_INITDIALOG, 0, reinterpret_cast<LPARAM>(&m_host)), 1);
}

TEST_F(DialogProcedure, GivesTheFocusToTheNextControl)
{
    EXPECT_EQ(m_host.Focus(), kEdit);
    Send(WM_NEXTDLGCTL);
    EXPECT_EQ(m_host.Focus(), kPush);
    Send(WM_NEXTDLGCTL);
    EXPECT_EQ(m_host.Focus(), kOther);
    Send(WM_NEXTDLGCTL, TRUE);
    EXPECT_EQ(m_host.Focus(), kPush);
    EXPECT_EQ(KindOf(kPush), static_cast<DWORD>(BS_DEFPUSHBUTTON));
    Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_host.Item(kEdit)), TRUE);
    EXPECT_EQ(m_host.Focus(), kEdit);
    EXPECT_EQ(KindOf(kPush), static_cast<DWORD>(BS_PUSHBUTTON));
    EXPECT_EQ(KindOf(IDOK), static_cast<DWORD>(BS_DEFPUSHBUTTON));
}

TEST_F(DialogProcedure, BringsTheFocusBackWhenItIsActiveAgain)
{
    SetFocus(m_host.Item(kPush));
    const HWND other = OtherWindow();
    SetActiveWindow(other);
    EXPECT_EQ(GetActiveWindow(), other);
    EXPECT_NE(m_host.Focus(), kPush);
    SetActiveWindow(m_host.Window());
    EXPECT_EQ(m_host.Focus(), kPush);
    DestroyWindow(other);
}

TEST_F(DialogProcedure, RestoresTheFocusWhenADialogInFrontCloses)
{
    SetFocus(m_host.Item(kOther));
    {
        const DialogHost inner(Description(), {}, m_host.Window());
        inner.Show();
        EnableWindow(m_host.Window(), FALSE);
        EXPECT_EQ(GetParent(GetFocus()), inner.Window());
        EnableWindow(m_host.Window(), TRUE);
    }
    EXPECT_EQ(GetActiveWindow(), m_host.Window());
    EXPECT_EQ(m_host.Focus(), kOther);
}

TEST_F(DialogProcedure, FocusesTheFirstControlIfTheOldOneIsDestroyed)
{
    SetFocus(m_host.Item(kOther));
    const HWND other = OtherWindow();
    SetActiveWindow(other);
    DestroyWindow(m_host.Item(kOther));
    SetActiveWindow(m_host.Window());
    EXPECT_EQ(m_host.Focus(), kEdit);
    DestroyWindow(other);
}

TEST_F(DialogProcedure, HandsItsOwnFocusToAControl)
{
    SetFocus(m_host.Window());
    EXPECT_EQ(m_host.Focus(), kEdit);
}

TEST_F(DialogProcedure, KeepsTheFocusWhenItIsHiddenAndShownAgain)
{
    SetFocus(m_host.Item(kPush));
    ShowWindow(m_host.Window(), SW_HIDE);
    m_host.Show();
    EXPECT_EQ(m_host.Focus(), kPush);
}

TEST_F(DialogProcedure, StaysDestroyed)
{
    m_handler = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_APP)
            DestroyWindow(dialog);
        return message == WM_APP;
    };
    const HWND dialog = m_host.Window();
    SendMessageW(dialog, WM_APP, 0, 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(m_host.Window(), nullptr);
}

TEST_F(DialogProcedure, DoesNothingMoreWithAMessageThatDestroyedTheDialog)
{
    for (const UINT ending : {WM_ACTIVATE, WM_SETFOCUS, WM_GETFONT, DM_GETDEFID})
    {
        bool open = false;
        DialogHost host(DialogTemplate(L"Short", kCommonDialog, 0, 0, 50, 50),
                        [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
                            if (open && message == ending)
                                DestroyWindow(dialog);
                            return message == WM_INITDIALOG;
                        });
        open = true;
        const HWND dialog = host.Window();
        SendMessageW(dialog, ending, ending == WM_ACTIVATE ? WA_ACTIVE : 0, 0);
        EXPECT_FALSE(IsWindow(dialog)) << ending;
    }
}

TEST_F(DialogProcedure, IsCalledUntilTheVeryEnd)
{
    std::vector<UINT> end;
    m_handler = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_DESTROY || message == WM_NCDESTROY)
            end.push_back(message);
        return FALSE;
    };
    DestroyWindow(m_host.Window());
    EXPECT_EQ(end, (std::vector<UINT>{WM_DESTROY, WM_NCDESTROY}));
}
