// What a step sees of a dialog, and what it does there as a user.
#include "CaughtFailures.h"
#include "DialogDriver.h"
#include "SmallDialog.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
using Events = std::vector<std::string>;

// Records the notifications of the controls.
struct Record
{
    Events events;

    INT_PTR operator()(HWND, UINT message, WPARAM wParam, LPARAM)
    {
        if (message == WM_COMMAND)
            events.push_back(std::to_string(LOWORD(wParam)) + ":" + std::to_string(HIWORD(wParam)));
        return FALSE;
    }
};

INT_PTR Drive(Steps steps, ModalDialog::Handler handler = {})
{
    DialogDriver driver;
    steps.push_back(Presses(IDOK));
    driver.OnDialog(std::move(steps));
    return RunSmallDialog(std::move(handler));
}
} // namespace

TEST(DialogView, ShowsTitleTextsAndStates)
{
    Drive({[](DialogView& view) {
        EXPECT_EQ(view.Title(), L"Gr\u00f6\u00dfe");
        EXPECT_EQ(view.Text(IDOK), L"OK");
        EXPECT_EQ(view.Text(kStatic), L"Some text");
        EXPECT_TRUE(view.IsVisible(IDOK));
        EXPECT_FALSE(view.IsVisible(kHidden));
        EXPECT_TRUE(view.IsEnabled(IDOK));
        EXPECT_FALSE(view.IsEnabled(kDisabled));
        EXPECT_FALSE(view.IsChecked(kCheck));
        EXPECT_EQ(view.Style(kCheck) & BS_TYPEMASK, static_cast<DWORD>(BS_AUTOCHECKBOX));
        EXPECT_EQ(view.Focus(), IDOK);
        EXPECT_EQ(view.Control(kEdit), GetDlgItem(view.Window(), kEdit));
        ASSERT_EQ(view.Controls().size(), 10u);
        EXPECT_EQ(view.Controls()[1], view.Control(IDCANCEL));
    }});
}

TEST(DialogView, MeasuresInPixelsOfTheDialog)
{
    Drive({[](DialogView& view) {
        RECT expected{10, 10, 50, 14};
        MapDialogRect(view.Window(), &expected);
        const RECT rect = view.Rect(IDOK);
        EXPECT_EQ(rect.left, expected.left);
        EXPECT_EQ(rect.top, expected.top);
        EXPECT_EQ(rect.right - rect.left, expected.right);
        EXPECT_EQ(rect.bottom - rect.top, expected.bottom);
    }});
}

TEST(DialogView, ClicksButtons)
{
    Record record;
    Drive({Presses(kCheck), Sees(Checked(kCheck)), Sees(FocusOn(kCheck)), Presses(kCheck),
           Sees(Unchecked(kCheck))},
          std::ref(record));
    EXPECT_EQ(record.events, (Events{"102:0", "102:0", "1:0"}));
}

TEST(DialogView, RefusesWhatNoUserCanDo)
{
    const std::vector<std::pair<DialogStep, std::string>> cases = {
        {Presses(kHidden), "no user can use the control 103"},
        {Presses(kDisabled), "no user can use the control 104"},
        {Presses(999), "there is no control 999"},
        {Types(kHidden, L"x"), "no user can use the control 103"},
        {Sees(Shows(999, L"")), "there is no control 999"},
        {Chooses(kDropDown, 5), "the box 105 has no item 5"},
        {Chooses(kDropDown, L"none"), "the box 105 has no item \"none\""},
        {[](DialogView& view) { EXPECT_EQ(view.List(), nullptr); }, "lists are shown in"}};
    for (const auto& [step, text] : cases)
    {
        const std::vector<std::string> failures =
            CaughtFailures([&step = step] { EXPECT_EQ(Drive({step}), IDOK); });
        ASSERT_EQ(failures.size(), 1u) << text;
        EXPECT_NE(failures[0].find(text), std::string::npos) << failures[0];
    }
}

TEST(DialogView, TypesIntoEditFields)
{
    Record record;
    Drive({Types(kEdit, L"gr\u00fc"), Sees(FocusOn(kEdit)), Sees(Shows(kEdit, L"gr\u00fc")),
           Enters(kEdit, L"x"), Sees(Shows(kEdit, L"x")), Enters(kEdit, L""), Sees(Shows(kEdit, L""))},
          std::ref(record));
    EXPECT_EQ(std::count(record.events.begin(), record.events.end(), "101:768"), 5);
}

TEST(DialogView, PressesKeysWhereTheFocusIs)
{
    int focus = 0;
    Drive({Types("Tab"), Sees(FocusOn(IDCANCEL)), Types("shift+Tab"),
           [](DialogView& view) {
               EXPECT_EQ(view.Focus(), IDOK);
               EXPECT_GE(GetKeyState(VK_SHIFT), 0) << "Shift is not held any longer";
               view.Press('C', DialogView::kAlt);
           },
           [&](DialogView& view) {
               focus = view.Focus();
           }});
    EXPECT_EQ(focus, kCheck);
}

TEST(DialogView, LeavesByEnterAndEscape)
{
    for (const auto& [key, code] : {std::pair<WORD, int>{VK_RETURN, IDOK}, {VK_ESCAPE, IDCANCEL}})
    {
        DialogDriver driver;
        driver.OnDialog({[key = key](DialogView& view) {
            view.Press(key);
        }});
        EXPECT_EQ(RunSmallDialog(), code);
    }
}

TEST(DialogView, LeavesByTheCloseBox)
{
    DialogDriver driver;
    driver.OnDialog({Closes()});
    EXPECT_EQ(RunSmallDialog(), IDCANCEL);
}

TEST(DialogView, HasNoCloseBoxWithoutSystemMenu)
{
    DialogTemplate description(L"Plain", kDialogStyle & ~WS_SYSMENU, 0, 0, 100, 50);
    description.Add(L"Button", IDOK, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 10, 10, 50, 14);
    const std::vector<std::string> failures = CaughtFailures([&] {
        DialogDriver driver;
        driver.OnDialog({Closes(), Presses(IDOK)});
        EXPECT_EQ(ModalDialog(description).Run(), IDOK);
    });
    ASSERT_EQ(failures.size(), 1u) << failures.back();
    EXPECT_NE(failures[0].find("no user can press the close box"), std::string::npos);
}
