// Message maps, data exchange and the control classes, in a dialog.
#include "TestDialog.h"

#include "Button.h"
#include "DateTimeCtrl.h"
#include "DialogDriver.h"
#include "Edit.h"
#include "HeaderCtrl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

namespace
{
using Events = std::vector<std::string>;

class DialogData : public testing::Test
{
protected:
    /// Runs the dialog with these steps and then cancels it.
    void Run(Steps steps)
    {
        steps.push_back(Presses(IDCANCEL));
        driver.OnDialog(std::move(steps));
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
    void Run(DialogStep step) { Run(Steps{std::move(step)}); }

    const DialogModule module;
    const CUiState state;
    DialogDriver driver;
    TestDialog dialog;
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

TEST_F(DialogData, HandlersAreFoundByMessageCommandAndNotification)
{
    Run([this](DialogView& view) {
        view.Click(kApply);
        view.DropDown(kCombo);
        EXPECT_EQ(NotifyClick(view.Window()), 1) << "the handler's result";
        EXPECT_EQ(SendMessageW(view.Window(), kAskMessage, 3, 4), 7);
    });
    EXPECT_EQ(dialog.events, (Events{"init", "apply", "drop down", "list click", "cancel"}));
}

TEST_F(DialogData, AControlSeesItsOwnNotificationsBeforeTheDialog)
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

TEST_F(DialogData, AControlMayTakeAKeyBeforeTheDialog)
{
    KeyEdit edit;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kNameEdit, edit);
    };
    driver.OnDialog({Types("Return"), Presses(IDCANCEL)});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL) << "Enter did not press the default button";
    EXPECT_EQ(edit.taken, 1);
}

TEST_F(DialogData, PostedMessagesThatAreNoInputReachTheirControl)
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

TEST_F(DialogData, AKeyForAWindowThatTheDialogOwnsIsNotTheDialogs)
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

TEST_F(DialogData, ValuesGoToTheControlsWhenTheDialogOpens)
{
    std::wstring name = L"Welding";
    int number = -12;
    int on = 1;
    int choice = 1;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, kNameEdit, name);
        DDX_Text(pDX, kNumberEdit, number);
        DDX_Check(pDX, kSwitch, on);
        DDX_Radio(pDX, kAfter, choice);
    };
    Run({Sees(Shows(kNameEdit, L"Welding")), Sees(Shows(kNumberEdit, L"-12")), Sees(Checked(kSwitch)),
         Sees(Unchecked(kAfter)), Sees(Checked(kBefore))});
}

TEST_F(DialogData, ValuesAreReadByTheDefaultButton)
{
    std::wstring name;
    int number = 0;
    int on = 0;
    int choice = -1;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, kNameEdit, name);
        DDX_Text(pDX, kNumberEdit, number);
        DDX_Check(pDX, kSwitch, on);
        DDX_Radio(pDX, kAfter, choice);
    };
    driver.OnDialog({Enters(kNameEdit, L"Grinding"), Enters(kNumberEdit, L" 42"), Presses(kSwitch),
                     Presses(kAfter), Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(name, L"Grinding");
    EXPECT_EQ(number, 42);
    EXPECT_EQ(on, 1);
    EXPECT_EQ(choice, 0);
}

TEST_F(DialogData, NoNumberInAFieldFailsTheExchangeThere)
{
    std::wstring name = L"before";
    int number = 7;
    int on = 0;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, kNameEdit, name);
        DDX_Text(pDX, kNumberEdit, number);
        DDX_Check(pDX, kSwitch, on);
    };
    Run([&](DialogView& view) {
        view.SetText(kNameEdit, L"after");
        view.SetText(kNumberEdit, L"many");
        view.Click(kSwitch);
        EXPECT_FALSE(dialog.UpdateData(true));
    });
    EXPECT_EQ(name, L"after") << "moved before the failure";
    EXPECT_EQ(number, 7) << "kept";
    EXPECT_EQ(on, 0) << "not moved behind the failure";
}

TEST_F(DialogData, ANumberIsTheWholeText)
{
    int number = 0;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, kNumberEdit, number);
    };
    Run([&](DialogView& view) {
        for (const wchar_t* text : {L"12", L"+12", L" 12", L"12  ", L" 0012 "})
        {
            number = 0;
            view.SetText(kNumberEdit, text);
            EXPECT_TRUE(dialog.UpdateData(true)) << text;
            EXPECT_EQ(number, 12) << text;
        }
        for (const int limit : {INT_MAX, INT_MIN})
        {
            view.SetText(kNumberEdit, std::to_wstring(limit));
            EXPECT_TRUE(dialog.UpdateData(true));
            EXPECT_EQ(number, limit);
        }
        number = 7;
        for (const wchar_t* text :
             {L"", L" ", L"-", L"12x", L"1 2", L"1.5", L"--1", L"- 1", L"0x1", L"2147483648", L"-2147483649"})
        {
            view.SetText(kNumberEdit, text);
            EXPECT_FALSE(dialog.UpdateData(true)) << text;
            EXPECT_EQ(number, 7) << text;
        }
    });
}

TEST_F(DialogData, TheDefaultButtonDoesNothingIfTheExchangeFails)
{
    int number = 7;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, kNumberEdit, number);
    };
    driver.OnDialog({Enters(kNumberEdit, L""), Presses(IDOK), Presses(IDCANCEL)});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(DialogData, OtherControlsAmongRadioButtonsAreSkipped)
{
    int choice = 1;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Radio(pDX, kAfter, choice);
    };
    Run([&](DialogView& view) {
        SetWindowPos(view.Control(kNumberEdit), view.Control(kAfter), 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        EXPECT_TRUE(dialog.UpdateData(false));
        EXPECT_TRUE(view.IsChecked(kBefore));
        choice = -1;
        EXPECT_TRUE(dialog.UpdateData(true));
        EXPECT_EQ(choice, 1);
    });
}

TEST_F(DialogData, NoChosenRadioButtonIsMinusOne)
{
    int choice = -1;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Radio(pDX, kAfter, choice);
    };
    Run([&](DialogView& view) {
        EXPECT_FALSE(view.IsChecked(kAfter));
        EXPECT_FALSE(view.IsChecked(kBefore));
        choice = 5;
        EXPECT_TRUE(dialog.UpdateData(true));
        EXPECT_EQ(choice, -1);
    });
}

TEST_F(DialogData, ControlsThatTheDialogLacksAreSkipped)
{
    std::wstring text = L"kept";
    int number = 3;
    CButton button;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, 998, button);
        DDX_Text(pDX, 999, text);
        DDX_Text(pDX, 999, number);
        DDX_Check(pDX, 999, number);
        DDX_Radio(pDX, 999, number);
    };
    Run([&](DialogView&) {
        EXPECT_TRUE(dialog.UpdateData(true));
        dialog.ShowItem(999, false);
        dialog.EnableItem(999, false);
        EXPECT_EQ(dialog.ItemRect(999).Width(), 0);
    });
    EXPECT_EQ(text, L"kept");
    EXPECT_EQ(number, 3);
    EXPECT_EQ(button.m_hWnd, nullptr);
}

TEST_F(DialogData, ItemsAreShownEnabledAndMeasuredByTheirNumber)
{
    Run([&](DialogView& view) {
        dialog.ShowItem(kApply, false);
        dialog.EnableItem(kSwitch, false);
        EXPECT_FALSE(view.IsVisible(kApply));
        EXPECT_FALSE(view.IsEnabled(kSwitch));
        dialog.ShowItem(kApply, true);
        dialog.EnableItem(kSwitch, true);
        EXPECT_TRUE(view.IsVisible(kApply));
        EXPECT_TRUE(view.IsEnabled(kSwitch));
        RECT units{7, 95, 130, 50}; // position and size, which are rounded each by itself
        MapDialogRect(view.Window(), &units);
        const CRect place = dialog.ItemRect(kList);
        EXPECT_EQ(place.left, units.left);
        EXPECT_EQ(place.top, units.top);
        EXPECT_EQ(place.Width(), units.right);
        EXPECT_EQ(place.Height(), units.bottom);
    });
}

TEST_F(DialogData, AComboBoxIsReadAndFilled)
{
    CComboBox combo;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kCombo, combo);
    };
    Run([&](DialogView&) {
        EXPECT_EQ(combo.AddString(L"beta"), 0);
        EXPECT_EQ(combo.AddString(L"alpha"), 0) << "sorted";
        EXPECT_EQ(combo.InsertString(-1, L"Gamma ray"), 2);
        combo.SetItemData(1, 77);
        EXPECT_EQ(combo.GetItemData(1), 77);
        EXPECT_EQ(combo.GetCount(), 3);
        EXPECT_EQ(combo.SelectString(-1, L"gam"), 2);
        EXPECT_EQ(combo.GetWindowText(), L"Gamma ray");
        EXPECT_EQ(combo.FindString(-1, L"B"), 1);
        EXPECT_EQ(combo.GetLBText(0), L"alpha");
        EXPECT_EQ(combo.GetLBText(9), L"");
        EXPECT_EQ(combo.SetCurSel(-1), CB_ERR);
        EXPECT_EQ(combo.GetCurSel(), CB_ERR);
        EXPECT_EQ(combo.DeleteString(0), 2);
        combo.ResetContent();
        EXPECT_EQ(combo.GetCount(), 0);
    });
}

TEST_F(DialogData, AListIsReadAndFilled)
{
    CListCtrl list;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kList, list);
    };
    Run([&](DialogView&) {
        EXPECT_EQ(list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80), 0);
        EXPECT_EQ(list.InsertColumn(5, L"Value", LVCFMT_RIGHT, 40), 1) << "appended";
        EXPECT_EQ(list.GetColumnWidth(1), 40);
        EXPECT_EQ(list.GetColumnFormat(1), LVCFMT_RIGHT);
        EXPECT_EQ(list.GetColumnFormat(7), LVCFMT_LEFT);
        EXPECT_EQ(list.InsertItem(0, L"first", 11), 0);
        EXPECT_EQ(list.InsertItem(9, L"second", 12), 1);
        EXPECT_TRUE(list.SetItemText(1, 1, L"twelve"));
        EXPECT_FALSE(list.SetItemText(1, 4, L"nowhere"));
        EXPECT_EQ(list.GetItemText(1, 1), L"twelve");
        EXPECT_EQ(list.GetItemText(1, 4), L"");
        EXPECT_EQ(list.GetItemData(0), 11);
        EXPECT_TRUE(list.SetItemData(0, 13));
        EXPECT_EQ(list.GetItemData(0), 13);
        EXPECT_EQ(list.GetItemData(5), 0) << "no such row";
        EXPECT_TRUE(list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
        EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 1);
        EXPECT_EQ(list.GetSelectedCount(), 1);
        RECT row;
        ASSERT_TRUE(list.GetItemRect(1, LVIR_LABEL, row));
        EXPECT_EQ(list.HitTest({row.left + 3, (row.top + row.bottom) / 2}), 1);
        EXPECT_FALSE(list.GetItemRect(5, LVIR_BOUNDS, row));
        CHeaderCtrl header;
        ASSERT_TRUE(header.SubclassWindow(list.GetHeader()));
        EXPECT_EQ(header.GetItemCount(), 2);
        EXPECT_TRUE(header.SetItemFormat(1, HDF_STRING | HDF_SORTUP));
        EXPECT_TRUE(list.DeleteItem(0));
        EXPECT_TRUE(list.DeleteAllItems());
        EXPECT_EQ(list.GetItemCount(), 0);
    });
}

TEST_F(DialogData, ATextOfTenThousandCharactersIsReadFromACell)
{
    CListCtrl list;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, kList, list);
    };
    Run([&](DialogView&) {
        const std::wstring text(10'000, L'x');
        list.InsertColumn(0, L"Name", LVCFMT_LEFT, 80);
        ASSERT_EQ(list.InsertItem(0, text.c_str()), 0);
        EXPECT_EQ(list.GetItemText(0, 0), text);
    });
}
