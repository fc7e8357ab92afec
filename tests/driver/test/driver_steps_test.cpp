// The words of the steps: what each does and sees, and how a failure names it.
#include "CaughtFailures.h"
#include "ListDialog.h"
#include "SmallDialog.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <utility>

namespace
{
using Failures = std::vector<std::string>;

constexpr int kBefore = 301;
constexpr int kAfter = 302;

/// Both combo boxes have three items.
INT_PTR FillBoxes(HWND dialog, UINT message, WPARAM, LPARAM)
{
    if (message == WM_INITDIALOG)
        for (const int combo : {kDropDown, kDropDownList})
            for (const wchar_t* item : {L"one", L"two", L"three"})
                SendDlgItemMessageW(dialog, combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    return FALSE;
}

INT_PTR Drive(Steps steps)
{
    DialogDriver driver;
    steps.push_back(Presses(IDOK));
    driver.OnDialog(std::move(steps));
    return RunSmallDialog(FillBoxes);
}

INT_PTR DriveRadios(Steps steps)
{
    DialogTemplate description(L"Radios", kDialogStyle, 0, 0, 120, 60);
    description.Add(L"Button", IDOK, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 5, 40, 40, 14)
        .Add(L"Button", kBefore, L"Before", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 5, 5, 60, 10)
        .Add(L"Button", kAfter, L"After", BS_AUTORADIOBUTTON, 5, 20, 60, 10);
    DialogDriver driver;
    steps.push_back(Presses(IDOK));
    driver.OnDialog(std::move(steps));
    return ModalDialog(description).Run();
}

/// The step fails once, with its own words in the message and this text.
void ExpectFailure(const DialogStep& step, const std::string& text, const Failures& failures)
{
    ASSERT_EQ(failures.size(), 1u) << step.Words();
    EXPECT_NE(failures[0].find(text), std::string::npos) << failures[0];
    EXPECT_NE(failures[0].find(": " + step.Words()), std::string::npos) << failures[0];
}

TEST(Steps, SeeWhatADialogShows)
{
    EXPECT_EQ(Drive({Sees(Titled(L"Gr\u00f6\u00dfe")), Sees(OwnedBy(nullptr)), Sees(FocusOn(IDOK)),
                     Sees(Shows(kStatic, L"Some text")), Sees(Visible(IDOK)), Sees(Hidden(kHidden)),
                     Sees(Enabled(IDOK)), Sees(Disabled(kDisabled)), Sees(Unchecked(kCheck)),
                     Sees(Offers(kDropDown, {L"one", L"two", L"three"})), Sees(NoneChosen(kDropDown)),
                     Sees(Undropped(kDropDown))}),
              IDOK);
}

TEST(Steps, SeeTheOwnerThatIsDisabled)
{
    const HWND owner = CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                       nullptr, nullptr, nullptr, nullptr);
    DialogDriver driver;
    driver.OnDialog({Sees(OwnedBy(owner)), Sees(OwnerDisabled()), Presses(IDOK)});
    EXPECT_EQ(RunSmallDialog({}, owner), IDOK);
    DestroyWindow(owner);
}

TEST(Steps, FailWithTheirWordsForWhatIsNotSeen)
{
    const std::pair<Sight, std::string> cases[] = {
        {Titled(L"gr\u00fcn"), "the title is \"gr\u00fcn\""},
        {OwnedBy(HWND_BOTTOM), "the owner is the given window"},
        {OwnerDisabled(), "the owner is disabled"},
        {Box(L"Gr\u00f6\u00dfe"), "the box \"Gr\u00f6\u00dfe\" is in front"},
        {FocusOn(IDCANCEL), "2 has the focus"},
        {Shows(IDOK, L"Ok"), "1 shows \"Ok\""},
        {Visible(kHidden), "103 is visible"},
        {Hidden(IDOK), "1 is hidden"},
        {Enabled(kDisabled), "104 is enabled"},
        {Disabled(IDOK), "1 is disabled"},
        {Checked(kCheck), "102 is checked"},
        {Offers(kDropDown, {L"one"}), "105 offers {\"one\"}"},
        {Chosen(kDropDown, L"one"), "105 has chosen \"one\""},
        {Dropped(kDropDown), "105 is dropped down"}};
    for (const auto& [sight, words] : cases)
    {
        const DialogStep step = Sees(sight);
        ExpectFailure(step, "it is not so that " + words + " in\nthe dialog \"Gr\u00f6\u00dfe\"",
                      CaughtFailures([&] { EXPECT_EQ(Drive({step}), IDOK); }));
    }
}

TEST(Steps, SeeTheList)
{
    ListDialog lists;
    RunWithList(lists, {Sees(RowCount(20)), Sees(Headings({L"Name", L""})), Sees(NoRowSelected()),
                        Sees(InRow(2, {L"row 2", L""})), Sees(InColumn(1, Texts(20)))});
}

TEST(Steps, FailWithTheirWordsForWhatIsNotSeenInTheList)
{
    const std::pair<Sight, std::string> cases[] = {
        {RowCount(19), "there are 19 rows"},
        {Headings({L"Name"}), "the headings are {\"Name\"}"},
        {RowSelected(0), "row 0 is selected"},
        {Selected(L"row 0"), "\"row 0\" is selected"},
        {InRow(2, {L"row 2"}), "row 2 has the texts {\"row 2\"}"},
        {InColumn(1, {L"", L""}), "column 1 has the texts {\"\", \"\"}"},
        {ListInPlaceOf(kList), "the list has the place of 206"},
        {LabelEdited(L"row 0"), "a label is edited and reads \"row 0\""}};
    for (const auto& [sight, words] : cases)
    {
        const DialogStep step = Sees(sight);
        ListDialog lists;
        ExpectFailure(step, "it is not so that " + words,
                      CaughtFailures([&] { RunWithList(lists, {step}); }));
    }
}

TEST(Steps, CheckAndUncheckABox)
{
    Drive({Checks(kCheck), Sees(Checked(kCheck)), Unchecks(kCheck), Sees(Unchecked(kCheck))});
}

TEST(Steps, CheckOneOfTheRadioButtons)
{
    DriveRadios({Checks(kAfter), Sees(Checked(kAfter)), Sees(Unchecked(kBefore)), Checks(kBefore),
                 Sees(Checked(kBefore)), Sees(Unchecked(kAfter))});
}

TEST(Steps, DoNotCheckWhatIsChecked)
{
    ExpectFailure(Unchecks(kCheck), "102 is not checked in",
                  CaughtFailures([] { Drive({Unchecks(kCheck)}); }));
    ExpectFailure(Checks(kAfter), "302 is checked already in", CaughtFailures([] {
                      DriveRadios({Checks(kAfter), Checks(kAfter)});
                  }));
}

TEST(Steps, DropACombo)
{
    Drive({Drops(kDropDownList), Sees(Dropped(kDropDownList)), Sees(FocusOn(kDropDownList)),
           Types("Escape", Undropped(kDropDownList)), Sees(NoneChosen(kDropDownList))});
}

TEST(Steps, ChooseItemsByTextAndIndex)
{
    for (const int combo : {kDropDown, kDropDownList})
        Drive({Chooses(combo, L"two"), Sees(Chosen(combo, L"two")), Sees(Shows(combo, L"two")),
               Sees(Undropped(combo)), Chooses(combo, 0), Sees(Chosen(combo, L"one"))});
}

TEST(Steps, EnterTexts)
{
    Drive({Types(kEdit, L"gr"), Types(kEdit, L"\u00fcn"), Sees(Shows(kEdit, L"gr\u00fcn")),
           Enters(kEdit, L"blau"), Sees(Shows(kEdit, L"blau")), Enters(kEdit, L""), Sees(Shows(kEdit, L""))});
    Drive({Enters(kDropDown, L"four"), Sees(Shows(kDropDown, L"four")), Sees(NoneChosen(kDropDown))});
}

TEST(Steps, TypeKeysByTheirNames)
{
    Drive({Types("Tab", FocusOn(IDCANCEL)), Types("Tab Tab", FocusOn(kCheck)),
           Types("shift+Tab", FocusOn(kEdit)), Types("a B 7", Shows(kEdit, L"ab7")),
           Types("Home Delete", Shows(kEdit, L"b7")), Types("End BackSpace", Shows(kEdit, L"b")),
           Types("alt+c", Checked(kCheck)), Types("space", Unchecked(kCheck))});
}

TEST(Steps, EndADialogByKeys)
{
    for (const auto& [key, code] : {std::pair("Return", IDOK), std::pair("Escape", IDCANCEL)})
    {
        DialogDriver driver;
        driver.OnDialog({Ends(key)});
        EXPECT_EQ(RunSmallDialog(), code);
    }
}

TEST(Steps, FailForKeysThatDoNotDoIt)
{
    const Failures failures = CaughtFailures([] { Drive({Types("Tab", FocusOn(kEdit))}); });
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures[0].find("it is not so that 101 has the focus"), std::string::npos) << failures[0];
}

TEST(Steps, FailForKeysThatCannotBePressed)
{
    ExpectFailure(Types("Tabulator"), "there is no key \"Tabulator\"",
                  CaughtFailures([] { Drive({Types("Tabulator")}); }));
    ExpectFailure(Types("alt+c Tab"), "held keys need a step of their own: \"alt+c Tab\"",
                  CaughtFailures([] { Drive({Types("alt+c Tab")}); }));
}

TEST(Steps, GoRoundByTab)
{
    EXPECT_EQ(Drive(GoesRound({IDOK, IDCANCEL, kEdit, kCheck, kDropDown, kDropDownList, kAgain})), IDOK);
}

TEST(Steps, SelectRows)
{
    ListDialog lists;
    RunWithList(lists, {Selects(1), Sees(RowSelected(1)), Selects(L"row 15"), Sees(Selected(L"row 15")),
                        Sees(RowSelected(15)), SelectsNone(), Sees(NoRowSelected()), DoubleClicks(2),
                        Sees(Selected(L"row 2"))});
    ExpectFailure(Selects(L"row 20"), "no row shows \"row 20\" in",
                  CaughtFailures([&] { RunWithList(lists, {Selects(L"row 20")}); }));
}

TEST(Steps, EditLabels)
{
    ListDialog lists{.editable = true};
    RunWithList(lists, {EditsLabel(2, L"new"), Sees(LabelEdited(L"new")), Types("Return"),
                        Sees(InRow(2, {L"new", L""})), EditsLabel(1, L"other"), Types("Escape"),
                        Sees(InRow(1, {L"row 1", L""}))});
    ListDialog fixed;
    ExpectFailure(EditsLabel(0, L"new"), "the label of row 0 cannot be edited in",
                  CaughtFailures([&] { RunWithList(fixed, {EditsLabel(0, L"new")}); }));
}

TEST(Steps, CloseADialog)
{
    DialogDriver driver;
    driver.OnDialog({Closes()});
    EXPECT_EQ(RunSmallDialog(), IDCANCEL);
}
} // namespace
