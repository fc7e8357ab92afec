// Hooks are called for creation, destruction, activation and focus of windows, and may refuse them.
#include "WindowTrace.h"

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;

// Counts the calls of two hooks, one installed after the other.
std::string g_calls;
bool g_newerPasses = true;

LRESULT CALLBACK Older(int, WPARAM, LPARAM)
{
    g_calls += "older ";
    return 0;
}

LRESULT CALLBACK Newer(int code, WPARAM wParam, LPARAM lParam)
{
    g_calls += "newer ";
    return g_newerPasses ? CallNextHookEx(nullptr, code, wParam, lParam) : 0;
}

class WindowHooks : public ::testing::Test
{
protected:
    WindowHooks()
    {
        trace.only = {WM_NULL};
        trace.onHook = [this](int code, WPARAM wParam, LPARAM lParam) {
            const auto window = reinterpret_cast<HWND>(wParam);
            if (code == HCBT_CREATEWND)
                OnCreate(window, *reinterpret_cast<CBT_CREATEWNDW*>(lParam));
            else if (code == HCBT_DESTROYWND)
                Hear("destroy " + trace.NameOf(window));
            else if (code == HCBT_ACTIVATE)
                Hear("activate " + trace.NameOf(window) + " instead of " +
                     trace.NameOf(reinterpret_cast<CBTACTIVATESTRUCT*>(lParam)->hWndActive));
            else if (code == HCBT_SETFOCUS)
                Hear("focus " + trace.NameOf(window) + " instead of " +
                     trace.NameOf(reinterpret_cast<HWND>(lParam)));
            return objection == code ? 1 : 0;
        };
    }

    void OnCreate(HWND window, const CBT_CREATEWNDW& created)
    {
        std::wstring className(100, L'\0');
        GetClassNameW(window, className.data(), 100);
        if (className.substr(0, 18) != WindowTrace::ClassName())
            return;
        EXPECT_EQ(created.lpcs->cx, 300);
        Hear("create");
    }

    void Hear(const std::string& line)
    {
        if (line.find('?') == std::string::npos)
            heard.push_back(line);
    }

    Lines Heard() { return std::exchange(heard, {}); }

    WindowTrace trace;
    Lines heard;
    int objection = -1;
};
} // namespace

TEST_F(WindowHooks, AreCalledForAWholeLife)
{
    const HWND window = trace.Make(L"a", WS_POPUP | WS_VISIBLE);
    EXPECT_EQ(Heard(), (Lines{"create", "activate a instead of -", "focus a instead of -"}));
    const HWND child = trace.Make(L"c", WS_CHILD | WS_VISIBLE, window);
    SetFocus(child);
    EXPECT_EQ(Heard(), (Lines{"create", "focus c instead of a"}));
    const HWND owned = trace.Make(L"o", WS_POPUP | WS_VISIBLE, window);
    EXPECT_EQ(Heard(), (Lines{"create", "activate o instead of a", "focus o instead of c"}));
    DestroyWindow(owned);
    EXPECT_EQ(Heard(), (Lines{"destroy o", "activate a instead of o", "focus a instead of o"}));
    DestroyWindow(child);
    EXPECT_EQ(Heard(), (Lines{"destroy c"}));
}

TEST_F(WindowHooks, RefuseANewWindow)
{
    objection = HCBT_CREATEWND;
    trace.only.clear();
    EXPECT_EQ(trace.MakeTraced(L"a", WS_POPUP), nullptr);
    EXPECT_EQ(trace.Take(), Lines{});
}

TEST_F(WindowHooks, RefuseAnEnd)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    objection = HCBT_DESTROYWND;
    EXPECT_FALSE(DestroyWindow(window));
    EXPECT_TRUE(IsWindow(window));
    objection = -1;
    EXPECT_TRUE(DestroyWindow(window));
}

TEST_F(WindowHooks, RefuseActivation)
{
    trace.Make(L"a", WS_POPUP | WS_VISIBLE);
    const HWND other = trace.Make(L"b", WS_POPUP);
    objection = HCBT_ACTIVATE;
    ShowWindow(other, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(other));
    EXPECT_EQ(trace.Standing(), "active a, focus a");
    SetActiveWindow(other);
    EXPECT_EQ(trace.Standing(), "active a, focus a");
    EXPECT_EQ(SetFocus(other), nullptr);
    EXPECT_EQ(trace.Standing(), "active a, focus a");
}

TEST_F(WindowHooks, RefuseTheFocus)
{
    const HWND window = trace.Make(L"a", WS_POPUP | WS_VISIBLE);
    const HWND child = trace.Make(L"c", WS_CHILD | WS_VISIBLE, window);
    objection = HCBT_SETFOCUS;
    EXPECT_EQ(SetFocus(child), nullptr);
    EXPECT_EQ(trace.Standing(), "active a, focus a");
}

TEST_F(WindowHooks, AreCalledOneBeforeTheOther)
{
    trace.Make(L"first", WS_POPUP);
    Heard();
    const HHOOK older = SetWindowsHookExW(WH_CBT, Older, nullptr, GetCurrentThreadId());
    const HHOOK newer = SetWindowsHookExW(WH_CBT, Newer, nullptr, GetCurrentThreadId());
    const HWND window = trace.Make(L"a", WS_POPUP);
    g_calls.clear();
    DestroyWindow(window);
    EXPECT_EQ(g_calls, "newer older ");
    EXPECT_EQ(Heard(), Lines{}); // the older one does not pass it on
    g_newerPasses = false;
    const HWND second = trace.Make(L"b", WS_POPUP);
    g_calls.clear();
    DestroyWindow(second);
    EXPECT_EQ(g_calls, "newer ");
    g_newerPasses = true;
    EXPECT_TRUE(UnhookWindowsHookEx(older));
    EXPECT_TRUE(UnhookWindowsHookEx(newer));
    EXPECT_FALSE(UnhookWindowsHookEx(newer));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HOOK_HANDLE));
    const HWND third = trace.Make(L"c", WS_POPUP);
    g_calls.clear();
    DestroyWindow(third);
    EXPECT_EQ(g_calls, "");
    EXPECT_EQ(Heard(), (Lines{"create", "destroy c"}));
}
