// Queued messages, timers, and the order in which they are delivered.
#include "WindowTrace.h"

#include <gtest/gtest.h>

namespace
{
constexpr UINT kMine = WM_APP + 7;

class WindowQueue : public ::testing::Test
{
protected:
    WindowQueue() { Drain(); }
    ~WindowQueue() override { Drain(); }

    // WM_PAINT, which only a system with a screen sends, is not looked at.
    static bool Peek(MSG* message, HWND window = nullptr, UINT first = 0, UINT last = 0,
                     UINT flags = PM_REMOVE)
    {
        return PeekMessageW(message, window, first, last, flags);
    }

    static void Drain()
    {
        MSG message{};
        while (PeekMessageW(&message, nullptr, WM_APP, WM_APP + 100, PM_REMOVE) && message.message != WM_QUIT)
        {
        }
    }

    // What waits of the given kind, one after the other.
    static std::string Waiting(HWND window = nullptr, UINT first = WM_APP, UINT last = WM_APP + 100)
    {
        std::string waiting;
        MSG message{};
        while (Peek(&message, window, first, last))
        {
            waiting += message.message == WM_QUIT ? "quit " : std::to_string(message.wParam) + " ";
        }
        return waiting;
    }

    WindowTrace trace;
};

std::string g_timers;

void CALLBACK OnTimer(HWND, UINT message, UINT_PTR, DWORD)
{
    g_timers += message == WM_TIMER ? "timer " : "other ";
}
} // namespace

TEST_F(WindowQueue, KeepsTheOrderOfPosting)
{
    const HWND first = trace.Make(L"a", WS_POPUP);
    const HWND second = trace.Make(L"b", WS_POPUP);
    EXPECT_TRUE(PostMessageW(first, kMine, 1, 11));
    EXPECT_TRUE(PostMessageW(second, kMine, 2, 22));
    EXPECT_TRUE(PostMessageW(nullptr, kMine, 3, 33));
    MSG message{};
    ASSERT_TRUE(Peek(&message, nullptr, kMine, kMine));
    EXPECT_EQ(message.hwnd, first);
    EXPECT_EQ(message.message, kMine);
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_EQ(message.lParam, 11);
    ASSERT_TRUE(GetMessageW(&message, nullptr, kMine, kMine));
    EXPECT_EQ(message.hwnd, second);
    ASSERT_TRUE(GetMessageW(&message, nullptr, kMine, kMine));
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.lParam, 33);
    EXPECT_FALSE(Peek(&message, nullptr, kMine, kMine));
}

TEST_F(WindowQueue, LeavesWhatIsOnlyLookedAt)
{
    PostMessageW(nullptr, kMine, 1, 0);
    MSG message{};
    EXPECT_TRUE(Peek(&message, nullptr, kMine, kMine, PM_NOREMOVE));
    EXPECT_TRUE(Peek(&message, nullptr, kMine, kMine, PM_NOREMOVE));
    EXPECT_TRUE(Peek(&message, nullptr, kMine, kMine, PM_REMOVE));
    EXPECT_FALSE(Peek(&message, nullptr, kMine, kMine, PM_NOREMOVE));
}

TEST_F(WindowQueue, LooksForWindowsAndMessages)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD, window);
    const HWND other = trace.Make(L"b", WS_POPUP);
    PostMessageW(other, kMine, 1, 0);
    PostMessageW(child, kMine, 2, 0);
    PostMessageW(window, kMine, 3, 0);
    PostMessageW(window, kMine + 1, 4, 0);
    PostMessageW(nullptr, kMine, 5, 0);
    EXPECT_EQ(Waiting(window, kMine + 1, kMine + 1), "4 ");
    EXPECT_EQ(Waiting(child), "2 ");
    PostMessageW(child, kMine, 6, 0);
    EXPECT_EQ(Waiting(window), "3 6 ");
    EXPECT_EQ(Waiting(reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1))), "5 ");
    EXPECT_EQ(Waiting(), "1 ");
    MSG message{};
    EXPECT_FALSE(Peek(&message, reinterpret_cast<HWND>(0x777)));
    EXPECT_EQ(GetMessageW(&message, reinterpret_cast<HWND>(0x777), 0, 0), -1);
}

TEST_F(WindowQueue, EndsWithTheQuitMessage)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    PostQuitMessage(7);
    PostMessageW(window, kMine, 1, 0);
    MSG message{};
    EXPECT_TRUE(GetMessageW(&message, nullptr, kMine, kMine));
    EXPECT_EQ(message.message, kMine);
    EXPECT_TRUE(Peek(&message, nullptr, kMine, kMine, PM_NOREMOVE)); // whatever the filter
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_FALSE(GetMessageW(&message, nullptr, kMine, kMine));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_FALSE(Peek(&message, nullptr, kMine, kMine));
}

TEST_F(WindowQueue, KnowsPostedMessagesFromInput)
{
    PostMessageW(nullptr, kMine, 1, 0);
    PostMessageW(nullptr, WM_KEYDOWN, 'A', 1);
    PostQuitMessage(0);
    MSG message{};
    EXPECT_FALSE(Peek(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_INPUT));
    EXPECT_TRUE(Peek(&message, nullptr, kMine, kMine, PM_REMOVE | PM_QS_POSTMESSAGE));
    EXPECT_TRUE(Peek(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE | PM_QS_POSTMESSAGE));
    EXPECT_TRUE(Peek(&message, nullptr, kMine, kMine, PM_REMOVE | PM_QS_POSTMESSAGE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
}

TEST_F(WindowQueue, DropsWhatIsForADestroyedWindow)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    const HWND child = trace.Make(L"c", WS_CHILD, window);
    PostMessageW(child, kMine, 1, 0);
    PostMessageW(nullptr, kMine, 2, 0);
    PostMessageW(window, kMine, 3, 0);
    DestroyWindow(window);
    EXPECT_EQ(Waiting(), "2 ");
    EXPECT_FALSE(PostMessageW(window, kMine, 1, 0));
    EXPECT_EQ(SendMessageW(window, kMine, 1, 0), 0);
}

TEST_F(WindowQueue, HandsMessagesToTheirWindow)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    trace.onMessage = [](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
        return message == kMine ? std::optional<LRESULT>(static_cast<LRESULT>(wParam) + lParam)
                                : std::nullopt;
    };
    const MSG message{window, kMine, 3, 4, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageW(&message), 7);
    const MSG nobody{nullptr, kMine, 3, 4, 0, {0, 0}};
    EXPECT_EQ(DispatchMessageW(&nobody), 0);
    EXPECT_EQ(SendMessageW(window, kMine, 5, 6), 11);
}

TEST_F(WindowQueue, BringsTimersAfterEverythingElse)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    EXPECT_EQ(SetTimer(window, 5, 10, nullptr), 5u);
    MSG message{};
    while (!Peek(&message, window, WM_TIMER, WM_TIMER, PM_NOREMOVE))
    {
    }
    PostMessageW(window, WM_APP, 1, 0);
    ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_APP));
    EXPECT_EQ(message.message, WM_APP);
    ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_APP));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_TIMER));
    EXPECT_EQ(message.hwnd, window);
    EXPECT_EQ(message.wParam, 5u);
    ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_APP)); // WM_TIMER is repeated
    EXPECT_EQ(message.message, static_cast<UINT>(WM_TIMER));
    EXPECT_TRUE(KillTimer(window, 5));
    EXPECT_FALSE(KillTimer(window, 5));
    EXPECT_FALSE(Peek(&message, window, WM_TIMER, WM_TIMER));
}

TEST_F(WindowQueue, BringsTheShorterTimerFirst)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    SetTimer(window, 1, 600, nullptr);
    SetTimer(window, 2, 20, nullptr);
    MSG message{};
    ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_TIMER));
    EXPECT_EQ(message.wParam, 2u);
    SetTimer(window, 2, 10000, nullptr); // the same timer, anew
    ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_TIMER));
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_TRUE(KillTimer(window, 1));
    EXPECT_TRUE(KillTimer(window, 2));
    EXPECT_FALSE(KillTimer(window, 2));
}

TEST_F(WindowQueue, CallsTheProcedureOfATimer)
{
    g_timers.clear();
    const UINT_PTR first = SetTimer(nullptr, 0, 10, OnTimer);
    const UINT_PTR second = SetTimer(nullptr, 0, 10, OnTimer);
    EXPECT_NE(first, 0u);
    EXPECT_NE(first, second);
    EXPECT_EQ(SetTimer(nullptr, first, 10, OnTimer), first);
    MSG message{};
    ASSERT_TRUE(GetMessageW(&message, nullptr, WM_TIMER, WM_TIMER));
    DispatchMessageW(&message);
    EXPECT_EQ(g_timers, "timer ");
    EXPECT_TRUE(KillTimer(nullptr, first));
    EXPECT_TRUE(KillTimer(nullptr, second));
    EXPECT_FALSE(Peek(&message, nullptr, WM_TIMER, WM_TIMER));
}

TEST_F(WindowQueue, EndsTimersWithTheirWindow)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    EXPECT_EQ(SetTimer(window, 0, 10, nullptr), 1u);
    EXPECT_EQ(SetTimer(reinterpret_cast<HWND>(0x777), 1, 10, nullptr), 0u);
    MSG message{};
    while (!Peek(&message, window, WM_TIMER, WM_TIMER, PM_NOREMOVE))
    {
    }
    EXPECT_EQ(message.wParam, 0u);
    DestroyWindow(window);
    EXPECT_FALSE(Peek(&message, nullptr, WM_TIMER, WM_TIMER));
}

TEST_F(WindowQueue, ServesWindowsThatAreForMessagesOnly)
{
    const HWND popup = trace.Make(L"p", WS_POPUP);
    const HWND desktop = GetAncestor(popup, GA_PARENT);
    DestroyWindow(popup);
    trace.Take();
    const HWND window = CreateWindowExW(0, WindowTrace::ClassName(), L"m", WS_VISIBLE, 0, 0, 10, 10,
                                        HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(IsWindowVisible(window));
    EXPECT_EQ(GetParent(window), nullptr);
    EXPECT_NE(GetAncestor(window, GA_PARENT), desktop);
    EXPECT_EQ(trace.Order(), "");
    EXPECT_EQ(trace.Standing(), "active -, focus -");
    PostMessageW(window, kMine, 4, 0);
    EXPECT_EQ(Waiting(window), "4 ");
    EXPECT_TRUE(DestroyWindow(window));
}
