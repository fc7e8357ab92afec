// Edit fields, combo boxes and date pickers end the run with the name of a message or style that they do not
// support.
#include "ComboHost.h"
#include "KeysWithModifiers.h"

#include <gtest/gtest.h>

namespace
{
constexpr DWORD kMultiline = 0x4;
constexpr DWORD kLongFormat = 0x4;
constexpr DWORD kAlwaysOpen = 0x1;
constexpr UINT kUndo = 0xC7;
constexpr UINT kExtendedInterface = 0x155;
constexpr UINT kSetFormat = DTM_FIRST + 50;

HWND Make(const wchar_t* name, DWORD style)
{
    return CreateWindowExW(0, name, L"", WS_POPUP | style, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}
} // namespace

// The windows belong to the thread of the death test.
TEST(NativeOnly_Edit, AnUnsupportedMessageEndsTheRun)
{
    EXPECT_DEATH(ControlHost(WC_EDITW, 0).Send(kUndo), "winport has no message 0xc7 for this window:\nEdit");
}

TEST(NativeOnly_Edit, AnUnsupportedStyleEndsTheRun)
{
    EXPECT_DEATH(Make(WC_EDITW, kMultiline), "winport has no style 0x4");
}

TEST(NativeOnly_Edit, TheKeysOfTheClipboardEndTheRun)
{
    EXPECT_DEATH(ControlHost(WC_EDITW, 0).Type(L"\x03"), "winport has no character 0x3");
    EXPECT_DEATH(PressWith(ControlHost(WC_EDITW, 0), VK_DELETE, {VK_SHIFT}),
                 "winport has no clipboard key 0x2e");
    EXPECT_DEATH(PressWith(ControlHost(WC_EDITW, 0), VK_INSERT, {VK_SHIFT}),
                 "winport has no clipboard key 0x2d");
    EXPECT_DEATH(PressWith(ControlHost(WC_EDITW, 0), VK_INSERT, {VK_CONTROL}),
                 "winport has no clipboard key 0x2d");
}

TEST(NativeOnly_ComboBox, AnUnsupportedMessageEndsTheRun)
{
    EXPECT_DEATH(ComboHost(CBS_DROPDOWN).Send(kExtendedInterface),
                 "winport has no message 0x155 for this window:\nComboBox");
}

TEST(NativeOnly_ComboBox, AListThatIsAlwaysOpenEndsTheRun)
{
    EXPECT_DEATH(Make(WC_COMBOBOXW, kAlwaysOpen), "winport has no style 0x1");
}

TEST(NativeOnly_DatePicker, AnUnsupportedMessageEndsTheRun)
{
    EXPECT_DEATH(ControlHost(DATETIMEPICK_CLASSW, 0).Send(kSetFormat),
                 "winport has no message 0x1032 for this window:\nSysDateTimePick32");
}

TEST(NativeOnly_DatePicker, AnUnsupportedStyleEndsTheRun)
{
    EXPECT_DEATH(Make(DATETIMEPICK_CLASSW, kLongFormat), "winport has no style 0x4");
}
