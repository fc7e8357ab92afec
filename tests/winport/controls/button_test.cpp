// Buttons: push buttons, check boxes, radio buttons, group boxes.
#include "ControlHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{
using Codes = std::vector<int>;

constexpr LPARAM kInside = MAKELPARAM(5, 5);
constexpr LPARAM kOutside = MAKELPARAM(500, 5);

struct ButtonKind
{
    const char* name;
    DWORD style;
    LRESULT dialogCode;
    bool checks;       ///< keeps a mark
    bool checksItself; ///< a click changes the mark
};

const ButtonKind kKinds[] = {
    {"Push", BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, false, false},
    {"DefaultPush", BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON, false, false},
    {"AutoCheck", BS_AUTOCHECKBOX, DLGC_BUTTON, true, true},
    {"AutoRadio", BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, true, true},
};

// The codes of WM_COMMAND; a button also sends notifications about drawing.
Codes CommandsOf(ControlHost& host)
{
    Codes codes = host.Codes();
    codes.erase(std::remove_if(codes.begin(), codes.end(), [](int code) { return code < 0; }), codes.end());
    return codes;
}

class Button : public testing::TestWithParam<ButtonKind>
{
protected:
    ControlHost m_host{WC_BUTTONW, GetParam().style};

    LRESULT State() const { return m_host.Send(BM_GETSTATE); }
    LRESULT Check() const { return m_host.Send(BM_GETCHECK); }
    Codes Commands() { return CommandsOf(m_host); }
    LRESULT CheckAfterClick() const { return GetParam().checksItself ? BST_CHECKED : BST_UNCHECKED; }
};

std::string NameOf(const testing::TestParamInfo<ButtonKind>& info)
{
    return info.param.name;
}
} // namespace

INSTANTIATE_TEST_SUITE_P(Kinds, Button, testing::ValuesIn(kKinds), NameOf);

TEST_P(Button, AnswersTheDialogByItsKind)
{
    EXPECT_EQ(m_host.Send(WM_GETDLGCODE), GetParam().dialogCode);
}

TEST_P(Button, HoldsItsText)
{
    EXPECT_EQ(m_host.Text(), L"");
    EXPECT_TRUE(SetWindowTextW(m_host.Control(), L"&Press"));
    EXPECT_EQ(m_host.Text(), L"&Press");
    EXPECT_EQ(m_host.Send(WM_GETTEXTLENGTH), 6);
}

TEST_P(Button, IsClickedByTheMouse)
{
    m_host.Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    EXPECT_EQ(GetCapture(), m_host.Control());
    EXPECT_EQ(GetFocus(), m_host.Control());
    EXPECT_TRUE(State() & BST_PUSHED);
    EXPECT_EQ(Check(), BST_UNCHECKED);
    EXPECT_EQ(Commands(), Codes{});
    m_host.Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(State() & BST_PUSHED);
    EXPECT_EQ(Check(), CheckAfterClick());
    EXPECT_EQ(Commands(), Codes{BN_CLICKED});
}

TEST_P(Button, IsNotClickedWhenTheMouseLeft)
{
    m_host.Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    m_host.Send(WM_MOUSEMOVE, MK_LBUTTON, kOutside);
    EXPECT_FALSE(State() & BST_PUSHED);
    m_host.Send(WM_MOUSEMOVE, MK_LBUTTON, kInside);
    EXPECT_TRUE(State() & BST_PUSHED);
    m_host.Send(WM_LBUTTONUP, 0, kOutside);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(State() & BST_PUSHED);
    EXPECT_EQ(Check(), BST_UNCHECKED);
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, DoesNothingWhenTheMouseOnlyComesUp)
{
    m_host.Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(Check(), BST_UNCHECKED);
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, IsClickedByTheSpaceKey)
{
    SetFocus(m_host.Control());
    Commands();
    m_host.Send(WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_TRUE(State() & BST_PUSHED);
    EXPECT_EQ(Commands(), Codes{});
    m_host.Send(WM_KEYUP, VK_SPACE, static_cast<LPARAM>(0xC0000001));
    EXPECT_FALSE(State() & BST_PUSHED);
    EXPECT_EQ(Check(), CheckAfterClick());
    EXPECT_EQ(Commands(), Codes{BN_CLICKED});
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_P(Button, IgnoresOtherKeys)
{
    SetFocus(m_host.Control());
    Commands();
    for (const int key : {VK_RETURN, VK_ESCAPE, VK_DOWN, VK_TAB, 0x41})
        m_host.Press(static_cast<WORD>(key));
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, IsClickedByMessage)
{
    EXPECT_EQ(m_host.Send(BM_CLICK), 0);
    EXPECT_EQ(Commands(), Codes{BN_CLICKED});
    EXPECT_EQ(Check(), CheckAfterClick());
    EXPECT_EQ(GetFocus(), m_host.Control());
    EXPECT_FALSE(State() & BST_PUSHED);
}

TEST_P(Button, ComesUpWhenItLosesTheCapture)
{
    m_host.Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    ReleaseCapture();
    EXPECT_FALSE(State() & BST_PUSHED);
    m_host.Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, ComesUpWhenItLosesTheFocus)
{
    SetFocus(m_host.Control());
    Commands();
    m_host.Send(WM_KEYDOWN, VK_SPACE, 1);
    SetFocus(m_host.Window());
    EXPECT_FALSE(State() & BST_PUSHED);
    m_host.Send(WM_KEYUP, VK_SPACE, static_cast<LPARAM>(0xC0000001));
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, IsMarkedSilently)
{
    EXPECT_EQ(m_host.Send(BM_SETCHECK, BST_CHECKED), 0);
    EXPECT_EQ(Check(), GetParam().checks ? BST_CHECKED : BST_UNCHECKED);
    m_host.Send(BM_SETCHECK, BST_UNCHECKED);
    EXPECT_EQ(Check(), BST_UNCHECKED);
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, IsPushedSilently)
{
    m_host.Send(BM_SETSTATE, TRUE);
    EXPECT_TRUE(State() & BST_PUSHED);
    m_host.Send(BM_SETSTATE, FALSE);
    EXPECT_FALSE(State() & BST_PUSHED);
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, ShowsTheFocusInItsState)
{
    EXPECT_FALSE(State() & BST_FOCUS);
    SetFocus(m_host.Control());
    EXPECT_TRUE(State() & BST_FOCUS);
    SetFocus(m_host.Window());
    EXPECT_FALSE(State() & BST_FOCUS);
}

TEST_P(Button, IsNotClickedByTheFocus)
{
    SetFocus(m_host.Control());
    EXPECT_EQ(Check(), BST_UNCHECKED);
    EXPECT_EQ(Commands(), Codes{});
}

TEST_P(Button, HandlerMayDestroyIt)
{
    m_host.onCommand = [this](int) {
        DestroyWindow(m_host.Control());
    };
    m_host.Send(BM_CLICK);
    EXPECT_FALSE(IsWindow(m_host.Control()));
}

TEST_P(Button, HandlerMayDestroyTheWindowAroundIt)
{
    m_host.onCommand = [this](int) {
        DestroyWindow(m_host.Window());
    };
    m_host.Send(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
    m_host.Send(WM_LBUTTONUP, 0, kInside);
    EXPECT_FALSE(IsWindow(m_host.Control()));
}

TEST(CheckBox, TurnsWithEachClick)
{
    ControlHost host(WC_BUTTONW, BS_AUTOCHECKBOX);
    std::vector<LRESULT> checks;
    host.onCommand = [&](int) {
        checks.push_back(host.Send(BM_GETCHECK));
    };
    for (int click = 0; click < 3; ++click)
        host.Send(BM_CLICK);
    EXPECT_EQ(checks, (std::vector<LRESULT>{BST_CHECKED, BST_UNCHECKED, BST_CHECKED}));
}

TEST(RadioButton, StaysMarkedWithEachClick)
{
    ControlHost host(WC_BUTTONW, BS_AUTORADIOBUTTON);
    host.Send(BM_CLICK);
    host.Send(BM_CLICK);
    EXPECT_EQ(host.Send(BM_GETCHECK), BST_CHECKED);
}

TEST(RadioButton, IsReachedByTabOnlyWhileItIsMarked)
{
    const std::pair<DWORD, bool> cases[] = {{BS_AUTORADIOBUTTON, true}, {BS_AUTOCHECKBOX, false}};
    for (const auto& [style, changes] : cases)
    {
        const ControlHost host(WC_BUTTONW, style);
        const auto tabStop = [&] {
            return (GetWindowLongW(host.Control(), GWL_STYLE) & WS_TABSTOP) != 0;
        };
        host.Send(BM_SETCHECK, BST_CHECKED);
        EXPECT_EQ(tabStop(), changes);
        host.Send(BM_SETCHECK, BST_UNCHECKED);
        EXPECT_FALSE(tabStop());
    }
}

TEST(RadioButton, UnmarksTheOthersOfItsGroup)
{
    ControlHost host(WC_BUTTONW, BS_AUTORADIOBUTTON | WS_GROUP);
    std::vector<HWND> buttons{host.Control()};
    for (int index = 1; index < 4; ++index)
        buttons.push_back(CreateWindowExW(
            0, WC_BUTTONW, L"", WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON | (index == 3 ? WS_GROUP : 0), 0,
            0, 50, 20, host.Window(), nullptr, nullptr, nullptr));
    const auto checks = [&] {
        std::vector<LRESULT> marked;
        for (const HWND button : buttons)
            marked.push_back(SendMessageW(button, BM_GETCHECK, 0, 0));
        return marked;
    };
    using Marks = std::vector<LRESULT>;
    SendMessageW(buttons[3], BM_CLICK, 0, 0);
    SendMessageW(buttons[0], BM_CLICK, 0, 0);
    EXPECT_EQ(checks(), (Marks{1, 0, 0, 1}));
    SendMessageW(buttons[2], BM_CLICK, 0, 0);
    EXPECT_EQ(checks(), (Marks{0, 0, 1, 1}));
    SendMessageW(buttons[1], BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(checks(), (Marks{0, 1, 0, 1}));
}

TEST(GroupBox, IsNoButtonForTheUser)
{
    ControlHost host(WC_BUTTONW, BS_GROUPBOX);
    EXPECT_EQ(host.Send(WM_GETDLGCODE), DLGC_STATIC);
    EXPECT_EQ(host.Send(WM_NCHITTEST, 0, MAKELPARAM(15, 40)), HTTRANSPARENT);
    SetWindowTextW(host.Control(), L"Group");
    EXPECT_EQ(host.Text(), L"Group");
    host.Send(BM_SETCHECK, BST_CHECKED);
    EXPECT_EQ(host.Send(BM_GETCHECK), BST_UNCHECKED);
    EXPECT_EQ(CommandsOf(host), Codes{});
}

TEST(ButtonStyle, ChangesAtRunTime)
{
    ControlHost host(WC_BUTTONW, BS_PUSHBUTTON | WS_TABSTOP);
    EXPECT_EQ(host.Send(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE), 0);
    EXPECT_EQ(host.Send(WM_GETDLGCODE), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    const auto style = static_cast<DWORD>(GetWindowLongW(host.Control(), GWL_STYLE));
    EXPECT_EQ(style, WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON);
    host.Send(BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    EXPECT_EQ(host.Send(WM_GETDLGCODE), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
    EXPECT_EQ(CommandsOf(host), Codes{});
}

TEST(ButtonNotifications, TellNeitherTheFocusNorASecondClickApart)
{
    for (const DWORD style : {BS_PUSHBUTTON, BS_AUTOCHECKBOX, BS_AUTORADIOBUTTON})
    {
        ControlHost host(WC_BUTTONW, style);
        SetFocus(host.Control());
        SetFocus(host.Window());
        EXPECT_EQ(CommandsOf(host), Codes{}) << style;
        SetFocus(host.Control());
        host.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, kInside);
        host.Send(WM_LBUTTONUP, 0, kInside);
        EXPECT_EQ(CommandsOf(host), Codes{BN_CLICKED}) << style;
    }
}
