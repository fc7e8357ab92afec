// Activation and the focus.
#include "WindowTrace.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;

constexpr DWORD kTop = WS_POPUP | WS_VISIBLE;
constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;

class WindowFocus : public ::testing::Test
{
protected:
    WindowFocus()
    {
        trace.only = {WM_NCACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS, WM_ENABLE, WM_CANCELMODE};
    }

    WindowTrace trace;
};
} // namespace

TEST_F(WindowFocus, NoWindowIsActiveWithoutAWindow)
{
    EXPECT_EQ(trace.Standing(), "active -, focus -");
    trace.Make(L"a", WS_POPUP);
    EXPECT_EQ(trace.Standing(), "active -, focus -");
}

TEST_F(WindowFocus, GoesFromOneChildToAnother)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND first = trace.Make(L"c", kChild, window);
    const HWND second = trace.Make(L"d", kChild, window);
    trace.Take();
    EXPECT_EQ(SetFocus(first), window);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_KILLFOCUS c", "c WM_SETFOCUS a"}));
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_EQ(trace.Take(), (Lines{"c WM_KILLFOCUS d", "d WM_SETFOCUS c"}));
    EXPECT_EQ(SetFocus(second), second);
    EXPECT_EQ(trace.Take(), Lines{});
    EXPECT_EQ(SetFocus(nullptr), second);
    EXPECT_EQ(trace.Take(), (Lines{"d WM_KILLFOCUS -"}));
    EXPECT_EQ(trace.Standing(), "active a, focus -");
}

TEST_F(WindowFocus, IsAlreadySetWhenTheOldWindowIsNotified)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND child = trace.Make(L"c", kChild, window);
    std::string seen;
    trace.onMessage = [&](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_KILLFOCUS || message == WM_SETFOCUS)
            seen += trace.NameOf(GetFocus()) + " ";
        return std::nullopt;
    };
    SetFocus(child);
    EXPECT_EQ(seen, "c c ");
}

TEST_F(WindowFocus, IsNotGivenToDisabledWindows)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND outer = trace.Make(L"outer", kChild | WS_DISABLED, window);
    const HWND inner = trace.Make(L"inner", kChild, outer);
    EXPECT_EQ(SetFocus(outer), nullptr);
    EXPECT_EQ(SetFocus(inner), nullptr);
    EXPECT_EQ(trace.Standing(), "active a, focus a");
    EXPECT_EQ(SetFocus(reinterpret_cast<HWND>(0x777)), nullptr);
    EXPECT_EQ(trace.Standing(), "active a, focus a");
}

TEST_F(WindowFocus, IsGivenToHiddenWindows)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND hidden = trace.Make(L"h", WS_CHILD, window);
    EXPECT_EQ(SetFocus(hidden), window);
    EXPECT_EQ(trace.Standing(), "active a, focus h");
    const HWND other = trace.Make(L"b", WS_POPUP);
    SetFocus(other);
    EXPECT_EQ(trace.Standing(), "active b, focus b");
}

TEST_F(WindowFocus, ActivatesTheWindowAround)
{
    const HWND first = trace.Make(L"a", kTop);
    const HWND child = trace.Make(L"c", kChild, first);
    trace.Make(L"b", kTop);
    trace.Take();
    SetFocus(child);
    EXPECT_EQ(trace.Take(),
              (Lines{"b WM_NCACTIVATE 0", "b WM_ACTIVATE 0 a", "a WM_NCACTIVATE 1", "a WM_ACTIVATE 1 b",
                     "b WM_KILLFOCUS a", "a WM_SETFOCUS b", "a WM_KILLFOCUS c", "c WM_SETFOCUS a"}));
    EXPECT_EQ(trace.Standing(), "active a, focus c");
}

TEST_F(WindowFocus, FollowsActivation)
{
    const HWND first = trace.Make(L"a", kTop);
    const HWND second = trace.Make(L"b", kTop);
    trace.Take();
    EXPECT_EQ(SetActiveWindow(first), second);
    EXPECT_EQ(trace.Take(), (Lines{"b WM_NCACTIVATE 0", "b WM_ACTIVATE 0 a", "a WM_NCACTIVATE 1",
                                   "a WM_ACTIVATE 1 b", "b WM_KILLFOCUS a", "a WM_SETFOCUS b"}));
    EXPECT_EQ(SetActiveWindow(first), first);
    EXPECT_EQ(trace.Take(), Lines{});
    EXPECT_EQ(SetActiveWindow(reinterpret_cast<HWND>(0x777)), nullptr);
    EXPECT_EQ(trace.Standing(), "active a, focus a");
}

TEST_F(WindowFocus, MayBePutOnAChildByTheWindowThatIsActivated)
{
    const HWND first = trace.Make(L"a", kTop);
    const HWND child = trace.Make(L"c", kChild, first);
    const HWND second = trace.Make(L"b", kTop);
    trace.Take();
    trace.onMessage = [&](HWND window, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (window != first || message != WM_ACTIVATE || LOWORD(wParam) == WA_INACTIVE)
            return std::nullopt;
        SetFocus(child);
        return 0;
    };
    SetActiveWindow(first);
    EXPECT_EQ(trace.Standing(), "active a, focus c");
    EXPECT_EQ(trace.Take(), (Lines{"b WM_NCACTIVATE 0", "b WM_ACTIVATE 0 a", "a WM_NCACTIVATE 1",
                                   "a WM_ACTIVATE 1 b", "b WM_KILLFOCUS c", "c WM_SETFOCUS b"}));
    trace.onMessage = [&](HWND, UINT message, WPARAM, LPARAM) {
        return message == WM_ACTIVATE ? std::optional<LRESULT>(0) : std::nullopt;
    };
    SetActiveWindow(second);
    EXPECT_EQ(trace.Standing(), "active b, focus b"); // it does not stay in another window
}

TEST_F(WindowFocus, StaysWhereItIsWhenNothingIsTakenAway)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND outer = trace.Make(L"outer", kChild, window);
    const HWND inner = trace.Make(L"inner", kChild, outer);
    SetFocus(inner);
    EnableWindow(outer, FALSE);
    EXPECT_EQ(trace.Standing(), "active a, focus inner");
    EnableWindow(outer, TRUE);
    ShowWindow(outer, SW_HIDE);
    EXPECT_EQ(trace.Standing(), "active a, focus inner");
}

TEST_F(WindowFocus, LeavesADisabledWindow)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND child = trace.Make(L"c", kChild, window);
    SetFocus(child);
    trace.Take();
    EXPECT_FALSE(EnableWindow(child, FALSE));
    EXPECT_EQ(trace.Take(), (Lines{"c WM_CANCELMODE", "c WM_KILLFOCUS -", "c WM_ENABLE 0"}));
    EXPECT_FALSE(IsWindowEnabled(child));
    EXPECT_TRUE(EnableWindow(child, FALSE));
    trace.Take();
    EXPECT_TRUE(EnableWindow(child, TRUE));
    EXPECT_EQ(trace.Take(), (Lines{"c WM_ENABLE 1"}));
    EXPECT_FALSE(EnableWindow(child, TRUE));
    EXPECT_EQ(trace.Standing(), "active a, focus -");
}

TEST_F(WindowFocus, GoesToTheParentOfAHiddenOrDestroyedWindow)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND outer = trace.Make(L"outer", kChild, window);
    const HWND inner = trace.Make(L"inner", kChild, outer);
    SetFocus(inner);
    trace.Take();
    ShowWindow(inner, SW_HIDE);
    EXPECT_EQ(trace.Take(), (Lines{"inner WM_KILLFOCUS outer", "outer WM_SETFOCUS inner"}));
    DestroyWindow(outer);
    EXPECT_EQ(trace.Take(), (Lines{"outer WM_KILLFOCUS a", "a WM_SETFOCUS outer"}));
    EXPECT_EQ(trace.Standing(), "active a, focus a");
}

TEST_F(WindowFocus, IsLostWithTheParentOfItsWindow)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND outer = trace.Make(L"outer", kChild, window);
    SetFocus(trace.Make(L"inner", kChild, outer));
    DestroyWindow(outer);
    EXPECT_EQ(trace.Standing(), "active a, focus -");
}

TEST_F(WindowFocus, StaysInsideAWindowThatIsHiddenOrDisabled)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND outer = trace.Make(L"outer", kChild, window);
    SetFocus(trace.Make(L"inner", kChild, outer));
    trace.Take();
    ShowWindow(outer, SW_HIDE);
    EnableWindow(outer, FALSE);
    EXPECT_EQ(trace.Standing(), "active a, focus inner");
}

TEST_F(WindowFocus, ReturnsToTheOwner)
{
    const HWND owner = trace.Make(L"a", kTop);
    SetFocus(trace.Make(L"c", kChild, owner));
    const HWND owned = trace.Make(L"o", kTop, owner);
    trace.Make(L"other", kTop);
    SetActiveWindow(owned);
    trace.Take();
    ShowWindow(owned, SW_HIDE);
    EXPECT_EQ(trace.Take(), (Lines{"o WM_NCACTIVATE 0", "o WM_ACTIVATE 0 a", "a WM_NCACTIVATE 1",
                                   "a WM_ACTIVATE 1 o", "o WM_KILLFOCUS a", "a WM_SETFOCUS o"}));
    ShowWindow(owned, SW_SHOW);
    EXPECT_EQ(trace.Standing(), "active o, focus o");
    DestroyWindow(owned);
    EXPECT_EQ(trace.Standing(), "active a, focus a");
}

TEST_F(WindowFocus, GoesToTheNextWindowWhenTheOwnerCannotTakeIt)
{
    const HWND next = trace.Make(L"n", kTop);
    trace.Make(L"disabled", kTop | WS_DISABLED);
    trace.Make(L"hidden", WS_POPUP);
    const HWND owner = trace.Make(L"a", kTop);
    const HWND owned = trace.Make(L"o", kTop, owner);
    EnableWindow(owner, FALSE);
    DestroyWindow(owned);
    EXPECT_EQ(trace.Standing(), "active n, focus n");
    EnableWindow(owner, TRUE);
    SetActiveWindow(owner);
    DestroyWindow(next);
    trace.Take();
    ShowWindow(owner, SW_HIDE);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_NCACTIVATE 0", "a WM_ACTIVATE 0 -", "a WM_KILLFOCUS -"}));
    EXPECT_EQ(trace.Standing(), "active -, focus -");
}

TEST_F(WindowFocus, StaysWithAnActiveWindowThatIsDisabled)
{
    const HWND window = trace.Make(L"a", kTop);
    trace.Take();
    EnableWindow(window, FALSE);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_CANCELMODE", "a WM_KILLFOCUS -", "a WM_ENABLE 0"}));
    EXPECT_EQ(trace.Standing(), "active a, focus -");
}

TEST_F(WindowFocus, ComesWithShowingUnlessTheCallForbidsIt)
{
    trace.Make(L"a", kTop);
    const HWND other = trace.Make(L"b", WS_POPUP);
    EXPECT_FALSE(ShowWindow(other, SW_SHOWNA));
    EXPECT_EQ(trace.Standing(), "active a, focus a");
    EXPECT_TRUE(ShowWindow(other, SW_HIDE));
    EXPECT_FALSE(ShowWindow(other, SW_SHOWNOACTIVATE));
    EXPECT_EQ(trace.Standing(), "active a, focus a");
    EXPECT_TRUE(ShowWindow(other, SW_HIDE));
    EXPECT_FALSE(ShowWindow(other, SW_SHOWNORMAL));
    EXPECT_EQ(trace.Standing(), "active b, focus b");
    EXPECT_TRUE(ShowWindow(other, SW_SHOW));
    SetActiveWindow(trace.Make(L"c", kTop));
    SetWindowPos(other, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOZORDER);
    EXPECT_EQ(trace.Standing(), "active c, focus c");
    SetWindowPos(other, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(trace.Standing(), "active b, focus b");
}

TEST_F(WindowFocus, MayEndTheWindowThatLosesIt)
{
    const HWND first = trace.Make(L"a", kTop);
    const HWND child = trace.Make(L"c", kChild, first);
    const HWND second = trace.Make(L"d", kChild, first);
    SetFocus(child);
    trace.onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (window == child && message == WM_KILLFOCUS)
            DestroyWindow(child);
        return std::nullopt;
    };
    SetFocus(second);
    EXPECT_FALSE(IsWindow(child));
    EXPECT_EQ(trace.Standing(), "active a, focus d");
    const HWND other = trace.Make(L"b", kTop);
    trace.onMessage = [&](HWND window, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (window == other && message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE)
            DestroyWindow(other);
        return std::nullopt;
    };
    SetActiveWindow(first);
    EXPECT_FALSE(IsWindow(other));
    EXPECT_EQ(trace.NameOf(GetActiveWindow()), "a");
}

TEST_F(WindowFocus, MayBePutElsewhereByTheWindowThatLosesIt)
{
    const HWND window = trace.Make(L"a", kTop);
    const HWND first = trace.Make(L"c", kChild, window);
    const HWND second = trace.Make(L"d", kChild, window);
    const HWND third = trace.Make(L"e", kChild, window);
    SetFocus(first);
    trace.Take();
    trace.onMessage = [&](HWND told, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (told == first && message == WM_KILLFOCUS)
            SetFocus(third);
        return std::nullopt;
    };
    SetFocus(second);
    EXPECT_EQ(trace.Take(), (Lines{"c WM_KILLFOCUS d", "d WM_KILLFOCUS e", "e WM_SETFOCUS d"}));
    EXPECT_EQ(trace.Standing(), "active a, focus e");
}

TEST_F(WindowFocus, IsNotSetIfTheWindowIsDestroyedOnActivation)
{
    trace.Make(L"n", kTop);
    const HWND first = trace.Make(L"a", kTop);
    const HWND child = trace.Make(L"c", kChild, first);
    trace.Make(L"b", kTop);
    trace.onMessage = [&](HWND told, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (told == first && message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE)
            DestroyWindow(child);
        return std::nullopt;
    };
    EXPECT_EQ(SetFocus(child), nullptr);
    EXPECT_FALSE(IsWindow(child));
    EXPECT_EQ(trace.Standing(), "active a, focus a");
}

TEST_F(WindowFocus, ActivationMayBeTurnedAroundByTheWindowThatGetsIt)
{
    const HWND third = trace.Make(L"c", kTop);
    const HWND first = trace.Make(L"a", kTop);
    const HWND second = trace.Make(L"b", kTop);
    SetActiveWindow(first);
    trace.Take();
    trace.onMessage = [&](HWND told, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (told == second && message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE)
        {
            SetActiveWindow(third);
            return 0;
        }
        return std::nullopt;
    };
    SetActiveWindow(second);
    EXPECT_EQ(trace.Standing(), "active c, focus c");
    EXPECT_EQ(trace.Take(),
              (Lines{"a WM_NCACTIVATE 0", "a WM_ACTIVATE 0 b", "b WM_NCACTIVATE 1", "b WM_ACTIVATE 1 a",
                     "b WM_NCACTIVATE 0", "b WM_ACTIVATE 0 c", "c WM_NCACTIVATE 1", "c WM_ACTIVATE 1 b",
                     "a WM_KILLFOCUS c", "c WM_SETFOCUS a"}));
}

TEST_F(WindowFocus, ActivationProceedsWhateverTheOldWindowDoes)
{
    const HWND third = trace.Make(L"c", kTop);
    const HWND second = trace.Make(L"b", kTop);
    const HWND first = trace.Make(L"a", kTop);
    trace.Take();
    trace.onMessage = [&](HWND told, UINT message, WPARAM wParam, LPARAM other) -> std::optional<LRESULT> {
        if (told == first && message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE &&
            reinterpret_cast<HWND>(other) == second)
            SetActiveWindow(third);
        return std::nullopt;
    };
    SetActiveWindow(second);
    EXPECT_EQ(trace.Standing(), "active b, focus b");
    EXPECT_EQ(trace.Take(),
              (Lines{"a WM_NCACTIVATE 0", "a WM_ACTIVATE 0 b", "a WM_NCACTIVATE 0", "a WM_ACTIVATE 0 c",
                     "c WM_NCACTIVATE 1", "c WM_ACTIVATE 1 a", "a WM_KILLFOCUS c", "c WM_SETFOCUS a",
                     "b WM_NCACTIVATE 1", "b WM_ACTIVATE 1 c", "c WM_KILLFOCUS b", "b WM_SETFOCUS c"}));
}
