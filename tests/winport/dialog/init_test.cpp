// How a dialog begins.
#include "DialogHost.h"

#include <gtest/gtest.h>

namespace
{
constexpr int kLabel = 10;
constexpr int kEdit = 11;
constexpr int kPush = 12;

DialogTemplate Description()
{
    DialogTemplate description(L"Begin", kCommonDialog, 0, 0, 150, 150);
    description.Add(0x82, kLabel, L"Label", 0, 0, 0, 50, 12)
        .Add(0x81, kEdit, L"text", ES_AUTOHSCROLL | WS_TABSTOP, 0, 12, 50, 12)
        .Add(0x80, kPush, L"Push", WS_TABSTOP, 0, 24, 50, 12);
    return description;
}

// Runs `act` in WM_INITDIALOG and answers it so.
DialogHost::Handler Initialize(const std::function<INT_PTR(HWND dialog, WPARAM wParam, LPARAM lParam)>& act)
{
    return [act](HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        return message == WM_INITDIALOG ? act(dialog, wParam, lParam) : FALSE;
    };
}
} // namespace

TEST(DialogBegin, IsAnnouncedWhenEverythingExists)
{
    HWND first = nullptr;
    HWND last = nullptr;
    LPARAM parameter = 0;
    const DialogHost host(Description(), Initialize([&](HWND dialog, WPARAM wParam, LPARAM lParam) {
                              first = reinterpret_cast<HWND>(wParam);
                              last = GetDlgItem(dialog, kPush);
                              parameter = lParam;
                              return TRUE;
                          }));
    EXPECT_EQ(first, host.Item(kEdit));
    EXPECT_EQ(last, host.Item(kPush));
    EXPECT_EQ(parameter, reinterpret_cast<LPARAM>(&host));
}

TEST(DialogBegin, HasTheFontBeforeWmInitDialog)
{
    // Before WM_INITDIALOG the host has no window handle, so this test reads the font inside the handler.
    HFONT font = nullptr;
    const DialogHost host(Description(), Initialize([&](HWND dialog, WPARAM, LPARAM) {
                              font = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
                              return TRUE;
                          }));
    EXPECT_NE(font, nullptr);
}

TEST(DialogBegin, TheFirstControlHasTheFocus)
{
    const DialogHost host(Description());
    host.Show();
    EXPECT_EQ(host.Focus(), kEdit);
    DWORD start = 9;
    DWORD end = 9;
    SendMessageW(host.Item(kEdit), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0u);
    EXPECT_EQ(end, 4u) << "its text is selected";
}

TEST(DialogBegin, TheHandlerChoosesTheFocus)
{
    const DialogHost host(Description(), Initialize([](HWND dialog, WPARAM, LPARAM) {
                              SetFocus(GetDlgItem(dialog, kPush));
                              return FALSE;
                          }));
    host.Show();
    EXPECT_EQ(host.Focus(), kPush);
}

TEST(DialogBegin, TheHandlersFocusIsLostIfItReturnsTrue)
{
    const DialogHost host(Description(), Initialize([](HWND dialog, WPARAM, LPARAM) {
                              SetFocus(GetDlgItem(dialog, kPush));
                              return TRUE;
                          }));
    host.Show();
    EXPECT_EQ(host.Focus(), kEdit);
}

TEST(DialogBegin, TheFirstControlGetsTheFocusIfTheHandlerChoosesNone)
{
    const DialogHost host(Description(), Initialize([](HWND, WPARAM, LPARAM) { return FALSE; }));
    host.Show();
    EXPECT_EQ(host.Focus(), kEdit);
}

TEST(DialogBegin, AControlThatTheHandlerHidOrDisabledIsSkipped)
{
    for (const bool hide : {true, false})
    {
        const DialogHost host(Description(), Initialize([hide](HWND dialog, WPARAM wParam, LPARAM) {
                                  const auto first = reinterpret_cast<HWND>(wParam);
                                  EXPECT_EQ(first, GetDlgItem(dialog, kEdit));
                                  if (hide)
                                      ShowWindow(first, SW_HIDE);
                                  else
                                      EnableWindow(first, FALSE);
                                  return TRUE;
                              }));
        host.Show();
        EXPECT_EQ(host.Focus(), kPush) << hide;
    }
}

TEST(DialogBegin, WithoutATabStopTheFirstControlHasTheFocus)
{
    DialogTemplate description(L"Plain", kCommonDialog, 0, 0, 50, 50);
    description.Add(0x82, kLabel, L"Label", 0, 0, 0, 50, 12);
    const DialogHost host(std::move(description));
    host.Show();
    EXPECT_EQ(host.Focus(), kLabel);
}

TEST(DialogBegin, WithoutAControlTheDialogHasTheFocus)
{
    const DialogHost host({L"Plain", kCommonDialog, 0, 0, 50, 50});
    host.Show();
    EXPECT_EQ(host.Focus(), -1);
}

TEST(DialogBegin, TheFirstButtonThatLooksLikeTheDefaultIsIt)
{
    DialogTemplate description(L"Default", kCommonDialog, 0, 0, 150, 150);
    description.Add(0x80, 20, L"One", WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, 21, L"Two", BS_DEFPUSHBUTTON | WS_TABSTOP, 0, 0, 50, 12)
        .Add(0x80, 22, L"Three", WS_TABSTOP, 0, 0, 50, 12);
    const DialogHost host(std::move(description));
    EXPECT_EQ(SendMessageW(host.Window(), DM_GETDEFID, 0, 0), MAKELONG(21, DC_HASDEFID));
}

TEST(DialogBegin, WithoutSuchAButtonOkIsTheDefault)
{
    const DialogHost host(Description());
    EXPECT_EQ(SendMessageW(host.Window(), DM_GETDEFID, 0, 0), MAKELONG(IDOK, DC_HASDEFID));
}

TEST(DialogBegin, ADefaultThatDoesNotLookLikeOneStaysSo)
{
    DialogTemplate description(L"Plain", kCommonDialog, 0, 0, 50, 50);
    description.Add(0x81, kEdit, L"text", ES_AUTOHSCROLL | WS_TABSTOP, 0, 12, 50, 12)
        .Add(0x80, IDOK, L"OK", WS_TABSTOP, 0, 0, 50, 12);
    const DialogHost host(std::move(description));
    const auto look = [&] {
        return GetWindowLongW(host.Item(IDOK), GWL_STYLE) & static_cast<LONG>(BS_TYPEMASK);
    };
    host.Show();
    EXPECT_EQ(look(), static_cast<LONG>(BS_PUSHBUTTON));
    host.Press(VK_TAB);
    EXPECT_EQ(look(), static_cast<LONG>(BS_DEFPUSHBUTTON));
    host.Press(VK_TAB);
    EXPECT_EQ(host.Focus(), kEdit);
    EXPECT_EQ(look(), static_cast<LONG>(BS_DEFPUSHBUTTON));
}

TEST(DialogBegin, AHandlerMayDestroyTheDialog)
{
    const DialogHost host(Description(), Initialize([](HWND dialog, WPARAM, LPARAM) {
                              DestroyWindow(dialog);
                              return TRUE;
                          }));
    EXPECT_FALSE(IsWindow(host.Window()));
}

TEST(DialogBegin, AHandlerMayShowTheDialog)
{
    const DialogHost host(Description(), Initialize([](HWND dialog, WPARAM, LPARAM) {
                              ShowWindow(dialog, SW_SHOW);
                              return TRUE;
                          }));
    EXPECT_TRUE(IsWindowVisible(host.Window()));
    EXPECT_EQ(host.Focus(), kEdit);
}
