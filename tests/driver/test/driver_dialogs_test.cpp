// Which dialog gets which steps, and when.
#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "SmallDialog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
bool IsClicked(UINT message, WPARAM wParam, int id)
{
    return message == WM_COMMAND && wParam == MAKEWPARAM(id, BN_CLICKED);
}

void ClickOk(DialogView& view)
{
    view.Click(IDOK);
}

// Opens another dialog when Again is pressed.
INT_PTR OpenAnother(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (!IsClicked(message, wParam, kAgain))
        return FALSE;
    RunSmallDialog({}, dialog);
    return TRUE;
}
} // namespace

TEST(DialogDriver, RunsTheStepsInTheirOrderInsideTheLoop)
{
    DialogDriver driver;
    std::vector<std::string> trace;
    driver.OnDialog({[&](DialogView&) { trace.emplace_back("one"); },
                     [&](DialogView&) { trace.emplace_back("two"); },
                     [&](DialogView& view) {
                         trace.emplace_back("three");
                         view.Click(IDOK);
                     }});
    EXPECT_FALSE(driver.AllShown());
    EXPECT_EQ(RunSmallDialog(), IDOK);
    EXPECT_EQ(trace, (std::vector<std::string>{"one", "two", "three"}));
    EXPECT_TRUE(driver.AllShown());
}

TEST(DialogDriver, ServesOneDialogAfterAnother)
{
    DialogDriver driver;
    driver.OnDialog({ClickOk});
    driver.OnDialog({Presses(IDCANCEL)});
    EXPECT_EQ(RunSmallDialog(), IDOK);
    EXPECT_EQ(RunSmallDialog(), IDCANCEL);
}

TEST(DialogDriver, RunsAStepWhenWhatTheStepBeforePostedIsDone)
{
    DialogDriver driver;
    int posted = 0;
    int seen = -1;
    driver.OnDialog({[&](DialogView& view) { PostMessageW(view.Window(), WM_APP, 5, 0); },
                     [&](DialogView&) { seen = posted; }, ClickOk});
    // Each message posts the next one, as a chain of handlers does.
    const auto count = [&](HWND dialog, UINT message, WPARAM left, LPARAM) -> INT_PTR {
        if (message != WM_APP)
            return FALSE;
        ++posted;
        if (left > 1)
            PostMessageW(dialog, WM_APP, left - 1, 0);
        return TRUE;
    };
    EXPECT_EQ(RunSmallDialog(count), IDOK);
    EXPECT_EQ(seen, 5);
}

TEST(DialogDriver, DoesNotWaitForTimersThatNeverEnd)
{
    DialogDriver driver;
    driver.OnDialog({[](DialogView&) {}, ClickOk});
    const auto tick = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            SetTimer(dialog, 7, 10, nullptr);
        return FALSE;
    };
    EXPECT_EQ(RunSmallDialog(tick), IDOK);
}

TEST(DialogDriver, ServesADialogThatAStepOpens)
{
    DialogDriver driver;
    std::vector<std::string> trace;
    driver.OnDialog({[&](DialogView& view) {
                         view.Click(kAgain);
                         trace.emplace_back("back");
                     },
                     [&](DialogView& view) {
                         trace.emplace_back("outer");
                         view.Click(IDCANCEL);
                     }});
    driver.OnDialog({[&](DialogView& view) {
        trace.emplace_back("inner");
        view.Click(IDOK);
    }});
    EXPECT_EQ(RunSmallDialog(OpenAnother), IDCANCEL);
    EXPECT_EQ(trace, (std::vector<std::string>{"inner", "back", "outer"}));
}

TEST(DialogDriver, ServesADialogThatAKeyOpens)
{
    DialogDriver driver;
    std::vector<int> trace;
    driver.OnDialog({[&](DialogView& view) { view.GiveFocus(kAgain); }, Types("Return"),
                     [&](DialogView& view) {
                         trace.push_back(2);
                         view.Click(IDOK);
                     }});
    driver.OnDialog({[&](DialogView& view) {
        trace.push_back(1);
        view.Click(IDOK);
    }});
    EXPECT_EQ(RunSmallDialog(OpenAnother), IDOK);
    EXPECT_EQ(trace, (std::vector<int>{1, 2}));
}

TEST(DialogDriver, ServesADialogThatOpensAnotherAtItsStart)
{
    DialogDriver driver;
    std::vector<HWND> order;
    const auto step = [&](DialogView& view) {
        order.push_back(GetWindow(view.Window(), GW_OWNER));
        view.Click(IDOK);
    };
    driver.OnDialog({step});
    driver.OnDialog({step});
    HWND outer = nullptr;
    const auto openAtOnce = [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            PostMessageW(dialog, WM_APP, 0, 0);
        if (message == WM_APP)
        {
            outer = dialog;
            RunSmallDialog({}, dialog);
        }
        return FALSE;
    };
    EXPECT_EQ(RunSmallDialog(openAtOnce), IDOK);
    EXPECT_EQ(order, (std::vector<HWND>{outer, nullptr}));
}

TEST(DialogDriver, LeavesMessageBoxesToTheirAnswers)
{
    DialogDriver driver;
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDYES);
    int answer = 0;
    driver.OnDialog({[&](DialogView& view) {
                         answer = MessageBoxW(view.Window(), L"Text", L"Title", MB_YESNO);
                         EXPECT_TRUE(boxes.AllShown());
                     },
                     ClickOk});
    EXPECT_EQ(RunSmallDialog(), IDOK);
    EXPECT_EQ(answer, IDYES);
}

TEST(BoxAnswers, TakesAnyBoxIfTheTextsDoNotMatter)
{
    BoxAnswers boxes;
    ShownBox seen;
    boxes.ExpectAny(IDNO, [&] { seen = boxes.Shown().back(); });
    EXPECT_FALSE(boxes.AllShown());
    EXPECT_EQ(MessageBoxW(nullptr, L"Text", L"Title", MB_YESNO), IDNO);
    EXPECT_TRUE(boxes.AllShown());
    EXPECT_EQ(seen.title, L"Title");
    EXPECT_EQ(seen.text, L"Text");
}

TEST(DialogDriver, WaitsForABoxThatAKeyOpens)
{
    DialogDriver driver;
    BoxAnswers boxes;
    std::vector<std::string> trace;
    boxes.Expect(L"Title", L"Text", IDOK, [&] { trace.emplace_back("box"); });
    driver.OnDialog({[](DialogView& view) { view.GiveFocus(kAgain); }, Types("Return"),
                     [&](DialogView& view) {
                         trace.emplace_back("dialog");
                         view.Click(IDOK);
                     }});
    const auto ask = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (!IsClicked(message, wParam, kAgain))
            return FALSE;
        MessageBoxW(dialog, L"Text", L"Title", MB_OK);
        return TRUE;
    };
    EXPECT_EQ(RunSmallDialog(ask), IDOK);
    EXPECT_EQ(trace, (std::vector<std::string>{"box", "dialog"}));
}

TEST(DialogDriver, ServesADialogThatABoxOpensMeanwhile)
{
    DialogDriver driver;
    BoxAnswers boxes;
    INT_PTR inner = 0;
    boxes.Expect(L"Title", L"Text", IDOK, [&] { inner = RunSmallDialog(); });
    driver.OnDialog({ClickOk});
    EXPECT_EQ(MessageBoxW(nullptr, L"Text", L"Title", MB_OK), IDOK);
    EXPECT_EQ(inner, IDOK);
}

TEST(DialogDriver, IsContentWithADialogWhoseProgramEnds)
{
    DialogDriver driver;
    driver.OnDialog({[](DialogView&) {
        PostQuitMessage(3);
    }});
    EXPECT_EQ(RunSmallDialog(), -1);
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 3u);
}
