// What dialogs, buttons and statics do not have, and the units of dialogs.
#include "DialogTemplate.h"

#include <commctrl.h>
#include <windows.h>

#include <gtest/gtest.h>

namespace
{
constexpr DWORD kStyle = DS_SETFONT | WS_POPUP | WS_CAPTION;
constexpr DWORD kRadioByHand = 0x4;
constexpr DWORD kOwnerDrawn = 0xB;
constexpr DWORD kAllEvents = 0x4000;
constexpr DWORD kEtched = 0x10;
constexpr UINT kGetImage = 0x00F6;
constexpr UINT kSetImage = 0x0172;
constexpr int kListBox = 0x83;

INT_PTR CALLBACK Ignore(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

HWND Open(DialogTemplate description)
{
    return CreateDialogIndirectParamW(nullptr, description.Get(), nullptr, Ignore, 0);
}

HWND Make(const wchar_t* className, DWORD style)
{
    return CreateWindowExW(0, className, L"text", WS_POPUP | style, 0, 0, 50, 20, nullptr, nullptr, nullptr,
                           nullptr);
}

class NativeDialogs : public ::testing::Test
{
protected:
    NativeDialogs() { ::testing::GTEST_FLAG(death_test_style) = "threadsafe"; }
};
} // namespace

TEST_F(NativeDialogs, EndTheRunAtButtonsAndStaticsOfAnotherKind)
{
    EXPECT_DEATH(Make(WC_BUTTONW, kOwnerDrawn), "no style 0xb .*\n.*Button");
    EXPECT_DEATH(Make(WC_BUTTONW, kRadioByHand), "no style 0x4 .*\n.*Button");
    EXPECT_DEATH(Make(WC_BUTTONW, kAllEvents), "no style 0x4000 .*\n.*Button");
    EXPECT_DEATH(Make(WC_STATICW, kEtched), "no style 0x10 .*\n.*Static");
}

TEST_F(NativeDialogs, EndTheRunAtMessagesThatTheyDoNotHave)
{
    const HWND button = Make(WC_BUTTONW, BS_PUSHBUTTON);
    const HWND text = Make(WC_STATICW, SS_LEFT);
    EXPECT_DEATH(SendMessageW(button, kGetImage, 0, 0), "no message 0xf6 .*\n.*Button");
    EXPECT_DEATH(SendMessageW(text, kSetImage, 0, 0), "no message 0x172 .*\n.*Static");
    EXPECT_DEATH(SendMessageW(button, WM_USER, 0, 0), "no message 0x400 ");
    DestroyWindow(button);
    DestroyWindow(text);
}

TEST_F(NativeDialogs, EndTheRunAtTemplatesWithMoreThanTheyHave)
{
    DialogTemplate list(L"", kStyle, 0, 0, 50, 50);
    list.Add(kListBox, 10, L"", 0, 0, 0, 20, 10);
    EXPECT_DEATH(Open(list), "no window class 0x83");
    constexpr WORD kMenu[] = {LOWORD(kStyle), HIWORD(kStyle), 0, 0, 0, 0, 0, 50, 50, 0xFFFF, 7, 0, 0, 8, 0};
    const auto openWithMenu = [&] {
        CreateDialogIndirectParamW(nullptr, reinterpret_cast<LPCDLGTEMPLATEW>(kMenu), nullptr, Ignore, 0);
    };
    EXPECT_DEATH(openWithMenu(), "no menu of a dialog 0x7");
}

TEST_F(NativeDialogs, HaveUnitsOfSixByThirteenPixels)
{
    const HWND dialog = Open({L"", kStyle, 0, 0, 364, 235});
    RECT client{};
    GetClientRect(dialog, &client);
    EXPECT_EQ(client.right, 546);
    EXPECT_EQ(client.bottom, 382);
    DestroyWindow(dialog);
}

TEST_F(NativeDialogs, TakeNoLetterOfALabelThatShowsItsAmpersands)
{
    DialogTemplate plain(L"", kStyle, 0, 0, 50, 50);
    plain.Add(0x80, 10, L"First", WS_TABSTOP, 0, 0, 20, 10)
        .Add(0x82, 20, L"&Plain", SS_NOPREFIX, 0, 10, 20, 10)
        .Add(0x81, 30, L"", WS_TABSTOP, 0, 20, 20, 10);
    const HWND dialog = Open(plain);
    ShowWindow(dialog, SW_SHOW);
    MSG key{GetDlgItem(dialog, 10), WM_SYSCHAR, 'p', 0, 0, {}};
    IsDialogMessageW(dialog, &key);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, 10));
    DestroyWindow(dialog);
}
