// Message boxes and windows where there is no screen.
#include <winport_test.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace
{
struct Shown
{
    HWND owner = nullptr;
    std::wstring text;
    std::wstring title;
    UINT type = 0;
};

Shown g_shown;

int Answer(HWND owner, const wchar_t* text, const wchar_t* title, UINT type)
{
    g_shown = {owner, text, title, type};
    return IDNO;
}

HWND SomeWindow()
{
    static int window = 0;
    return reinterpret_cast<HWND>(&window);
}
} // namespace

TEST(Boxes, IsAnsweredByTheHook)
{
    EXPECT_EQ(WinportSetBoxHook(&Answer), nullptr);
    EXPECT_EQ(MessageBoxW(SomeWindow(), L"Really?", L"Title", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_EQ(g_shown.owner, SomeWindow());
    EXPECT_EQ(g_shown.text, L"Really?");
    EXPECT_EQ(g_shown.title, L"Title");
    EXPECT_EQ(g_shown.type, MB_YESNO | MB_ICONQUESTION);
    EXPECT_EQ(MessageBoxW(nullptr, nullptr, nullptr, MB_OK), IDNO);
    EXPECT_EQ(g_shown.text, L"");
    EXPECT_EQ(g_shown.title, L"Error");
    EXPECT_EQ(WinportSetBoxHook(nullptr), &Answer);
}

TEST(BoxesDeathTest, EndsTheRunWhenNobodyAnswers)
{
    EXPECT_DEATH(MessageBoxW(nullptr, L"What now?", L"Title", MB_OK),
                 "no test answers: \"What now\\?\", titled \"Title\"");
}

TEST(ActiveWindow, IsWhatTheTestSays)
{
    EXPECT_EQ(GetActiveWindow(), nullptr);
    EXPECT_FALSE(IsWindow(SomeWindow()));
    WinportSetActiveWindow(SomeWindow());
    EXPECT_EQ(GetActiveWindow(), SomeWindow());
    EXPECT_TRUE(IsWindow(SomeWindow()));
    std::thread([] { EXPECT_EQ(GetActiveWindow(), nullptr); }).join();
    WinportSetActiveWindow(nullptr);
    EXPECT_EQ(GetActiveWindow(), nullptr);
}
