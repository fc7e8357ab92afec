// Which windows a message box disables.
#include "ActiveWindow.h"
#include "BoxAnswers.h"
#include "MessageBoxes.h"

#include <gtest/gtest.h>

TEST(MessageBoxModality, LeavesTheActiveWindowUnusable)
{
    const ActiveWindow window;
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDOK, [&] { EXPECT_FALSE(IsWindowEnabled(window.Handle())); });
    window.Activate();
    CoOkBox(nullptr, L"Title", L"Text", 0);
    EXPECT_TRUE(IsWindowEnabled(window.Handle()));
}

TEST(MessageBoxModality, LeavesNoWindowOfTheThreadUsableWhenNoneIsActive)
{
    const ActiveWindow window;
    BoxAnswers boxes;
    boxes.Expect(L"Title", L"Text", IDOK, [&] { EXPECT_FALSE(IsWindowEnabled(window.Handle())); });
    SetActiveWindow(nullptr);
    ASSERT_EQ(GetActiveWindow(), nullptr);
    CoOkBox(nullptr, L"Title", L"Text", 0);
    EXPECT_TRUE(IsWindowEnabled(window.Handle()));
}
