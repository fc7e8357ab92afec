// Minimised windows.
#include "WindowTrace.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{
using Lines = std::vector<std::string>;

constexpr DWORD kSizable = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
constexpr const char* kAway = "-32000,-32000 160x24";

std::string PlaceOf(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
           std::to_string(rect.right - rect.left) + "x" + std::to_string(rect.bottom - rect.top);
}

bool HasState(HWND window, DWORD state)
{
    return (static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) & (WS_MINIMIZE | WS_MAXIMIZE)) == state;
}

// A window "b" at 30, 40, with a child "c", above another window "a".
class WindowMinimised : public ::testing::Test
{
protected:
    WindowMinimised()
    {
        trace.only = {WM_SIZE, WM_MOVE, WM_SHOWWINDOW, WM_ACTIVATE};
        trace.onMessage = [this](HWND, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
            if (message == WM_SIZE)
                state = wParam;
            return std::nullopt;
        };
        ShowWindow(other, SW_SHOWNORMAL);
        ShowWindow(window, SW_SHOWNORMAL);
        MoveWindow(window, 30, 40, 250, 150, FALSE);
        trace.Take();
    }

    WindowTrace trace;
    WPARAM state = 99; ///< of the last WM_SIZE
    HWND other = trace.Make(L"a", kSizable);
    HWND window = trace.Make(L"b", kSizable);
    HWND child = trace.Make(L"c", WS_CHILD | WS_VISIBLE, window);
};
} // namespace

TEST_F(WindowMinimised, IsFarAwayAndHasNoClientArea)
{
    EXPECT_TRUE(ShowWindow(window, SW_MINIMIZE));
    EXPECT_EQ(trace.Take(), (Lines{"b WM_MOVE -32000,-32000", "b WM_SIZE 0x0"}));
    EXPECT_EQ(state, static_cast<WPARAM>(SIZE_MINIMIZED));
    EXPECT_EQ(PlaceOf(window), kAway);
    RECT inside{1, 1, 1, 1};
    GetClientRect(window, &inside);
    EXPECT_EQ(inside.right, 0);
    EXPECT_EQ(inside.bottom, 0);
    EXPECT_TRUE(HasState(window, WS_MINIMIZE));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(IsWindowVisible(child));
}

TEST_F(WindowMinimised, MinimisingItAgainDoesNothing)
{
    ShowWindow(window, SW_MINIMIZE);
    trace.Take();
    EXPECT_TRUE(ShowWindow(window, SW_MINIMIZE));
    EXPECT_TRUE(ShowWindow(window, SW_SHOW));
    EXPECT_EQ(trace.Take(), Lines{});
    EXPECT_EQ(PlaceOf(window), kAway);
}

TEST_F(WindowMinimised, IsRestoredToItsFormerPosition)
{
    for (const int how : {SW_RESTORE, SW_SHOWNORMAL})
    {
        ShowWindow(window, SW_MINIMIZE);
        trace.Take();
        EXPECT_TRUE(ShowWindow(window, how));
        EXPECT_EQ(trace.Take(), (Lines{"b WM_MOVE 34,63", "b WM_SIZE 242x123", "b WM_ACTIVATE 1 -"}));
        EXPECT_EQ(state, static_cast<WPARAM>(SIZE_RESTORED));
        EXPECT_EQ(PlaceOf(window), "30,40 250x150");
        EXPECT_TRUE(HasState(window, 0));
    }
}

TEST_F(WindowMinimised, ChildrenKeepTheirPositionInside)
{
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_EQ(PlaceOf(child), "-31990,-31980 300x200");
    POINT origin{0, 0};
    MapWindowPoints(child, window, &origin, 1);
    EXPECT_EQ(origin.x, 10);
    EXPECT_EQ(origin.y, 20);
    MoveWindow(child, 5, 6, 70, 80, FALSE);
    ShowWindow(window, SW_RESTORE);
    EXPECT_EQ(PlaceOf(child), "39,69 70x80");
}

TEST_F(WindowMinimised, CannotBeMoved)
{
    ShowWindow(window, SW_MINIMIZE);
    trace.Take();
    MoveWindow(window, 35, 45, 255, 155, FALSE);
    EXPECT_EQ(PlaceOf(window), kAway);
    EXPECT_EQ(trace.Take(), Lines{});
    ShowWindow(window, SW_RESTORE);
    EXPECT_EQ(PlaceOf(window), "30,40 250x150");
}

TEST_F(WindowMinimised, IsRestoredToItsMaximisedSize)
{
    ShowWindow(window, SW_MAXIMIZE);
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_TRUE(HasState(window, WS_MINIMIZE));
    trace.Take();
    ShowWindow(window, SW_RESTORE);
    EXPECT_EQ(trace.Take(), (Lines{"b WM_MOVE 0,19", "b WM_SIZE 1024x749", "b WM_ACTIVATE 1 -"}));
    EXPECT_TRUE(HasState(window, WS_MAXIMIZE));
    ShowWindow(window, SW_RESTORE);
    EXPECT_EQ(PlaceOf(window), "30,40 250x150");
}

TEST_F(WindowMinimised, CanBeMaximised)
{
    ShowWindow(window, SW_MINIMIZE);
    ShowWindow(window, SW_MAXIMIZE);
    EXPECT_EQ(state, static_cast<WPARAM>(SIZE_MAXIMIZED));
    EXPECT_TRUE(HasState(window, WS_MAXIMIZE));
    EXPECT_EQ(PlaceOf(window), "-4,-4 1032x776");
    ShowWindow(window, SW_RESTORE);
    EXPECT_EQ(PlaceOf(window), "30,40 250x150");
}

TEST_F(WindowMinimised, TheSystemMenuDoesTheSame)
{
    SendMessageW(window, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    EXPECT_TRUE(HasState(window, WS_MINIMIZE));
    SendMessageW(window, WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_TRUE(HasState(window, 0));
}

TEST_F(WindowMinimised, AHiddenWindowIsShownAndNotActivated)
{
    ShowWindow(window, SW_HIDE);
    trace.Take();
    EXPECT_FALSE(ShowWindow(window, SW_MINIMIZE));
    EXPECT_EQ(trace.Take(), (Lines{"b WM_MOVE -32000,-32000", "b WM_SIZE 0x0"}));
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(GetActiveWindow(), other);
}

TEST_F(WindowMinimised, StaysMinimisedWhileItIsHidden)
{
    ShowWindow(window, SW_MINIMIZE);
    ShowWindow(window, SW_HIDE);
    EXPECT_TRUE(HasState(window, WS_MINIMIZE));
    ShowWindow(window, SW_SHOW);
    EXPECT_EQ(PlaceOf(window), kAway);
}

TEST_F(WindowMinimised, HasTheFocusOnlyWhenItIsRestored)
{
    SetFocus(window);
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_NE(GetFocus(), window);
    SetFocus(child);
    EXPECT_NE(GetFocus(), child);
    ShowWindow(window, SW_RESTORE);
    EXPECT_EQ(trace.Standing(), "active b, focus b");
}

TEST_F(WindowMinimised, ItsStyleCanBeChanged)
{
    ShowWindow(window, SW_MINIMIZE);
    SetWindowLongW(window, GWL_STYLE, GetWindowLongW(window, GWL_STYLE) & ~static_cast<LONG>(WS_SYSMENU));
    EXPECT_TRUE(HasState(window, WS_MINIMIZE));
}

TEST_F(WindowMinimised, CanBeDestroyedWhileItIsMinimised)
{
    trace.onMessage = [this](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_SIZE)
            DestroyWindow(window);
        return std::nullopt;
    };
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_FALSE(IsWindow(window));
}
