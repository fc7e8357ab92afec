// What keys become, and the pointer's capture, cursors and icons.
#include "WindowTrace.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
class WindowKeys : public ::testing::Test
{
protected:
    ~WindowKeys() override { Hold(0, 0); }

    // Holds a key down (0x80) or switched on (1), and nothing else.
    static void Hold(int key, BYTE state)
    {
        BYTE keys[256] = {};
        keys[key] = state;
        keys[0] = 0;
        SetKeyboardState(keys);
    }

    // The character that a key becomes, 0 for none.
    unsigned Typed(WPARAM key, UINT message = WM_KEYDOWN, LPARAM flags = 1)
    {
        const MSG pressed{window, message, key, flags, 0, {0, 0}};
        EXPECT_TRUE(TranslateMessage(&pressed));
        MSG character{};
        if (!PeekMessageW(&character, window, WM_CHAR, WM_SYSCHAR, PM_REMOVE))
            return 0;
        EXPECT_EQ(character.message,
                  message == WM_KEYDOWN ? static_cast<UINT>(WM_CHAR) : static_cast<UINT>(WM_SYSCHAR));
        EXPECT_EQ(character.lParam, flags);
        return static_cast<unsigned>(character.wParam);
    }

    WindowTrace trace;
    HWND window = trace.Make(L"a", WS_POPUP);
};
} // namespace

TEST_F(WindowKeys, BecomeCharacters)
{
    EXPECT_EQ(Typed('A'), 'a');
    EXPECT_EQ(Typed('Z'), 'z');
    EXPECT_EQ(Typed('0'), '0');
    EXPECT_EQ(Typed('9'), '9');
    EXPECT_EQ(Typed(VK_SPACE), ' ');
    EXPECT_EQ(Typed(VK_RETURN), 0x0Du);
    EXPECT_EQ(Typed(VK_ESCAPE), 0x1Bu);
    EXPECT_EQ(Typed(VK_TAB), 0x09u);
    EXPECT_EQ(Typed(VK_BACK), 0x08u);
}

TEST_F(WindowKeys, BecomeNoCharacters)
{
    for (const WPARAM key : {VK_DELETE, VK_LEFT, VK_RIGHT, VK_UP, VK_DOWN, VK_HOME, VK_END, VK_F2, VK_F4,
                             VK_SHIFT, VK_CONTROL, VK_MENU})
        EXPECT_EQ(Typed(key), 0u) << key;
    const MSG pointer{window, WM_LBUTTONDOWN, 0, 0, 0, {0, 0}};
    EXPECT_FALSE(TranslateMessage(&pointer));
    const MSG up{window, WM_KEYUP, 'A', 1, 0, {0, 0}};
    EXPECT_TRUE(TranslateMessage(&up));
    MSG character{};
    EXPECT_FALSE(PeekMessageW(&character, window, WM_CHAR, WM_CHAR, PM_REMOVE));
}

TEST_F(WindowKeys, ObeyShiftAndControl)
{
    Hold(VK_SHIFT, 0x80);
    EXPECT_EQ(Typed('A'), 'A');
    std::string symbols;
    for (char digit = '0'; digit <= '9'; ++digit)
        symbols.push_back(static_cast<char>(Typed(static_cast<WPARAM>(digit))));
    EXPECT_EQ(symbols, ")!@#$%^&*(");
    EXPECT_EQ(Typed(VK_TAB), 0x09u);
    EXPECT_EQ(Typed(VK_SPACE), ' ');
    Hold(VK_CONTROL, 0x80);
    EXPECT_EQ(Typed('A'), 1u);
    EXPECT_EQ(Typed('Z'), 26u);
    EXPECT_EQ(Typed('1'), 0u);
    EXPECT_EQ(Typed(VK_RETURN), 0x0Au);
    EXPECT_EQ(Typed(VK_BACK), 0x7Fu);
    EXPECT_EQ(Typed(VK_TAB), 0u);
    EXPECT_EQ(Typed(VK_SPACE), ' ');
    EXPECT_EQ(Typed(VK_ESCAPE), 0x1Bu);
    Hold(0x14, 1); // caps lock
    EXPECT_EQ(Typed('A'), 'A');
    EXPECT_EQ(Typed('1'), '1');
}

TEST_F(WindowKeys, BecomeSystemCharactersWithAlt)
{
    constexpr LPARAM kAlt = 0x20000001;
    Hold(VK_MENU, 0x80);
    EXPECT_EQ(Typed('A', WM_SYSKEYDOWN, kAlt), 'a');
    EXPECT_EQ(Typed('1', WM_SYSKEYDOWN, kAlt), '1');
    EXPECT_EQ(Typed(VK_F4, WM_SYSKEYDOWN, kAlt), 0u);
}

TEST_F(WindowKeys, AltF4ClosesTheWindowAround)
{
    const HWND child = trace.Make(L"c", WS_CHILD, window);
    SendMessageW(child, WM_SYSKEYDOWN, VK_F4, 0x20000001);
    MSG posted{};
    ASSERT_TRUE(PeekMessageW(&posted, nullptr, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_REMOVE));
    EXPECT_EQ(posted.hwnd, window);
    EXPECT_EQ(posted.wParam, static_cast<WPARAM>(SC_CLOSE));
    SendMessageW(child, WM_SYSKEYDOWN, 'X', 0x20000001);
    EXPECT_FALSE(PeekMessageW(&posted, nullptr, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_REMOVE));
}

TEST_F(WindowKeys, HaveAStateInEachThread)
{
    Hold(VK_SHIFT, 0x80);
    EXPECT_LT(GetKeyState(VK_SHIFT), 0);
    EXPECT_EQ(GetKeyState(VK_CONTROL), 0);
    BYTE keys[256] = {};
    EXPECT_TRUE(GetKeyboardState(keys));
    EXPECT_EQ(keys[VK_SHIFT], 0x80);
    std::thread([] { EXPECT_EQ(GetKeyState(VK_SHIFT), 0); }).join();
    Hold(0x14, 1);
    EXPECT_EQ(GetKeyState(0x14), 1);
    EXPECT_EQ(GetKeyState(VK_SHIFT), 0);
}

TEST_F(WindowKeys, CaptureIsHeldByOneWindow)
{
    const HWND child = trace.Make(L"c", WS_CHILD, window);
    trace.only = {WM_CAPTURECHANGED, WM_CANCELMODE};
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(SetCapture(child), nullptr);
    EXPECT_EQ(SetCapture(window), child);
    EXPECT_EQ(GetCapture(), window);
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(trace.Take(), (std::vector<std::string>{"c WM_CAPTURECHANGED a", "a WM_CAPTURECHANGED -"}));
    SetCapture(child);
    EnableWindow(child, FALSE);
    EXPECT_EQ(trace.Take(), (std::vector<std::string>{"c WM_CANCELMODE", "c WM_CAPTURECHANGED -"}));
    EnableWindow(child, TRUE);
    SetCapture(child);
    DestroyWindow(child);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(trace.Take(), std::vector<std::string>{});
}

TEST_F(WindowKeys, CursorsReplaceEachOther)
{
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    const HCURSOR wait = LoadCursorW(nullptr, IDC_WAIT);
    ASSERT_NE(arrow, nullptr);
    EXPECT_NE(arrow, wait);
    EXPECT_EQ(LoadCursorW(nullptr, IDC_ARROW), arrow);
    SetCursor(arrow);
    EXPECT_EQ(SetCursor(wait), arrow);
    EXPECT_EQ(GetCursor(), wait);
    EXPECT_EQ(SetCursor(nullptr), wait);
    EXPECT_EQ(GetCursor(), nullptr);
}

TEST_F(WindowKeys, IconsAreThoseOfTheSystemOrOfAModule)
{
    const HICON hand = LoadIconW(nullptr, IDI_HAND);
    ASSERT_NE(hand, nullptr);
    EXPECT_EQ(LoadIconW(nullptr, IDI_HAND), hand);
    EXPECT_NE(LoadIconW(nullptr, IDI_QUESTION), hand);
    SetLastError(0);
    EXPECT_EQ(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(77)), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_RESOURCE_DATA_NOT_FOUND));
}
