// A message box whose buttons cannot be pressed.
#include <windows.h>

#include <gtest/gtest.h>

namespace
{
// The message that is posted to the box that opens, before No or OK.
UINT g_message = 0;
WPARAM g_key = 0;

void CALLBACK PostToBox(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    PostMessageW(g_message == WM_KEYDOWN ? GetFocus() : GetActiveWindow(), g_message, g_key, 1);
}

void CALLBACK SayNo(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    if (GetActiveWindow())
        SendMessageW(GetDlgItem(GetActiveWindow(), IDNO), BM_CLICK, 0, 0);
}

int Show(UINT type, UINT message, WPARAM key)
{
    g_message = message;
    g_key = key;
    SetTimer(nullptr, 0, 10, PostToBox);
    const UINT_PTR last = SetTimer(nullptr, 0, 50, SayNo);
    const int answer = MessageBoxW(nullptr, L"Text", L"Title", type);
    KillTimer(nullptr, last);
    return answer;
}
} // namespace

TEST(Boxes, AreLeftByEscapeAndTheCloseBoxWhereThereIsOkOnly)
{
    EXPECT_EQ(Show(MB_OK, WM_KEYDOWN, VK_ESCAPE), IDOK);
    EXPECT_EQ(Show(MB_OK, WM_SYSCOMMAND, SC_CLOSE), IDOK);
    EXPECT_EQ(Show(MB_OKCANCEL, WM_SYSCOMMAND, SC_CLOSE), IDCANCEL);
}

TEST(Boxes, AreLeftByNothingButTheirButtonsWithoutCancel)
{
    EXPECT_EQ(Show(MB_YESNO, WM_KEYDOWN, VK_ESCAPE), IDNO);
    EXPECT_EQ(Show(MB_YESNO, WM_SYSCOMMAND, SC_CLOSE), IDNO);
    EXPECT_EQ(Show(MB_YESNO, WM_CLOSE, 0), IDNO);
}

TEST(BoxesDeathTest, EndTheRunWithTheirTextWithoutAnAnswer)
{
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(MessageBoxW(nullptr, L"What now?", L"Title", MB_OK),
                 "that nobody can send.*\n#32770 .*\"Title\"\n(.*\n)*.*Static .*\"What now\\?\"");
}

TEST(BoxesDeathTest, EndTheRunAtUnsupportedButtons)
{
    constexpr UINT kTryContinue = 6;
    EXPECT_DEATH(MessageBoxW(nullptr, L"Text", L"Title", kTryContinue), "no buttons of a message box 0x6");
}
