// A window's class, values, texts, icons, and its default handling of messages.
#include "WindowTrace.h"

#include <commctrl.h>

#include <gtest/gtest.h>

namespace
{
using Lines = std::vector<std::string>;

const auto kNone = reinterpret_cast<HWND>(0x777);

class WindowValues : public ::testing::Test
{
protected:
    WindowValues() { trace.only = {WM_STYLECHANGING, WM_STYLECHANGED}; }

    WindowTrace trace;
};

WNDPROC g_before = nullptr;

LRESULT CALLBACK Doubled(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = CallWindowProcW(g_before, window, message, wParam, lParam);
    return message == WM_APP ? 2 * result : result;
}

std::wstring TextOf(HWND window)
{
    wchar_t text[100] = L"?";
    GetWindowTextW(window, text, 100);
    return text;
}
} // namespace

TEST_F(WindowValues, ClassesAreRegisteredOnce)
{
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"QptoolsTreeTest";
    description.cbWndExtra = 30;
    EXPECT_NE(RegisterClassW(&description), 0);
    description.lpszClassName = L"QPTOOLSTREETEST";
    SetLastError(0);
    EXPECT_EQ(RegisterClassW(&description), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
    const HWND window = CreateWindowExW(0, L"qptoolstreetest", L"w", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        description.hInstance, nullptr);
    wchar_t name[100] = L"";
    EXPECT_EQ(GetClassNameW(window, name, 100), 15);
    EXPECT_STREQ(name, L"QptoolsTreeTest");
    EXPECT_EQ(GetClassNameW(window, name, 4), 3);
    EXPECT_STREQ(name, L"Qpt");
    EXPECT_EQ(GetClassNameW(kNone, name, 4), 0);
    DestroyWindow(window);
}

TEST_F(WindowValues, CommonControlsAreThere)
{
    INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES};
    EXPECT_TRUE(InitCommonControlsEx(&classes));
    classes.dwSize = 1;
    EXPECT_FALSE(InitCommonControlsEx(&classes));
}

TEST_F(WindowValues, ExtraValuesAreAsManyAsTheClassSays)
{
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"QptoolsExtra";
    description.cbWndExtra = 24;
    RegisterClassW(&description);
    const HWND window = CreateWindowExW(0, L"QptoolsExtra", L"w", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        description.hInstance, nullptr);
    EXPECT_EQ(SetWindowLongPtrW(window, DWLP_USER, 42), 0);
    EXPECT_EQ(SetWindowLongPtrW(window, DWLP_USER, 43), 42);
    EXPECT_EQ(GetWindowLongPtrW(window, DWLP_USER), 43);
    EXPECT_EQ(GetWindowLongPtrW(window, DWLP_MSGRESULT), 0);
    SetLastError(0);
    EXPECT_EQ(SetWindowLongPtrW(window, 24, 1), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_INDEX));
    SetLastError(0);
    EXPECT_EQ(GetWindowLongPtrW(window, -100), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_INDEX));
    DestroyWindow(window);
}

TEST_F(WindowValues, ValuesAreExchanged)
{
    const HWND parent = trace.Make(L"p", WS_POPUP);
    const HWND window = trace.Make(L"a", WS_CHILD, parent);
    EXPECT_EQ(SetWindowLongPtrW(window, GWLP_USERDATA, 5), 0);
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_USERDATA), 5);
    EXPECT_EQ(SetWindowLongPtrW(window, GWLP_ID, 6), 0);
    EXPECT_EQ(GetWindowLongW(window, GWL_ID), 6);
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_HINSTANCE),
              reinterpret_cast<LONG_PTR>(GetModuleHandleW(nullptr)));
}

TEST_F(WindowValues, AProcedureMayBeReplaced)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    trace.onMessage = [](HWND, UINT message, WPARAM wParam, LPARAM) {
        return message == WM_APP ? std::optional<LRESULT>(static_cast<LRESULT>(wParam)) : std::nullopt;
    };
    EXPECT_EQ(SendMessageW(window, WM_APP, 21, 0), 21);
    g_before = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Doubled)));
    EXPECT_EQ(GetWindowLongPtrW(window, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(&Doubled));
    EXPECT_EQ(SendMessageW(window, WM_APP, 21, 0), 42);
    EXPECT_EQ(TextOf(window), L"a");
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_before));
    EXPECT_EQ(SendMessageW(window, WM_APP, 21, 0), 21);
}

TEST_F(WindowValues, StylesChangeWithTheWindowsConsent)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    EXPECT_EQ(static_cast<DWORD>(SetWindowLongW(window, GWL_STYLE, static_cast<LONG>(WS_POPUP | WS_CAPTION))),
              WS_POPUP | WS_CLIPSIBLINGS);
    EXPECT_EQ(trace.Take(), (Lines{"a WM_STYLECHANGING", "a WM_STYLECHANGED"}));
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)), WS_POPUP | WS_CAPTION | WS_CLIPSIBLINGS);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)), static_cast<DWORD>(WS_EX_WINDOWEDGE));
    trace.onMessage = [](HWND, UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<LRESULT> {
        if (message == WM_STYLECHANGING && static_cast<int>(wParam) == GWL_EXSTYLE)
        {
            auto& change = *reinterpret_cast<STYLESTRUCT*>(lParam);
            EXPECT_EQ(change.styleNew, static_cast<DWORD>(WS_EX_CLIENTEDGE));
            change.styleNew |= WS_EX_TOOLWINDOW;
        }
        return std::nullopt;
    };
    SetWindowLongW(window, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)),
              static_cast<DWORD>(WS_EX_CLIENTEDGE | WS_EX_TOOLWINDOW | WS_EX_WINDOWEDGE));
}

TEST_F(WindowValues, TextsAreCutToTheBuffer)
{
    const HWND window = trace.Make(L"abcdef", WS_POPUP);
    EXPECT_EQ(GetWindowTextLengthW(window), 6);
    wchar_t text[10] = L"?";
    EXPECT_EQ(GetWindowTextW(window, text, 4), 3);
    EXPECT_STREQ(text, L"abc");
    EXPECT_EQ(GetWindowTextW(window, text, 10), 6);
    EXPECT_EQ(GetWindowTextW(window, text, 0), 0);
    EXPECT_STREQ(text, L"abcdef");
    EXPECT_EQ(GetWindowTextW(kNone, text, 10), 0);
    EXPECT_TRUE(SetWindowTextW(window, L"xy"));
    EXPECT_EQ(TextOf(window), L"xy");
    EXPECT_TRUE(SetWindowTextW(window, nullptr));
    EXPECT_EQ(TextOf(window), L"");
    EXPECT_EQ(SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"sent")), 1);
    EXPECT_EQ(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(SendMessageW(window, WM_GETTEXT, 3, reinterpret_cast<LPARAM>(text)), 2);
    EXPECT_STREQ(text, L"se");
}

TEST_F(WindowValues, TextsAreMeasured)
{
    const HDC context = GetDC(trace.Make(L"a", WS_POPUP));
    ASSERT_NE(context, nullptr);
    SIZE nothing{1, 1};
    SIZE one{};
    SIZE two{};
    EXPECT_TRUE(GetTextExtentPoint32W(context, L"", 0, &nothing));
    EXPECT_TRUE(GetTextExtentPoint32W(context, L"mm", 1, &one));
    EXPECT_TRUE(GetTextExtentPoint32W(context, L"mm", 2, &two));
    EXPECT_EQ(nothing.cx, 0);
    EXPECT_GT(one.cx, 0);
    EXPECT_EQ(two.cx, 2 * one.cx);
    EXPECT_GT(one.cy, 0);
    EXPECT_EQ(two.cy, one.cy);
    EXPECT_TRUE(ReleaseDC(nullptr, context));
    EXPECT_EQ(GetDC(kNone), nullptr);
}

TEST_F(WindowValues, IconsAreKept)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    const auto big = reinterpret_cast<LPARAM>(LoadIconW(nullptr, IDI_HAND));
    const auto small = reinterpret_cast<LPARAM>(LoadIconW(nullptr, IDI_QUESTION));
    EXPECT_EQ(SendMessageW(window, WM_SETICON, ICON_BIG, big), 0);
    EXPECT_EQ(SendMessageW(window, WM_SETICON, ICON_SMALL, small), 0);
    EXPECT_EQ(SendMessageW(window, WM_GETICON, ICON_BIG, 0), big);
    EXPECT_EQ(SendMessageW(window, WM_GETICON, ICON_SMALL, 0), small);
    EXPECT_EQ(SendMessageW(window, WM_SETICON, ICON_BIG, 0), big);
}

TEST_F(WindowValues, UnknownMessagesReturnNothing)
{
    const HWND window = trace.Make(L"a", WS_POPUP);
    EXPECT_EQ(SendMessageW(window, WM_USER + 77, 1, 2), 0);
    EXPECT_EQ(SendMessageW(window, WM_GETDLGCODE, 0, 0), 0);
    EXPECT_EQ(SendMessageW(window, WM_GETFONT, 0, 0), 0);
    EXPECT_EQ(SendMessageW(window, WM_NCACTIVATE, FALSE, 0), TRUE);
}
