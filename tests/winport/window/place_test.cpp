// Where windows are, what is inside them, and how they are moved, shown and stacked.
#include "WindowTrace.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;

constexpr UINT kStill = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

std::string TextOf(const RECT& rect)
{
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
           std::to_string(rect.right - rect.left) + "x" + std::to_string(rect.bottom - rect.top);
}

std::string PlaceOf(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    return TextOf(rect);
}

// Where the inside of a window lies in it, and how large it is.
std::string InsideOf(HWND window)
{
    RECT outer{};
    RECT inner{};
    POINT origin{0, 0};
    GetWindowRect(window, &outer);
    GetClientRect(window, &inner);
    MapWindowPoints(window, nullptr, &origin, 1);
    inner.left += origin.x - outer.left;
    inner.right += origin.x - outer.left;
    inner.top += origin.y - outer.top;
    inner.bottom += origin.y - outer.top;
    return TextOf(inner);
}

class WindowPlace : public ::testing::Test
{
protected:
    WindowPlace()
    {
        trace.only = {WM_SIZE, WM_MOVE, WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED};
    }

    std::string Inside(DWORD style, DWORD exStyle, HWND parent = nullptr)
    {
        return InsideOf(trace.Make(L"w", style, parent, exStyle));
    }

    WindowTrace trace;
};
} // namespace

TEST_F(WindowPlace, InsideIsWithoutTheFrame)
{
    EXPECT_EQ(Inside(WS_POPUP, 0), "0,0 300x200");
    EXPECT_EQ(Inside(WS_POPUP | WS_BORDER, 0), "1,1 298x198");
    EXPECT_EQ(Inside(WS_POPUP | WS_DLGFRAME, 0), "3,3 294x194");
    EXPECT_EQ(Inside(WS_POPUP | WS_CAPTION, 0), "3,22 294x175");
    EXPECT_EQ(Inside(WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME), "3,22 294x175");
    EXPECT_EQ(Inside(WS_POPUP | WS_CAPTION, WS_EX_TOOLWINDOW), "3,19 294x178");
    EXPECT_EQ(Inside(WS_OVERLAPPED, 0), "3,22 294x175");
    EXPECT_EQ(Inside(WS_OVERLAPPEDWINDOW, 0), "4,23 292x173");
    EXPECT_EQ(Inside(WS_POPUP | WS_THICKFRAME, 0), "3,3 294x194");
    EXPECT_EQ(Inside(WS_POPUP, WS_EX_DLGMODALFRAME), "3,3 294x194");
    EXPECT_EQ(Inside(WS_POPUP, WS_EX_CLIENTEDGE), "2,2 296x196");
    EXPECT_EQ(Inside(WS_POPUP, WS_EX_STATICEDGE), "1,1 298x198");
    EXPECT_EQ(Inside(WS_POPUP | WS_BORDER, WS_EX_STATICEDGE), "2,2 296x196");
    EXPECT_EQ(Inside(WS_POPUP | WS_VSCROLL, 0), "0,0 283x200");
    EXPECT_EQ(Inside(WS_POPUP | WS_HSCROLL, 0), "0,0 300x183");
}

TEST_F(WindowPlace, InsideOfAChildIsWithoutItsBorder)
{
    const HWND parent = trace.Make(L"p", WS_POPUP | WS_CAPTION);
    EXPECT_EQ(Inside(WS_CHILD, 0, parent), "0,0 300x200");
    EXPECT_EQ(Inside(WS_CHILD | WS_BORDER, 0, parent), "1,1 298x198");
    EXPECT_EQ(Inside(WS_CHILD, WS_EX_CLIENTEDGE, parent), "2,2 296x196");
    EXPECT_EQ(Inside(WS_CHILD | WS_BORDER, WS_EX_CLIENTEDGE, parent), "3,3 294x194");
    EXPECT_EQ(Inside(WS_CHILD | WS_BORDER | WS_VSCROLL, 0, parent), "1,1 281x198");
    EXPECT_EQ(Inside(WS_CHILD | WS_CAPTION, 0, parent), "3,22 294x175");
}

TEST_F(WindowPlace, StylesAreCompleted)
{
    const HWND popup = trace.Make(L"a", WS_POPUP | WS_CAPTION);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(popup, GWL_STYLE)), WS_POPUP | WS_CAPTION | WS_CLIPSIBLINGS);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(popup, GWL_EXSTYLE)), static_cast<DWORD>(WS_EX_WINDOWEDGE));
    const HWND overlapped = trace.Make(L"b", WS_OVERLAPPED, nullptr, WS_EX_TOOLWINDOW);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(overlapped, GWL_STYLE)), WS_CAPTION | WS_CLIPSIBLINGS);
    const HWND child = trace.Make(L"c", WS_CHILD, popup, WS_EX_WINDOWEDGE);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(child, GWL_STYLE)), static_cast<DWORD>(WS_CHILD));
    EXPECT_EQ(GetWindowLongW(child, GWL_EXSTYLE), 0);
}

TEST_F(WindowPlace, ADefaultPlaceIsForWindowsOfTheirOwn)
{
    const auto make = [&](DWORD style, HWND parent) {
        return PlaceOf(CreateWindowExW(0, WindowTrace::ClassName(), L"w", style, CW_USEDEFAULT, 0,
                                       CW_USEDEFAULT, 0, parent, nullptr, nullptr, nullptr));
    };
    EXPECT_EQ(make(WS_OVERLAPPED, nullptr), "0,0 768x576") << "three quarters of the screen";
    EXPECT_EQ(make(WS_POPUP, nullptr), "0,0 0x0");
    EXPECT_EQ(make(WS_CHILD, trace.Make(L"p", WS_POPUP | WS_CAPTION)), "13,42 0x0");
}

TEST_F(WindowPlace, ChildrenGoWithTheirParents)
{
    const HWND parent = trace.Make(L"p", WS_POPUP | WS_CAPTION);
    const HWND child = trace.Make(L"c", WS_CHILD, parent);
    const HWND inner = trace.Make(L"i", WS_CHILD | WS_BORDER, child);
    EXPECT_EQ(PlaceOf(child), "23,62 300x200");
    EXPECT_EQ(PlaceOf(inner), "33,82 300x200");
    trace.Take();
    MoveWindow(parent, 110, 120, 300, 200, FALSE);
    EXPECT_EQ(trace.Take(), (Lines{"p WM_WINDOWPOSCHANGING", "p WM_WINDOWPOSCHANGED", "p WM_MOVE 113,142"}));
    EXPECT_EQ(PlaceOf(child), "123,162 300x200");
    EXPECT_EQ(PlaceOf(inner), "133,182 300x200");
}

TEST_F(WindowPlace, MovesAndSizesAreSent)
{
    const HWND parent = trace.Make(L"p", WS_POPUP | WS_CAPTION);
    const HWND child = trace.Make(L"c", WS_CHILD | WS_BORDER, parent);
    trace.Take();
    EXPECT_TRUE(MoveWindow(child, 1, 2, 30, 40, TRUE));
    EXPECT_EQ(trace.Take(),
              (Lines{"c WM_WINDOWPOSCHANGING", "c WM_WINDOWPOSCHANGED", "c WM_MOVE 2,3", "c WM_SIZE 28x38"}));
    MoveWindow(child, 1, 2, 30, 50, TRUE);
    EXPECT_EQ(trace.Take(), (Lines{"c WM_WINDOWPOSCHANGING", "c WM_WINDOWPOSCHANGED", "c WM_SIZE 28x48"}));
    MoveWindow(child, 1, 3, 30, 50, TRUE);
    EXPECT_EQ(trace.Take(), (Lines{"c WM_WINDOWPOSCHANGING", "c WM_WINDOWPOSCHANGED", "c WM_MOVE 2,4"}));
    MoveWindow(child, 1, 3, 30, 50, TRUE);
    EXPECT_EQ(trace.Take(), (Lines{"c WM_WINDOWPOSCHANGING"}));
    SetWindowPos(child, nullptr, 7, 8, 9, 10,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
    EXPECT_EQ(trace.Take(), (Lines{"c WM_WINDOWPOSCHANGED", "c WM_MOVE 8,9"}));
    EXPECT_EQ(PlaceOf(child), "20,50 30x50");
    EXPECT_FALSE(MoveWindow(reinterpret_cast<HWND>(0x777), 0, 0, 0, 0, FALSE));
}

TEST_F(WindowPlace, MayBeChangedByTheWindow)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    trace.onMessage = [](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message == WM_WINDOWPOSCHANGING)
            reinterpret_cast<WINDOWPOS*>(lParam)->cx = 77;
        return std::nullopt;
    };
    MoveWindow(window, 1, 2, 30, 40, FALSE);
    EXPECT_EQ(PlaceOf(window), "1,2 77x40");
}

TEST_F(WindowPlace, HasALeastSizeWithASizingFrame)
{
    const auto smallest = [&](DWORD style) {
        const HWND window = trace.Make(L"w", style);
        MoveWindow(window, 0, 0, -3, 1, FALSE);
        return PlaceOf(window);
    };
    EXPECT_EQ(smallest(WS_OVERLAPPED), "0,0 116x27");
    EXPECT_EQ(smallest(WS_OVERLAPPEDWINDOW), "0,0 116x27");
    EXPECT_EQ(smallest(WS_POPUP | WS_THICKFRAME), "0,0 6x6");
    EXPECT_EQ(smallest(WS_POPUP | WS_CAPTION), "0,0 0x1");
    EXPECT_EQ(smallest(WS_POPUP), "0,0 0x1");
}

TEST_F(WindowPlace, AChangedFrameSendsASize)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    SetWindowLongW(window, GWL_STYLE, static_cast<LONG>(WS_POPUP | WS_BORDER));
    EXPECT_EQ(InsideOf(window), "0,0 300x200");
    trace.Take();
    SetWindowPos(window, nullptr, 0, 0, 0, 0, kStill | SWP_NOZORDER | SWP_FRAMECHANGED);
    EXPECT_EQ(InsideOf(window), "1,1 298x198");
    EXPECT_EQ(trace.Take(), (Lines{"a WM_WINDOWPOSCHANGING", "a WM_WINDOWPOSCHANGED", "a WM_MOVE 11,21",
                                   "a WM_SIZE 298x198"}));
}

TEST_F(WindowPlace, PointsGoFromOneWindowToAnother)
{
    const HWND parent = trace.Make(L"p", WS_POPUP | WS_CAPTION);
    const HWND child = trace.Make(L"c", WS_CHILD | WS_BORDER, parent);
    POINT point{5, 6};
    EXPECT_EQ(MapWindowPoints(child, nullptr, &point, 1), MAKELONG(24, 63));
    EXPECT_EQ(point.x, 29);
    EXPECT_EQ(point.y, 69);
    EXPECT_EQ(MapWindowPoints(nullptr, parent, &point, 1), MAKELONG(-13, -42));
    EXPECT_EQ(point.x, 16);
    EXPECT_EQ(point.y, 27);
    POINT points[2] = {{0, 0}, {1, 2}};
    EXPECT_EQ(MapWindowPoints(child, parent, points, 2), MAKELONG(11, 21));
    EXPECT_EQ(points[1].x, 12);
    EXPECT_EQ(points[1].y, 23);
    EXPECT_EQ(MapWindowPoints(nullptr, child, points, 1), MAKELONG(-24, -63));
    EXPECT_EQ(MapWindowPoints(GetAncestor(parent, GA_PARENT), nullptr, points, 1), 0);
    SetLastError(0);
    EXPECT_EQ(MapWindowPoints(reinterpret_cast<HWND>(0x777), parent, points, 1), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    RECT rect{1, 1, 2, 2};
    EXPECT_FALSE(GetWindowRect(reinterpret_cast<HWND>(0x777), &rect));
    EXPECT_FALSE(GetClientRect(reinterpret_cast<HWND>(0x777), &rect));
}

TEST_F(WindowPlace, APointIsInARectangleWithoutItsLastLines)
{
    const RECT rect{10, 20, 30, 40};
    EXPECT_TRUE(PtInRect(&rect, {10, 20}));
    EXPECT_TRUE(PtInRect(&rect, {29, 39}));
    EXPECT_FALSE(PtInRect(&rect, {30, 39}));
    EXPECT_FALSE(PtInRect(&rect, {29, 40}));
    EXPECT_FALSE(PtInRect(&rect, {9, 20}));
    EXPECT_FALSE(PtInRect(&rect, {10, 19}));
}

TEST_F(WindowPlace, HitTestKnowsTheInside)
{
    const HWND window = trace.Make(L"a", WS_POPUP | WS_CAPTION);
    constexpr LRESULT kNowhere = 0;
    constexpr LRESULT kClient = 1;
    EXPECT_EQ(SendMessageW(window, WM_NCHITTEST, 0, MAKELONG(100, 100)), kClient);
    EXPECT_EQ(SendMessageW(window, WM_NCHITTEST, 0, MAKELONG(5, 5)), kNowhere);
    EXPECT_GT(SendMessageW(window, WM_NCHITTEST, 0, MAKELONG(100, 30)), kClient);
}

TEST_F(WindowPlace, ShowingAndHidingAreSent)
{
    const HWND parent = trace.Make(L"p", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD | WS_VISIBLE, parent);
    EXPECT_FALSE(IsWindowVisible(child)); // its parent is hidden
    trace.Take();
    EXPECT_FALSE(ShowWindow(parent, SW_SHOWNA));
    EXPECT_TRUE(IsWindowVisible(child));
    EXPECT_EQ(trace.Take(), (Lines{"p WM_SHOWWINDOW 1", "p WM_WINDOWPOSCHANGING", "p WM_WINDOWPOSCHANGED"}));
    EXPECT_TRUE(ShowWindow(parent, SW_SHOW));
    EXPECT_EQ(trace.Take(), Lines{});
    EXPECT_TRUE(ShowWindow(child, SW_HIDE));
    EXPECT_EQ(trace.Take(), (Lines{"c WM_SHOWWINDOW 0", "c WM_WINDOWPOSCHANGING", "c WM_WINDOWPOSCHANGED"}));
    EXPECT_FALSE(ShowWindow(child, SW_HIDE));
    SetWindowPos(child, nullptr, 0, 0, 0, 0, kStill | SWP_NOZORDER | SWP_SHOWWINDOW);
    EXPECT_TRUE(IsWindowVisible(child));
    SetWindowPos(child, nullptr, 0, 0, 0, 0, kStill | SWP_NOZORDER | SWP_HIDEWINDOW);
    EXPECT_FALSE(IsWindowVisible(child));
    EXPECT_FALSE(ShowWindow(reinterpret_cast<HWND>(0x777), SW_SHOW));
    EXPECT_FALSE(IsWindowVisible(reinterpret_cast<HWND>(0x777)));
}

TEST_F(WindowPlace, WithoutRedrawingAWindowCountsAsHidden)
{
    const HWND window = trace.Make(L"a", WS_POPUP | WS_VISIBLE);
    EXPECT_EQ(SendMessageW(window, WM_SETREDRAW, FALSE, 0), 0);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(SendMessageW(window, WM_SETREDRAW, TRUE, 0), 0);
    EXPECT_TRUE(IsWindowVisible(window));
}

TEST_F(WindowPlace, PaintingOnlyNeedsAWindow)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    const auto none = reinterpret_cast<HWND>(0x777);
    EXPECT_TRUE(InvalidateRect(window, nullptr, TRUE));
    EXPECT_FALSE(InvalidateRect(none, nullptr, TRUE));
}

TEST_F(WindowPlace, NewWindowsAreOnTopAndNewChildrenAtTheBottom)
{
    const HWND first = trace.Make(L"a", WS_POPUP);
    trace.Make(L"b", WS_POPUP);
    EXPECT_EQ(trace.Order(), "b a");
    const HWND child = trace.Make(L"c", WS_CHILD, first);
    const HWND next = trace.Make(L"d", WS_CHILD, first);
    EXPECT_EQ(GetWindow(first, GW_CHILD), child);
    EXPECT_EQ(GetWindow(child, GW_HWNDNEXT), next);
}

TEST_F(WindowPlace, StackingMovesOneWindow)
{
    const HWND parent = trace.Make(L"p", WS_POPUP);
    const HWND children[] = {trace.Make(L"c", WS_CHILD, parent), trace.Make(L"d", WS_CHILD, parent),
                             trace.Make(L"e", WS_CHILD, parent)};
    const auto order = [&] {
        std::string names;
        for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            names += trace.NameOf(child);
        return names;
    };
    trace.Take();
    SetWindowPos(children[2], HWND_TOP, 0, 0, 0, 0, kStill);
    EXPECT_EQ(order(), "ecd");
    EXPECT_EQ(trace.Take(), (Lines{"e WM_WINDOWPOSCHANGING", "e WM_WINDOWPOSCHANGED"}));
    SetWindowPos(children[2], children[0], 0, 0, 0, 0, kStill);
    EXPECT_EQ(order(), "ced");
    SetWindowPos(children[0], HWND_BOTTOM, 0, 0, 0, 0, kStill);
    EXPECT_EQ(order(), "edc");
    SetWindowPos(children[0], HWND_TOP, 0, 0, 0, 0, kStill | SWP_NOZORDER);
    EXPECT_EQ(order(), "edc");
}

TEST_F(WindowPlace, OwnedWindowsStayAboveTheirOwner)
{
    const HWND owner = trace.Make(L"a", WS_POPUP | WS_VISIBLE);
    const HWND other = trace.Make(L"b", WS_POPUP | WS_VISIBLE);
    const HWND owned = trace.Make(L"o", WS_POPUP | WS_VISIBLE, owner);
    trace.Make(L"p", WS_POPUP | WS_VISIBLE, owner);
    EXPECT_EQ(trace.Order(), "p o b a");
    SetWindowPos(owner, HWND_TOP, 0, 0, 0, 0, kStill);
    EXPECT_EQ(trace.Order(), "p o a b");
    SetWindowPos(owned, HWND_BOTTOM, 0, 0, 0, 0, kStill);
    EXPECT_EQ(trace.Order(), "p o a b");
    SetWindowPos(owner, HWND_BOTTOM, 0, 0, 0, 0, kStill);
    EXPECT_EQ(trace.Order(), "p o b a");
    SetWindowPos(other, HWND_TOP, 0, 0, 0, 0, kStill);
    EXPECT_EQ(trace.Order(), "b p o a");
    SetWindowPos(owned, HWND_TOP, 0, 0, 0, 0, kStill);
    EXPECT_EQ(trace.Order(), "o b p a");
    SetWindowPos(owner, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER); // activates
    EXPECT_EQ(trace.Order(), "o p a b");
}
