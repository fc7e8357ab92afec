// How windows begin and end.
#include "WindowTrace.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;

const std::vector<UINT> kLife = {WM_NCCREATE,     WM_CREATE,  WM_SIZE,     WM_MOVE,
                                 WM_PARENTNOTIFY, WM_DESTROY, WM_NCDESTROY};

bool IsNamed(const WindowTrace& trace, HWND window, const char* name)
{
    return trace.NameOf(window) == name;
}
} // namespace

TEST(WindowLife, BeginsWithCreationSizeAndPlace)
{
    WindowTrace trace;
    trace.only = kLife;
    trace.MakeTraced(L"a", WS_POPUP | WS_CAPTION);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_NCCREATE", "a WM_CREATE", "a WM_SIZE 294x175", "a WM_MOVE 13,42"}));
}

TEST(WindowLife, AnOverlappedWindowReceivesItsPlaceWhenItIsShown)
{
    WindowTrace trace;
    trace.only = kLife;
    const HWND window = trace.MakeTraced(L"a", WS_OVERLAPPED);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_NCCREATE", "a WM_CREATE"}));
    ShowWindow(window, SW_SHOW);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_SIZE 294x175", "a WM_MOVE 13,42"}));
    ShowWindow(window, SW_HIDE);
    ShowWindow(window, SW_SHOW);
    EXPECT_EQ(trace.Take(), Lines{});
}

TEST(WindowLife, AVisibleWindowIsShownAtTheEnd)
{
    WindowTrace trace;
    bool visibleInCreate = true;
    trace.onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_CREATE)
            visibleInCreate = IsWindowVisible(window);
        return std::nullopt;
    };
    const HWND window = trace.MakeTraced(L"a", WS_POPUP | WS_VISIBLE);
    EXPECT_FALSE(visibleInCreate);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(trace.Take(), (Lines{"a WM_NCCREATE", "a WM_CREATE", "a WM_SIZE 300x200", "a WM_MOVE 10,20",
                                   "a WM_SHOWWINDOW 1", "a WM_WINDOWPOSCHANGING", "a WM_NCACTIVATE 1",
                                   "a WM_ACTIVATE 1 -", "a WM_SETFOCUS -", "a WM_WINDOWPOSCHANGED"}));
}

TEST(WindowLife, AChildNotifiesItsParent)
{
    WindowTrace trace;
    const HWND outer = trace.Make(L"outer", WS_POPUP);
    const HWND inner = trace.Make(L"inner", WS_CHILD, outer);
    trace.only = kLife;
    const HWND child = trace.MakeTraced(L"c", WS_CHILD, inner);
    EXPECT_EQ(trace.Take(), (Lines{"c WM_NCCREATE", "c WM_CREATE", "c WM_SIZE 300x200", "c WM_MOVE 10,20",
                                   "inner WM_PARENTNOTIFY 1 c"}));
    DestroyWindow(child);
    EXPECT_EQ(trace.Take(), (Lines{"inner WM_PARENTNOTIFY 2 c", "c WM_DESTROY", "c WM_NCDESTROY"}));
    const HWND silent = trace.Make(L"s", WS_CHILD, inner, WS_EX_NOPARENTNOTIFY);
    DestroyWindow(silent);
    EXPECT_EQ(trace.Take(), (Lines{"s WM_DESTROY", "s WM_NCDESTROY"}));
}

TEST(WindowLife, GetsWhatItsCreatorGave)
{
    WindowTrace trace;
    int parameter = 0;
    CREATESTRUCTW heard{};
    trace.onMessage = [&](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
        if (message == WM_CREATE)
            heard = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
        return std::nullopt;
    };
    const HWND parent = trace.Make(L"p", WS_POPUP);
    const HWND window =
        CreateWindowExW(WS_EX_NOPARENTNOTIFY, WindowTrace::ClassName(), L"text", WS_CHILD | 5, 1, 2, 3, 4,
                        parent, reinterpret_cast<HMENU>(77), GetModuleHandleW(nullptr), &parameter);
    EXPECT_EQ(heard.lpCreateParams, &parameter);
    EXPECT_EQ(heard.hwndParent, parent);
    EXPECT_EQ(heard.hMenu, reinterpret_cast<HMENU>(77));
    EXPECT_EQ(heard.hInstance, GetModuleHandleW(nullptr));
    EXPECT_EQ(heard.x, 1);
    EXPECT_EQ(heard.y, 2);
    EXPECT_EQ(heard.cx, 3);
    EXPECT_EQ(heard.cy, 4);
    EXPECT_EQ(heard.style, static_cast<LONG>(WS_CHILD | 5));
    EXPECT_EQ(heard.dwExStyle, WS_EX_NOPARENTNOTIFY);
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_ID), 77);
}

TEST(WindowLife, RefusesItsBeginning)
{
    WindowTrace trace;
    UINT refused = WM_NCCREATE;
    HWND seen = nullptr;
    trace.onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != refused)
            return std::nullopt;
        seen = window;
        return message == WM_CREATE ? -1 : 0;
    };
    EXPECT_EQ(trace.MakeTraced(L"a", WS_POPUP | WS_VISIBLE), nullptr);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_NCCREATE", "a WM_NCDESTROY"}));
    EXPECT_FALSE(IsWindow(seen));
    refused = WM_CREATE;
    EXPECT_EQ(trace.MakeTraced(L"b", WS_POPUP | WS_VISIBLE), nullptr);
    EXPECT_EQ(trace.Take(), (Lines{"b WM_NCCREATE", "b WM_CREATE", "b WM_NCDESTROY"}));
    EXPECT_FALSE(IsWindow(seen));
    const HWND parent = trace.Make(L"p", WS_POPUP);
    refused = WM_NULL;
    EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
}

TEST(WindowLife, MayEndInItsOwnBeginning)
{
    WindowTrace trace;
    trace.onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_CREATE)
            DestroyWindow(window);
        return std::nullopt;
    };
    trace.only = kLife;
    EXPECT_EQ(trace.MakeTraced(L"a", WS_POPUP | WS_VISIBLE), nullptr);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_NCCREATE", "a WM_CREATE", "a WM_DESTROY", "a WM_NCDESTROY"}));
}

TEST(WindowLife, CannotBeginWithoutAClassOrAParent)
{
    WindowTrace trace;
    EXPECT_EQ(CreateWindowExW(0, L"QptoolsNoSuchClass", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr,
                              nullptr),
              nullptr);
    SetLastError(0);
    EXPECT_EQ(trace.Make(L"a", WS_CHILD), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_TLW_WITH_WSCHILD));
    EXPECT_EQ(trace.Make(L"a", WS_CHILD, reinterpret_cast<HWND>(0x777)), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
    EXPECT_EQ(trace.Make(L"a", WS_POPUP, reinterpret_cast<HWND>(0x777)), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_WINDOW_HANDLE));
}

TEST(WindowLife, EndsParentsFirstAndForGoodChildrenFirst)
{
    WindowTrace trace;
    const HWND window = trace.Make(L"a", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD, window);
    trace.Make(L"cc", WS_CHILD, child);
    trace.Make(L"d", WS_CHILD, window);
    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_EQ(trace.Take(), (Lines{"a WM_DESTROY", "c WM_DESTROY", "cc WM_DESTROY", "d WM_DESTROY",
                                   "cc WM_NCDESTROY", "c WM_NCDESTROY", "d WM_NCDESTROY", "a WM_NCDESTROY"}));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(IsWindow(child));
    EXPECT_FALSE(DestroyWindow(window));
}

TEST(WindowLife, IsAWindowUntilItHasEnded)
{
    WindowTrace trace;
    std::string seen;
    trace.onMessage = [&](HWND window, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_DESTROY || message == WM_NCDESTROY)
            seen += IsWindow(window) ? "window " : "none ";
        return std::nullopt;
    };
    const HWND window = trace.Make(L"a", WS_POPUP);
    DestroyWindow(window);
    EXPECT_EQ(seen, "window window ");
}

TEST(WindowLife, TakesItsOwnedWindowsWithIt)
{
    WindowTrace trace;
    const HWND owner = trace.Make(L"a", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD, owner);
    const HWND lower = trace.Make(L"lower", WS_POPUP, owner);
    trace.Make(L"upper", WS_POPUP, child); // whose owner is the window around the child
    trace.Make(L"owned", WS_POPUP, lower);
    trace.only = {WM_DESTROY, WM_NCDESTROY};
    DestroyWindow(owner);
    EXPECT_EQ(trace.Take(), (Lines{"upper WM_DESTROY", "upper WM_NCDESTROY", "owned WM_DESTROY",
                                   "owned WM_NCDESTROY", "lower WM_DESTROY", "lower WM_NCDESTROY",
                                   "a WM_DESTROY", "c WM_DESTROY", "c WM_NCDESTROY", "a WM_NCDESTROY"}));
}

TEST(WindowLife, MayEndInAHandlerOfItsOwn)
{
    WindowTrace trace;
    const HWND window = trace.Make(L"a", WS_POPUP | WS_VISIBLE);
    const HWND child = trace.Make(L"c", WS_CHILD | WS_VISIBLE, window);
    trace.onMessage = [&](HWND target, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_APP)
            return std::nullopt;
        DestroyWindow(reinterpret_cast<HWND>(wParam));
        return IsWindow(target) ? 1 : 2;
    };
    EXPECT_EQ(SendMessageW(child, WM_APP, reinterpret_cast<WPARAM>(child), 0), 2);
    EXPECT_FALSE(IsWindow(child));
    const HWND second = trace.Make(L"d", WS_CHILD | WS_VISIBLE, window);
    EXPECT_EQ(SendMessageW(second, WM_APP, reinterpret_cast<WPARAM>(window), 0), 2);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(IsWindow(second));
}

TEST(WindowLife, MayLoseAChildWhileItEnds)
{
    WindowTrace trace;
    const HWND window = trace.Make(L"a", WS_POPUP);
    trace.Make(L"c", WS_CHILD, window);
    const HWND second = trace.Make(L"d", WS_CHILD, window);
    trace.onMessage = [&](HWND target, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_DESTROY && IsNamed(trace, target, "c"))
            DestroyWindow(second);
        return std::nullopt;
    };
    trace.only = {WM_DESTROY, WM_NCDESTROY};
    DestroyWindow(window);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_DESTROY", "c WM_DESTROY", "d WM_DESTROY", "d WM_NCDESTROY",
                                   "c WM_NCDESTROY", "a WM_NCDESTROY"}));
}

TEST(WindowLife, MayBeEndedByItsParentOnItsOwnEnd)
{
    WindowTrace trace;
    const HWND window = trace.Make(L"a", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD | WS_VISIBLE, window);
    bool told = false;
    trace.onMessage = [&](HWND target, UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
        if (target == window && message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_DESTROY && !told)
        {
            told = true;
            DestroyWindow(child);
        }
        return std::nullopt;
    };
    trace.only = {WM_DESTROY, WM_NCDESTROY};
    DestroyWindow(child);
    EXPECT_TRUE(told);
    EXPECT_FALSE(IsWindow(child));
    EXPECT_EQ(trace.Take(), (Lines{"c WM_DESTROY", "c WM_NCDESTROY"}));
}

TEST(WindowLife, MayEndWhenItIsAskedAboutItsPlace)
{
    WindowTrace trace;
    const HWND window = trace.Make(L"a", WS_POPUP);
    trace.onMessage = [&](HWND target, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_WINDOWPOSCHANGING)
            DestroyWindow(target);
        return std::nullopt;
    };
    trace.only = {WM_WINDOWPOSCHANGED, WM_NCDESTROY};
    EXPECT_FALSE(MoveWindow(window, 1, 2, 3, 4, TRUE));
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(trace.Take(), Lines{"a WM_NCDESTROY"});
}

TEST(WindowLife, IsNotUsedTwiceAsAHandle)
{
    WindowTrace trace;
    const HWND first = trace.Make(L"a", WS_POPUP);
    DestroyWindow(first);
    for (int i = 0; i < 100; ++i)
    {
        const HWND next = trace.Make(L"b", WS_POPUP);
        ASSERT_NE(next, first);
        DestroyWindow(next);
    }
}

TEST(WindowLife, ClosesByDefault)
{
    WindowTrace trace;
    const HWND window = trace.Make(L"a", WS_POPUP);
    trace.only = {WM_SYSCOMMAND, WM_CLOSE, WM_DESTROY};
    SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_SYSCOMMAND 61536", "a WM_CLOSE", "a WM_DESTROY"}));
    EXPECT_FALSE(IsWindow(window));
}
