// What ends the run in the window system in memory, and its clock.
#include <commctrl.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <thread>

namespace
{
constexpr const wchar_t* kClass = L"QptoolsNativeWindow";

class NativeWindows : public ::testing::Test
{
protected:
    NativeWindows()
    {
        ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
        WNDCLASSW description{};
        description.lpfnWndProc = DefWindowProcW;
        description.lpszClassName = kClass;
        RegisterClassW(&description);
    }
    ~NativeWindows() override { DestroyWindow(window); }

    static HWND Make(const wchar_t* className, DWORD style, DWORD exStyle = 0, HWND parent = nullptr)
    {
        return CreateWindowExW(exStyle, className, L"text", style, 1, 2, 30, 40, parent, nullptr, nullptr,
                               nullptr);
    }

    HWND window = nullptr;
};

LRESULT CALLBACK NoHook(int, WPARAM, LPARAM)
{
    return 0;
}
} // namespace

TEST_F(NativeWindows, EndTheRunAtAnUnsupportedStyle)
{
    constexpr DWORD kMaximized = 0x01000000;
    constexpr DWORD kLayered = 0x00080000;
    constexpr DWORD kTwoLines = 0x0004; // of an edit field
    EXPECT_DEATH(Make(kClass, WS_POPUP | kMaximized), "no style 0x1000000 .*\n.*QptoolsNativeWindow");
    EXPECT_DEATH(Make(kClass, WS_POPUP, kLayered), "no extended style 0x80000");
    EXPECT_DEATH(Make(WC_EDITW, WS_POPUP | kTwoLines), "no style 0x4 ");
    window = Make(kClass, WS_POPUP);
    EXPECT_DEATH(SetWindowLongW(window, GWL_STYLE, static_cast<LONG>(WS_POPUP | kMaximized)),
                 "no style 0x1000000 ");
}

TEST_F(NativeWindows, LeaveTheLowStyleBitsToTheirClass)
{
    window = Make(kClass, WS_POPUP | 0xFFFF);
    EXPECT_NE(window, nullptr);
}

TEST_F(NativeWindows, EndTheRunAtUnsupportedRequests)
{
    constexpr int kKeyboardHook = 2;
    constexpr UINT kEnabledPopup = 6;
    constexpr int kMinimized = 2;
    window = Make(kClass, WS_POPUP);
    EXPECT_DEATH(SetWindowsHookExW(kKeyboardHook, NoHook, nullptr, GetCurrentThreadId()), "no hook 0x2");
    EXPECT_DEATH(SetWindowsHookExW(WH_CBT, NoHook, nullptr, 0), "no hook of another thread");
    EXPECT_DEATH(GetWindow(window, kEnabledPopup), "no GetWindow relation 0x6");
    EXPECT_DEATH(ShowWindow(window, kMinimized), "no way to show 0x2");
    ShowWindow(window, SW_MINIMIZE);
    EXPECT_DEATH(ShowWindow(window, SW_SHOWNOACTIVATE), "no way to show a minimised window 0x4");
    const INITCOMMONCONTROLSEX classes{sizeof(classes), 0x4};
    EXPECT_DEATH(InitCommonControlsEx(&classes), "no group of control classes 0x4");
    constexpr UINT kRootOwner = 3;
    EXPECT_DEATH(GetAncestor(window, kRootOwner), "no GetAncestor relation 0x3");
    EXPECT_DEATH(SetWindowLongPtrW(window, GWLP_HWNDPARENT, 0), "no change of the parent");
    EXPECT_DEATH(EnumThreadWindows(1, nullptr, 0), "no windows of another thread 0x1");
}

TEST_F(NativeWindows, EndTheRunAtAClassThatOnlyWindowsHas)
{
    for (const wchar_t* name : {L"listbox", L"SysTreeView32", L"msctls_progress32", L"RichEdit20W"})
        EXPECT_DEATH(Make(name, WS_POPUP), "no window class") << name;
    EXPECT_DEATH(Make(L"SysTreeView32", WS_POPUP), "no window class SysTreeView32. ");
    EXPECT_EQ(Make(L"Sister", WS_POPUP), nullptr) << "nobody has that one";
}

TEST_F(NativeWindows, EndTheRunAtExtraValuesBesideTheirPlaces)
{
    const HWND dialog = Make(L"#32770", WS_POPUP);
    EXPECT_DEATH(GetWindowLongPtrW(dialog, 4), "no extra bytes at 0x4");
    DestroyWindow(dialog);
}

TEST_F(NativeWindows, EndTheRunAtAMessageToAnotherThread)
{
    window = Make(kClass, WS_POPUP);
    const auto send = [this] {
        std::thread([this] { SendMessageW(window, WM_APP, 0, 0); }).join();
    };
    EXPECT_DEATH(send(), "no message to another thread");
    const auto focus = [this] {
        std::thread([this] { SetFocus(window); }).join();
    };
    EXPECT_DEATH(focus(), "no focus of a window of another thread");
    const auto end = [this] {
        std::thread([this] { DestroyWindow(window); }).join();
    };
    EXPECT_DEATH(end(), "no end of a window of another thread");
}

TEST_F(NativeWindows, EndTheRunIfNothingCouldEverWakeIt)
{
    window = Make(kClass, WS_POPUP | WS_VISIBLE);
    Make(kClass, WS_CHILD | WS_DISABLED, 0, window);
    MSG message{};
    EXPECT_DEATH(GetMessageW(&message, nullptr, 0, 0),
                 "that nobody can send.*\nQptoolsNativeWindow id 0, .*has the focus, is active: \"text\"\n"
                 "  QptoolsNativeWindow id 0, .*hidden, disabled.*\"text\"");
}

TEST_F(NativeWindows, HaveAClockThatDoesNotWait)
{
    constexpr UINT kWeek = 7 * 24 * 3600 * 1000;
    window = Make(kClass, WS_POPUP);
    SetTimer(window, 3, kWeek, nullptr);
    SetTimer(window, 4, kWeek + 5, nullptr);
    MSG message{};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE));
    ASSERT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 3u);
    const DWORD first = message.time;
    ASSERT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 4u);
    EXPECT_EQ(message.time - first, 5u);
    SetTimer(window, 4, 20, nullptr);
    int looks = 1;
    while (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        ++looks;
    EXPECT_EQ(looks, 21); // a look that finds nothing takes a millisecond
}

TEST_F(NativeWindows, HaveCharactersOfOneSize)
{
    SIZE size{};
    EXPECT_TRUE(GetTextExtentPoint32W(GetDC(nullptr), L"iW", 2, &size));
    EXPECT_EQ(size.cx, 12);
    EXPECT_EQ(size.cy, 13);
}
