// The user at the keyboard: what fails a test, and that nothing is left open then.
#include "CaughtFailures.h"
#include "KeyboardUser.h"
#include "SmallDialog.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{
using Failures = std::vector<std::string>;

constexpr ULONGLONG kEnoughForKeys = 3'000; // milliseconds
constexpr ULONGLONG kNothingComes = 300;

/// The dialog with what is queued by `plan`.
Failures FailuresOf(ULONGLONG bound, const std::function<void(KeyboardUser&)>& plan, INT_PTR& code,
                    const ModalDialog::Handler& handler = {})
{
    return CaughtFailures([&] {
        KeyboardUser user(bound);
        plan(user);
        code = RunSmallDialog(handler);
    });
}

void ExpectOne(const Failures& failures, const std::vector<std::string>& parts)
{
    ASSERT_EQ(failures.size(), 1u);
    for (const std::string& part : parts)
        EXPECT_NE(failures[0].find(part), std::string::npos) << "not said: " << part << " in " << failures[0];
}
} // namespace

TEST(KeyboardUser, FailsATestWhoseKeysDoSomethingElse)
{
    INT_PTR code = 0;
    const Failures failures = FailuresOf(
        kEnoughForKeys,
        [](KeyboardUser& user) {
            user.Does({Types("F5", FocusOn(IDCANCEL)), Ends("Return")});
        },
        code);
    ExpectOne(failures, {"keys \"F5\", until 2 has the focus: it did not come to this",
                         "the dialog \"Gr\u00f6\u00dfe\"", "1 Button style ", " focus \"OK\""});
    EXPECT_EQ(code, IDCANCEL);
}

TEST(KeyboardUser, FailsATestThatSeesWhatItWaitsForBeforeItTypes)
{
    INT_PTR code = 0;
    const Failures failures = FailuresOf(
        kEnoughForKeys,
        [](KeyboardUser& user) {
            user.Does({Types("Tab", FocusOn(IDOK)), Ends("Return")});
        },
        code);
    ExpectOne(failures, {"this was to be seen before the keys were typed"});
    EXPECT_EQ(code, IDCANCEL);
}

TEST(KeyboardUser, FailsATestWhoseKeysAreNotTyped)
{
    INT_PTR code = 0;
    const auto plan = [](KeyboardUser& user) {
        user.Does({[](DialogView& view) { ShowWindow(view.Window(), SW_HIDE); },
                   Types("Tab", FocusOn(IDCANCEL)), Ends("Return")});
    };
    ExpectOne(FailuresOf(kNothingComes, plan, code), {"keys \"Tab\"", "the window never got the keyboard"});
    EXPECT_EQ(code, IDCANCEL);
}

TEST(KeyboardUser, FailsATestWhoseDialogStaysWhenAllIsDone)
{
    INT_PTR code = 0;
    ExpectOne(FailuresOf(
                  kNothingComes, [](KeyboardUser&) {}, code),
              {"there was nothing left to do"});
    EXPECT_EQ(code, IDCANCEL);
}

TEST(KeyboardUser, FailsATestWhoseDialogClosesTooEarly)
{
    INT_PTR code = 0;
    const Failures failures = FailuresOf(
        kEnoughForKeys,
        [](KeyboardUser& user) {
            user.Does({Ends("Escape"), Ends("Return")});
        },
        code);
    ExpectOne(failures, {"no dialog was there for keys \"Return\", until the dialog is gone"});
    EXPECT_EQ(code, IDCANCEL);
}

TEST(KeyboardUser, DestroysADialogThatDoesNotClose)
{
    INT_PTR code = 0;
    const auto refuse = [](HWND, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        return message == WM_COMMAND && LOWORD(wParam) == IDCANCEL;
    };
    ExpectOne(FailuresOf(
                  kNothingComes, [](KeyboardUser&) {}, code, refuse),
              {"nothing left"});
    EXPECT_EQ(code, -1);
}

TEST(KeyboardUser, ClosesABoxThatNothingWasPlannedFor)
{
    INT_PTR code = 0;
    const auto show = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message != WM_COMMAND || LOWORD(wParam) != IDOK)
            return FALSE;
        MessageBoxW(dialog, L"What now?", L"Question", MB_YESNO);
        return FALSE;
    };
    const Failures failures = FailuresOf(
        kEnoughForKeys, [](KeyboardUser& user) { user.Does({Types("Return", Box(L"Answer"))}); }, code, show);
    ExpectOne(failures, {"the box \"Answer\" is in front", "\"Question\"", "\"What now?\""});
    EXPECT_EQ(code, IDOK);
}

TEST(KeyboardUser, FailsATestWithStepsThatNoKeyboardDoes)
{
    INT_PTR code = 0;
    const Failures failures = FailuresOf(
        kEnoughForKeys,
        [](KeyboardUser& user) {
            user.Does({Presses(IDOK), Ends("Escape")});
        },
        code);
    ExpectOne(failures, {"not for a keyboard: presses 1"});
    EXPECT_EQ(code, IDCANCEL);
}

TEST(KeyboardUser, FailsATestThatDoesNotSeeWhatItsKeysDo)
{
    INT_PTR code = 0;
    const Failures failures = FailuresOf(
        kEnoughForKeys,
        [](KeyboardUser& user) {
            user.Does({Types("Tab"), Ends("Escape")});
        },
        code);
    ExpectOne(failures, {"not for a keyboard: types \"Tab\""});
    EXPECT_EQ(code, IDCANCEL);
}
