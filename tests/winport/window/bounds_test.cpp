// The least and the greatest size of a window, and the maximised one.
#include "WindowTrace.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace
{
constexpr DWORD kSizable = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;

std::string Pair(LONG one, LONG other)
{
    return std::to_string(one) + "," + std::to_string(other);
}

// Records in one line the messages about a window's size: "ask changing changed move(0,19) size(2 1024x749)".
class WindowBounds : public ::testing::Test
{
protected:
    WindowBounds()
    {
        trace.onMessage = [this](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
            return Write(message, wParam, lParam);
        };
    }

    HWND MakeShown(DWORD style = kSizable)
    {
        const HWND window = trace.Make(L"a", style);
        ShowWindow(window, SW_SHOWNORMAL);
        MoveWindow(window, 30, 40, 250, 150, FALSE);
        m_line.clear();
        return window;
    }
    std::string Line() { return std::exchange(m_line, {}); }

    /// The bounds that a window is given from now on.
    void Limit(POINT least, POINT greatest)
    {
        limit = [=](MINMAXINFO& bounds) {
            bounds.ptMinTrackSize = least;
            bounds.ptMaxTrackSize = greatest;
        };
    }

    static std::string PlaceOf(HWND window)
    {
        RECT rect{};
        GetWindowRect(window, &rect);
        return Pair(rect.left, rect.top) + " " + std::to_string(rect.right - rect.left) + "x" +
               std::to_string(rect.bottom - rect.top);
    }
    static bool IsMaximised(HWND window)
    {
        return (GetWindowLongW(window, GWL_STYLE) & static_cast<LONG>(WS_MAXIMIZE)) != 0;
    }
    static void Command(HWND window, WPARAM command) { SendMessageW(window, WM_SYSCOMMAND, command, 0); }

    WindowTrace trace;
    std::function<void(MINMAXINFO&)> limit;
    std::string asked; ///< what the system offered last

private:
    std::optional<LRESULT> Write(UINT message, WPARAM wParam, LPARAM lParam)
    {
        const std::string size = std::to_string(LOWORD(lParam)) + "x" + std::to_string(HIWORD(lParam));
        switch (message)
        {
        case WM_GETMINMAXINFO:
            return Ask(*reinterpret_cast<MINMAXINFO*>(lParam));
        case WM_WINDOWPOSCHANGING:
            m_line += " changing";
            break;
        case WM_WINDOWPOSCHANGED:
            m_line += " changed";
            break;
        case WM_MOVE:
            m_line +=
                " move(" + Pair(static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))) + ")";
            break;
        case WM_SIZE:
            m_line += " size(" + std::to_string(wParam) + " " + size + ")";
            break;
        case WM_SHOWWINDOW:
            m_line += " show";
            break;
        case WM_NCCREATE:
            m_line += " create";
            break;
        default:
            break;
        }
        return std::nullopt;
    }
    std::optional<LRESULT> Ask(MINMAXINFO& bounds)
    {
        m_line += " ask";
        asked = "size " + Pair(bounds.ptMaxSize.x, bounds.ptMaxSize.y) + " at " +
                Pair(bounds.ptMaxPosition.x, bounds.ptMaxPosition.y) + " least " +
                Pair(bounds.ptMinTrackSize.x, bounds.ptMinTrackSize.y) + " greatest " +
                Pair(bounds.ptMaxTrackSize.x, bounds.ptMaxTrackSize.y);
        if (limit)
            limit(bounds);
        return limit ? std::optional<LRESULT>(0) : std::nullopt;
    }

    std::string m_line;
};
} // namespace

TEST_F(WindowBounds, AreAskedForBeforeAWindowWithASizingFrameBegins)
{
    trace.Make(L"a", kSizable);
    EXPECT_EQ(Line(), " ask create size(0 292x173) move(14,43)");
    EXPECT_EQ(asked, "size 1032,776 at -4,-4 least 116,27 greatest 1036,780");
    trace.Make(L"b", WS_POPUP | WS_THICKFRAME);
    EXPECT_EQ(asked, "size 1030,774 at -3,-3 least 6,6 greatest 1036,780");
    Line();
    trace.Make(L"c", WS_OVERLAPPEDWINDOW);
    EXPECT_EQ(Line(), " ask create");
}

TEST_F(WindowBounds, AreNotAskedForWithoutASizingFrame)
{
    trace.Make(L"a", WS_POPUP | WS_CAPTION);
    EXPECT_EQ(Line(), " create size(0 294x175) move(13,42)");
    const HWND window = MakeShown(WS_POPUP | WS_CAPTION);
    MoveWindow(window, 30, 40, 4000, 10, FALSE);
    EXPECT_EQ(PlaceOf(window), "30,40 4000x10");
    EXPECT_EQ(Line().find("ask"), std::string::npos);
}

TEST_F(WindowBounds, AreAskedForWithEachChangeOfSize)
{
    const HWND window = MakeShown();
    MoveWindow(window, 30, 40, 260, 150, FALSE);
    EXPECT_EQ(Line(), " changing ask changed size(0 252x123)");
    SetWindowPos(window, nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_EQ(Line(), " changing changed move(9,28)");
}

TEST_F(WindowBounds, OfTheSystemAreTheFrameAndABitMoreThanTheScreen)
{
    const HWND window = MakeShown();
    MoveWindow(window, 30, 40, 10, 10, FALSE);
    EXPECT_EQ(PlaceOf(window), "30,40 116x27");
    MoveWindow(window, 30, 40, 4000, 3000, FALSE);
    EXPECT_EQ(PlaceOf(window), "30,40 1036x780");
}

TEST_F(WindowBounds, OfTheWindowLimitItsSize)
{
    const HWND window = MakeShown();
    Limit({200, 180}, {500, 400});
    MoveWindow(window, 30, 40, 150, 150, FALSE);
    EXPECT_EQ(PlaceOf(window), "30,40 200x180");
    MoveWindow(window, 30, 40, 1500, 1500, FALSE);
    EXPECT_EQ(PlaceOf(window), "30,40 500x400");
    EXPECT_EQ(PlaceOf(trace.Make(L"b", kSizable)), "10,20 300x200");
    Limit({320, 240}, {500, 400});
    EXPECT_EQ(PlaceOf(trace.Make(L"c", kSizable)), "10,20 320x240");
}

TEST_F(WindowBounds, AMaximisedWindowFillsTheScreen)
{
    const HWND window = MakeShown();
    Command(window, SC_MAXIMIZE);
    EXPECT_EQ(Line(), " ask changing ask changed move(0,19) size(2 1024x749)");
    EXPECT_EQ(PlaceOf(window), "-4,-4 1032x776");
    EXPECT_TRUE(IsMaximised(window));
    Command(window, SC_MAXIMIZE);
    EXPECT_EQ(Line(), "");
}

TEST_F(WindowBounds, ARestoredWindowHasItsFormerPlace)
{
    const HWND window = MakeShown();
    Command(window, SC_MAXIMIZE);
    Line();
    Command(window, SC_RESTORE);
    EXPECT_EQ(Line(), " changing ask changed move(34,63) size(0 242x123)");
    EXPECT_EQ(PlaceOf(window), "30,40 250x150");
    EXPECT_FALSE(IsMaximised(window));
    Command(window, SC_RESTORE);
    EXPECT_EQ(Line(), "");
}

TEST_F(WindowBounds, NeitherNeedsABoxInTheCaptionOrASizingFrame)
{
    for (const DWORD style : {WS_POPUP | WS_CAPTION, WS_POPUP | 0U})
    {
        const HWND window = MakeShown(style);
        Command(window, SC_MAXIMIZE);
        EXPECT_TRUE(IsMaximised(window));
        EXPECT_EQ(PlaceOf(window), style == WS_POPUP ? "0,0 1024x768" : "-3,-3 1030x774");
        Command(window, SC_RESTORE);
        EXPECT_EQ(PlaceOf(window), "30,40 250x150");
    }
}

TEST_F(WindowBounds, AMaximisedWindowMayBeMovedAndForgetsIt)
{
    const HWND window = MakeShown();
    ShowWindow(window, SW_SHOWMAXIMIZED);
    Line();
    MoveWindow(window, 35, 45, 255, 155, FALSE);
    EXPECT_EQ(Line(), " changing ask changed move(39,68) size(2 247x128)");
    ShowWindow(window, SW_RESTORE);
    EXPECT_EQ(PlaceOf(window), "30,40 250x150");
}

TEST_F(WindowBounds, AMaximisedWindowStaysSoWhileItIsHidden)
{
    const HWND window = MakeShown();
    ShowWindow(window, SW_MAXIMIZE);
    ShowWindow(window, SW_HIDE);
    EXPECT_TRUE(IsMaximised(window));
    ShowWindow(window, SW_SHOW);
    EXPECT_EQ(PlaceOf(window), "-4,-4 1032x776");
    ShowWindow(window, SW_SHOWNORMAL);
    EXPECT_EQ(PlaceOf(window), "30,40 250x150");
}

TEST_F(WindowBounds, AHiddenWindowIsShownMaximised)
{
    const HWND window = trace.Make(L"a", kSizable);
    Line();
    ShowWindow(window, SW_SHOWMAXIMIZED);
    EXPECT_EQ(Line(), " ask changing ask changed move(0,19) size(2 1024x749)");
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(GetActiveWindow(), window);
}

TEST_F(WindowBounds, TheGreatestSizeLimitsAMaximisedWindow)
{
    const HWND window = MakeShown();
    Limit({200, 180}, {500, 400});
    Command(window, SC_MAXIMIZE);
    EXPECT_EQ(PlaceOf(window), "-4,-4 500x400");
    EXPECT_EQ(Line(), " ask changing ask changed move(0,19) size(2 492x373)");
}

TEST_F(WindowBounds, AMaximisedWindowOfTheSameSizeIsSentItsSize)
{
    const HWND window = MakeShown();
    limit = [](MINMAXINFO& bounds) {
        bounds.ptMaxSize = {250, 150};
        bounds.ptMaxPosition = {30, 40};
    };
    Command(window, SC_MAXIMIZE);
    EXPECT_EQ(Line(), " ask changing ask changed size(2 242x123)");
}

TEST_F(WindowBounds, TheStyleOfAMaximisedWindowMayBeChanged)
{
    const HWND window = MakeShown();
    Command(window, SC_MAXIMIZE);
    SetWindowLongW(window, GWL_STYLE, GetWindowLongW(window, GWL_STYLE) & ~static_cast<LONG>(WS_SYSMENU));
    EXPECT_TRUE(IsMaximised(window));
}

TEST_F(WindowBounds, AWindowMayBeDestroyedWhenItIsAskedForThem)
{
    const HWND window = MakeShown();
    limit = [&](MINMAXINFO&) {
        DestroyWindow(window);
    };
    Command(window, SC_MAXIMIZE);
    EXPECT_FALSE(IsWindow(window));
}
