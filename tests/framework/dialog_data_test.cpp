// Data exchange between a dialog and its controls.
#include "DialogTest.h"

#include "Button.h"

#include <climits>

namespace
{
class DialogData : public DialogTest
{
};
} // namespace

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
