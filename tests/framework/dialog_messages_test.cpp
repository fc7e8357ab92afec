// The message maps of a dialog and its controls, and the keys and posted messages that reach a control.
#include "DialogTest.h"

#include "Edit.h"

#include <algorithm>

namespace
{
class DialogMessages : public DialogTest
{
};

/// A list that looks at its own notifications.
class ReflectingList : public CListCtrl
{
public:
    int clicks = 0;

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {OnReflected<&ReflectingList::OnClick>(NM_CLICK)};
        static const CMessageMap map{&CListCtrl::ClassMessageMap(), entries};
        return map;
    }

private:
    void OnClick(NMHDR*, LRESULT* result)
    {
        ++clicks;
        *result = 2;
    }
};

LRESULT NotifyClick(HWND dialog)
{
    NMHDR header{GetDlgItem(dialog, kList), kList, NM_CLICK};
    return SendMessageW(dialog, WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&header));
}

/// An edit field that takes one key for itself.
class KeyEdit : public CEdit
{
public:
    int taken = 0;
    bool PreTranslateMessage(MSG& message) override
    {
        if (message.message != WM_KEYDOWN || message.wParam != VK_RETURN)
            return false;
        ++taken;
        return true;
    }
};

/// Records the messages of a test and answers them itself.
class Recorder : public CWnd
{
public:
    explicit Recorder(std::vector<UINT> messages) : m_wanted(std::move(messages)) {}

    std::vector<UINT> seen;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (std::find(m_wanted.begin(), m_wanted.end(), message) == m_wanted.end())
            return CWnd::WindowProc(message, wParam, lParam);
        seen.push_back(message);
        return 0;
    }

private:
    std::vector<UINT> m_wanted;
};
} // namespace

TEST_F(DialogMessages, HandlersAreFoundByMessageCommandAndNotification)
{
    Run([this](DialogView& view) {
        view.Click(kApply);
        view.DropDown(kCombo);
        EXPECT_EQ(NotifyClick(view.Window()), 1) << "the handler's result";
        EXPECT_EQ(SendMessageW(view.Window(), kAskMessage, 3, 4), 7);
    });
    EXPECT_EQ(dialog.events, (Events{"init", "apply", "drop down", "list click", "cancel"}));
}

TEST_F(DialogMessages, AControlSeesItsOwnNotificationsBeforeTheDialog)
{
    ReflectingList list;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kList, list);
    };
    Run([](DialogView& view) { EXPECT_EQ(NotifyClick(view.Window()), 2); });
    EXPECT_EQ(list.clicks, 1);
    EXPECT_EQ(dialog.events, (Events{"init", "cancel"}));
    EXPECT_EQ(list.m_hWnd, nullptr) << "gone with the dialog";
}

TEST_F(DialogMessages, AControlMayTakeAKeyBeforeTheDialog)
{
    KeyEdit edit;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kNameEdit, edit);
    };
    driver.OnDialog({Types("Return"), Presses(IDCANCEL)});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL) << "Enter did not press the default button";
    EXPECT_EQ(edit.taken, 1);
}

TEST_F(DialogMessages, PostedMessagesThatAreNoInputReachTheirControl)
{
    const std::vector<UINT> messages = {WM_NULL, WM_TIMER, WM_APP};
    Recorder edit(messages);
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kNameEdit, edit);
    };
    Run(Steps{[&](DialogView&) {
                  for (const UINT message : messages)
                      EXPECT_TRUE(edit.PostMessage(message));
              },
              [&](DialogView&) {
                  EXPECT_EQ(edit.seen, messages);
              }});
}

TEST_F(DialogMessages, AKeyForAWindowThatTheDialogOwnsIsNotTheDialogs)
{
    Recorder popup({WM_KEYDOWN, WM_CHAR});
    Run(Steps{[&](DialogView& view) {
                  popup.SubclassWindow(CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10,
                                                       view.Window(), nullptr, nullptr, nullptr));
                  EXPECT_TRUE(popup.PostMessage(WM_KEYDOWN, VK_RETURN));
              },
              [&](DialogView&) {
                  ASSERT_FALSE(popup.seen.empty());
                  EXPECT_EQ(popup.seen.front(), static_cast<UINT>(WM_KEYDOWN));
              }});
    EXPECT_EQ(dialog.events, (Events{"init", "cancel"})) << "Enter pressed no button";
}
