// Dialogs that do not behave as a test expects fail it and are closed.
#include "BoxAnswers.h"
#include "CaughtFailures.h"
#include "DialogDriver.h"
#include "SmallDialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace
{
using Failures = std::vector<std::string>;

// Exactly one failure, which contains all of these texts.
testing::AssertionResult IsOne(const Failures& failures, const std::vector<std::string>& parts)
{
    std::string all;
    for (const std::string& failure : failures)
        all += failure + "\n--\n";
    const auto missing = std::find_if(parts.begin(), parts.end(),
                                      [&](const std::string& part) { return all.find(part) == all.npos; });
    if (failures.size() == 1 && missing == parts.end())
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << failures.size() << " failures"
                                       << (missing == parts.end() ? "" : ", missing " + *missing) << ":\n"
                                       << all;
}

// Counts how a dialog that refuses to close is closed.
struct Stubborn
{
    bool refusesCancel = false;
    bool refusesClose = false;
    int cancels = 0;
    int closes = 0;
    bool destroyed = false;

    INT_PTR operator()(HWND, UINT message, WPARAM wParam, LPARAM)
    {
        if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL)
            return ++cancels, refusesCancel;
        if (message == WM_CLOSE)
            return ++closes, refusesClose;
        destroyed = destroyed || message == WM_DESTROY;
        return FALSE;
    }
};
} // namespace

TEST(DialogDriver, FailsATestWithAnUnexpectedDialog)
{
    INT_PTR code = 0;
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver;
        code = RunSmallDialog();
    });
    EXPECT_TRUE(
        IsOne(failures, {"nobody expected the dialog \"Gr\u00f6\u00dfe\"", "1 Button style ", " \"OK\"",
                         "103 Button style ", " hidden \"Hidden\"", " disabled \"Disabled\""}));
    EXPECT_EQ(code, IDCANCEL);
}

TEST(DialogDriver, FailsATestWhoseDialogNeverOpens)
{
    const Failures failures = CaughtFailures([] {
        DialogDriver driver;
        driver.OnDialog({[](DialogView&) {
        }});
        EXPECT_FALSE(driver.AllShown());
    });
    EXPECT_TRUE(IsOne(failures, {"dialogs never came up"}));
}

TEST(DialogDriver, FailsATestWhoseDialogStaysOpen)
{
    Stubborn end;
    INT_PTR code = 0;
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver;
        driver.OnDialog({Enters(kEdit, L"caf\u00e9")});
        code = RunSmallDialog(std::ref(end));
    });
    EXPECT_TRUE(IsOne(failures, {"after its last step there still is the dialog", "101 Edit style ", "focus",
                                 "\"caf\u00e9\""}));
    EXPECT_EQ(code, IDCANCEL);
    EXPECT_EQ(end.cancels, 1);
    EXPECT_EQ(end.closes, 0);
}

TEST(DialogDriver, ClosesADialogThatCannotBeCancelled)
{
    Stubborn end{.refusesCancel = true};
    const auto close = [&](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        const INT_PTR handled = end(dialog, message, wParam, lParam);
        if (message == WM_CLOSE)
            DestroyWindow(dialog);
        return handled;
    };
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver;
        driver.OnDialog({});
        EXPECT_EQ(RunSmallDialog(close), -1);
    });
    EXPECT_TRUE(IsOne(failures, {"after its last step there still is the dialog"}));
    EXPECT_EQ(end.cancels, 1);
    EXPECT_EQ(end.closes, 1);
}

TEST(DialogDriver, DestroysADialogThatDoesNotClose)
{
    Stubborn end{.refusesCancel = true, .refusesClose = true};
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver;
        driver.OnDialog({});
        EXPECT_EQ(RunSmallDialog(std::ref(end)), -1);
    });
    EXPECT_TRUE(IsOne(failures, {"after its last step there still is the dialog"}));
    EXPECT_TRUE(end.destroyed);
}

TEST(DialogDriver, FailsATestWhoseDialogClosesBeforeItsSteps)
{
    const Failures failures = CaughtFailures([] {
        DialogDriver driver;
        driver.OnDialog({Presses(IDOK), [](DialogView&) {
                         }});
        EXPECT_EQ(RunSmallDialog(), IDOK);
    });
    EXPECT_TRUE(IsOne(failures, {"dialog->done", "Which is: 1",
                                 "steps were run when the dialog \"Gr\u00f6\u00dfe\" went"}));
}

TEST(DialogDriver, ClosesADialogWhoseStepThrows)
{
    bool ranOn = false;
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver;
        driver.OnDialog({[](DialogView&) { throw std::runtime_error("lost"); },
                         [&](DialogView&) {
                             ranOn = true;
                         }});
        EXPECT_EQ(RunSmallDialog(), IDCANCEL);
    });
    EXPECT_TRUE(IsOne(failures, {"a step threw: lost", "step 1 in \"Gr\u00f6\u00dfe\""}));
    EXPECT_FALSE(ranOn);
}

TEST(DialogDriver, ClosesADialogWhoseStepThrowsSomethingElse)
{
    const Failures failures = CaughtFailures([] {
        DialogDriver driver;
        driver.OnDialog({[](DialogView&) {
            throw 5;
        }});
        EXPECT_EQ(RunSmallDialog(), IDCANCEL);
    });
    EXPECT_TRUE(IsOne(failures, {"a step threw"}));
}

TEST(DialogDriver, ClosesADialogWhoseStepAsserts)
{
    bool ranOn = false;
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver;
        driver.OnDialog({[](DialogView&) { ASSERT_EQ(1, 2) << "as expected"; },
                         [&](DialogView&) {
                             ranOn = true;
                         }});
        EXPECT_EQ(RunSmallDialog(), IDCANCEL);
    });
    ASSERT_EQ(failures.size(), 2u);
    EXPECT_NE(failures[0].find("as expected"), std::string::npos);
    EXPECT_NE(failures[1].find("fatal failure"), std::string::npos);
    EXPECT_FALSE(ranOn);
}

TEST(DialogDriver, ContinuesAfterAStepWhoseExpectationFails)
{
    const Failures failures = CaughtFailures([] {
        DialogDriver driver;
        driver.OnDialog({[](DialogView&) { EXPECT_EQ(1, 2) << "as expected"; }, Presses(IDOK)});
        EXPECT_EQ(RunSmallDialog(), IDOK);
    });
    EXPECT_TRUE(IsOne(failures, {"as expected", "step 1 in"}));
}

TEST(DialogDriver, ContinuesWithTheOuterDialogWhenTheInnerOneFailed)
{
    const Failures failures = CaughtFailures([] {
        DialogDriver driver;
        driver.OnDialog({[](DialogView&) { EXPECT_EQ(RunSmallDialog(), IDCANCEL); }, Presses(IDOK)});
        EXPECT_EQ(RunSmallDialog(), IDOK);
    });
    EXPECT_TRUE(IsOne(failures, {"nobody expected the dialog"}));
}

TEST(DialogDriver, FailsATestWithAnUnansweredBox)
{
    const Failures failures = CaughtFailures([] {
        DialogDriver driver;
        EXPECT_EQ(MessageBoxW(nullptr, L"Text", L"Title", MB_YESNO), IDNO);
    });
    EXPECT_TRUE(IsOne(failures, {"nobody expected the box \"Title\" with the text \"Text\""}));
}

TEST(DialogDriver, ClosesADialogThatIsNeverAtRest)
{
    const auto restless = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG || message == WM_APP)
            PostMessageW(dialog, WM_APP, 0, 0);
        return FALSE;
    };
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver(100);
        driver.OnDialog({[](DialogView&) {
        }});
        EXPECT_EQ(RunSmallDialog(restless), IDCANCEL);
    });
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures[0].find("nothing comes of the dialog"), std::string::npos);
}

TEST(DialogDriver, ClosesADialogWhoseStepNeverReturns)
{
    bool gone = false;
    const auto waits = [&](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        gone = gone || message == WM_DESTROY || message == WM_COMMAND;
        return FALSE;
    };
    const auto wait = [&](DialogView&) {
        MSG message;
        while (!gone && GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
    };
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver(100);
        driver.OnDialog({wait, Presses(IDOK)});
        EXPECT_EQ(RunSmallDialog(waits), IDCANCEL);
    });
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures[0].find("nothing comes of the dialog"), std::string::npos);
}

TEST(DialogDriver, AsksForConfirmationNoLongerThanTheBoxIsAnswered)
{
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Really?", IDNO);
    boxes.Expect(L"Title", L"Really?", IDYES);
    const auto ask = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        return ((message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) || message == WM_CLOSE) &&
               MessageBoxW(dialog, L"Really?", L"Title", MB_YESNO) == IDNO;
    };
    const Failures failures = CaughtFailures([&] {
        DialogDriver driver;
        driver.OnDialog({});
        // The close box asks again and then cancels, which asks a third time.
        boxes.Expect(L"Title", L"Really?", IDYES);
        EXPECT_EQ(RunSmallDialog(ask), IDCANCEL);
    });
    EXPECT_TRUE(IsOne(failures, {"after its last step there still is the dialog"}));
}

TEST(BoxAnswers, ExpectAnyFailsWithoutABox)
{
    const Failures failures = CaughtFailures([] {
        BoxAnswers boxes;
        boxes.ExpectAny(IDOK);
    });
    EXPECT_TRUE(IsOne(failures, {"a box was never shown"}));
}

TEST(BoxAnswers, ExpectAnyFailsForAnAnswerThatTheBoxLacks)
{
    const Failures failures = CaughtFailures([] {
        BoxAnswers boxes;
        boxes.ExpectAny(IDRETRY);
        EXPECT_EQ(MessageBoxW(nullptr, L"Text", L"Title", MB_YESNO), IDNO);
    });
    EXPECT_TRUE(IsOne(failures, {"has no button 4"}));
}
