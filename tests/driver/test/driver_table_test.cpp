// Tables of events: what a row compares, and that a failure names the row.
#include "CaughtFailures.h"
#include "DialogDriver.h"
#include "EventTable.h"
#include "SmallDialog.h"

#include <gtest/gtest.h>

namespace
{
using Failures = std::vector<std::string>;

/// The check box enables a button; each click is written down.
class EventTables : public ::testing::Test
{
protected:
    INT_PTR OnMessage(HWND dialog, UINT message, WPARAM wParam)
    {
        if (message == WM_INITDIALOG)
            for (const wchar_t* item : {L"one", L"two"})
                SendDlgItemMessageW(dialog, kDropDownList, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
        if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED)
            return FALSE;
        record.push_back("clicked " + std::to_string(LOWORD(wParam)));
        if (LOWORD(wParam) == kCheck)
            EnableWindow(GetDlgItem(dialog, kDisabled),
                         SendDlgItemMessageW(dialog, kCheck, BM_GETCHECK, 0, 0) == BST_CHECKED);
        return FALSE;
    }

    EventTable Table()
    {
        return {.controls = {kDisabled, kEdit},
                .buttons = {kCheck},
                .selection = [](const DialogView& view) { return view.Text(kDropDownList); },
                .record = record,
                .show =
                    [this](Steps steps) {
                        DialogDriver driver;
                        driver.OnDialog(std::move(steps));
                        const INT_PTR code =
                            RunSmallDialog([this](HWND dialog, UINT message, WPARAM wParam, LPARAM) {
                                return OnMessage(dialog, message, wParam);
                            });
                        return "code " + std::to_string(code);
                    },
                .leave = {Presses(IDCANCEL)},
                .left = "code 2"};
    }

    /// The row with one difference fails with its name and this text.
    void ExpectFailure(const DialogEvent& row, const std::string& text)
    {
        const Failures failures = CaughtFailures([&] { Table().Run(row); });
        ASSERT_EQ(failures.size(), 1u) << text;
        EXPECT_NE(failures[0].find(text), std::string::npos) << failures[0];
        EXPECT_NE(failures[0].find(std::string(row.name) + ": " + row.event.Words()), std::string::npos)
            << failures[0];
    }

    std::vector<std::string> record;
    const DialogEvent check = Stays("Check", {Chooses(kDropDownList, L"two")}, Checks(kCheck),
                                    {kDisabled, kEdit}, {kCheck}, L"two", {"clicked 102"});
    const DialogEvent ok = EndsWith("Ok", {Checks(kCheck)}, Presses(IDOK), "code 1", {"clicked 1"});
};

TEST_F(EventTables, TakeRowsThatHold)
{
    Table().Run(check);
    Table().Run(Stays("Uncheck", {Checks(kCheck)}, Unchecks(kCheck), {kEdit}, {}, L"", {"clicked 102"}));
    Table().Run(ok);
}

TEST_F(EventTables, FailForEachFieldThatDiffers)
{
    DialogEvent row = check;
    row.enabled = {kEdit};
    ExpectFailure(row, "row.enabled");
    row = check;
    row.checked = {};
    ExpectFailure(row, "row.checked");
    row = check;
    row.selected = L"one";
    ExpectFailure(row, "row.selected");
    row = check;
    row.written = {};
    ExpectFailure(row, "row.written");
    row = ok;
    row.ends = "code 2";
    ExpectFailure(row, "row.ends");
    row = ok;
    row.written = {};
    ExpectFailure(row, "row.written");
}
} // namespace
