// Edit fields: the text, the selection, the limit, the notifications.
#include "ControlHost.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
using Codes = std::vector<int>;
using Range = std::pair<DWORD, DWORD>;

const Codes kChanged{EN_UPDATE, EN_CHANGE};

class EditHost : public ControlHost
{
public:
    explicit EditHost(const wchar_t* text = L"", DWORD style = WS_BORDER | ES_AUTOHSCROLL)
        : ControlHost(WC_EDITW, style, 200, 24)
    {
        SetWindowTextW(Control(), text);
        ControlHost::Codes();
    }

    Range Selection() const
    {
        Range range{99, 99};
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&range.first), reinterpret_cast<LPARAM>(&range.second));
        return range;
    }
    void Select(int first, int last) const { Send(EM_SETSEL, static_cast<WPARAM>(first), last); }
    void Replace(const wchar_t* text) const { SendText(EM_REPLACESEL, FALSE, text); }
};

std::wstring TextOf(HWND window)
{
    wchar_t text[50];
    GetWindowTextW(window, text, 50);
    return text;
}
} // namespace

TEST(Edit, TextGivenAtCreationIsThere)
{
    const EditHost host;
    const HWND field = CreateWindowExW(0, WC_EDITW, L"start", WS_CHILD, 0, 0, 50, 20, host.Window(), nullptr,
                                       nullptr, nullptr);
    EXPECT_EQ(TextOf(field), L"start");
    DWORD first = 9;
    DWORD last = 9;
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(Range(0, 0), Range(first, last));
    DestroyWindow(field);
}

TEST(Edit, ANewTextNotifiesTheOwnerAndMovesTheCaret)
{
    EditHost host(L"before");
    host.Select(1, 3);
    EXPECT_EQ(host.SendText(WM_SETTEXT, 0, L"after"), TRUE);
    EXPECT_EQ(host.Text(), L"after");
    EXPECT_EQ(host.Codes(), kChanged);
    EXPECT_EQ(host.Selection(), Range(0, 0));
}

TEST(Edit, TheSameTextIsNotifiedAgain)
{
    EditHost host(L"same");
    SetWindowTextW(host.Control(), L"same");
    EXPECT_EQ(host.Codes(), kChanged);
}

TEST(Edit, ANullTextEmptiesTheField)
{
    const EditHost host(L"text");
    EXPECT_EQ(host.SendText(WM_SETTEXT, 0, nullptr), TRUE);
    EXPECT_EQ(host.Text(), L"");
    EXPECT_EQ(host.Send(WM_GETTEXTLENGTH), 0);
}

TEST(Edit, TheOwnerIsNotifiedAfterTheTextHasChanged)
{
    EditHost host;
    std::vector<std::wstring> seen;
    host.onCommand = [&](int) {
        seen.push_back(host.Text());
    };
    host.Type(L"a");
    EXPECT_EQ(seen, (std::vector<std::wstring>{L"a", L"a"}));
}

TEST(Edit, TextIsReadUpToTheSizeOfTheBuffer)
{
    const EditHost host(L"abcdef");
    wchar_t buffer[4] = {};
    EXPECT_EQ(host.Send(WM_GETTEXT, 4, reinterpret_cast<LPARAM>(buffer)), 3);
    EXPECT_STREQ(buffer, L"abc");
    EXPECT_EQ(host.Send(WM_GETTEXTLENGTH), 6);
}

TEST(Edit, TypedCharactersGoToTheCaret)
{
    EditHost host(L"ad");
    host.Select(1, 1);
    host.Type(L"bc");
    EXPECT_EQ(host.Text(), L"abcd");
    EXPECT_EQ(host.Selection(), Range(3, 3));
    EXPECT_EQ(host.Codes(), (Codes{EN_UPDATE, EN_CHANGE, EN_UPDATE, EN_CHANGE}));
}

TEST(Edit, ATypedCharacterReplacesTheSelection)
{
    EditHost host(L"abcd");
    host.Select(1, 3);
    host.Type(L"x");
    EXPECT_EQ(host.Text(), L"axd");
    EXPECT_EQ(host.Selection(), Range(2, 2));
    EXPECT_EQ(host.Codes(), kChanged);
}

TEST(Edit, CharactersOfOtherScriptsAreTyped)
{
    const EditHost host;
    host.Type(L"\u00e9\u05d0\u4e2d");
    EXPECT_EQ(host.Text(), L"\u00e9\u05d0\u4e2d");
}

TEST(Edit, EnterTabAndEscapeWriteNothing)
{
    EditHost host(L"text");
    host.Press(VK_RETURN);
    host.Press(VK_TAB);
    host.Press(VK_ESCAPE);
    EXPECT_EQ(host.Text(), L"text");
    EXPECT_EQ(host.Codes(), Codes{});
}

TEST(Edit, EverythingIsSelectedFromZeroToMinusOne)
{
    EditHost host(L"abcdef");
    host.Select(0, -1);
    EXPECT_EQ(host.Selection(), Range(0, 6));
    EXPECT_EQ(host.Codes(), Codes{});
    host.Type(L"x");
    EXPECT_EQ(host.Text(), L"x");
}

TEST(Edit, AStartOfMinusOneTakesTheSelectionAway)
{
    const EditHost host(L"abcdef");
    host.Select(1, 4);
    host.Select(-1, 0);
    EXPECT_EQ(host.Selection(), Range(4, 4));
}

TEST(Edit, ASelectionEndsWithTheText)
{
    const EditHost host(L"abcd");
    host.Select(1, 99);
    EXPECT_EQ(host.Selection(), Range(1, 4));
    host.Select(50, 99);
    EXPECT_EQ(host.Selection(), Range(4, 4));
}

TEST(Edit, ASelectionFromBehindIsReadFromTheFront)
{
    const EditHost host(L"abcd");
    host.Select(3, 1);
    EXPECT_EQ(host.Selection(), Range(1, 3));
}

TEST(Edit, TheSelectionIsAlsoReturnedInOneNumber)
{
    const EditHost host(L"abcd");
    host.Select(1, 3);
    EXPECT_EQ(host.Send(EM_GETSEL), MAKELONG(1, 3));
}

TEST(Edit, ASelectionBeyondSixteenBitsIsReadByPointers)
{
    const EditHost host(std::wstring(70000, L'x').c_str());
    host.Select(0, -1);
    EXPECT_EQ(host.Selection(), Range(0, 70000));
}

TEST(Edit, ReplacingTheSelectionPutsTheCaretBehind)
{
    EditHost host(L"abcdef");
    host.Select(1, 3);
    host.Replace(L"12345");
    EXPECT_EQ(host.Text(), L"a12345def");
    EXPECT_EQ(host.Selection(), Range(6, 6));
    EXPECT_EQ(host.Codes(), kChanged);
}

TEST(Edit, ReplacingByNothingDeletes)
{
    EditHost host(L"abcdef");
    host.Select(1, 3);
    host.Replace(L"");
    EXPECT_EQ(host.Text(), L"adef");
    EXPECT_EQ(host.Codes(), kChanged);
}

TEST(Edit, ReplacingNothingByNothingIsSilent)
{
    EditHost host(L"abc");
    host.Replace(L"");
    EXPECT_EQ(host.Codes(), Codes{});
}

TEST(Edit, TheLimitIsThirtyThousandCharactersAtFirst)
{
    const EditHost host;
    EXPECT_EQ(host.Send(EM_GETLIMITTEXT), 30000);
    host.Send(EM_SETLIMITTEXT, 5);
    EXPECT_EQ(host.Send(EM_GETLIMITTEXT), 5);
}

TEST(Edit, ALimitOfZeroIsTheGreatestOne)
{
    const EditHost host;
    host.Send(EM_SETLIMITTEXT, 0);
    EXPECT_EQ(host.Send(EM_GETLIMITTEXT), 0x7FFFFFFE);
}

TEST(Edit, TypingStopsAtTheLimitAndTheOwnerIsNotified)
{
    EditHost host(L"abc");
    host.Send(EM_SETLIMITTEXT, 4);
    host.Select(3, 3);
    host.Type(L"d");
    EXPECT_EQ(host.Codes(), kChanged);
    host.Type(L"e");
    EXPECT_EQ(host.Text(), L"abcd");
    EXPECT_EQ(host.Codes().at(0), EN_MAXTEXT);
}

TEST(Edit, ASelectionMayBeTypedOverAtTheLimit)
{
    EditHost host(L"abcd");
    host.Send(EM_SETLIMITTEXT, 4);
    host.Select(0, 1);
    host.Type(L"x");
    EXPECT_EQ(host.Text(), L"xbcd");
    EXPECT_EQ(host.Codes(), kChanged);
}

TEST(Edit, AReplacementIsCutAtTheLimit)
{
    EditHost host(L"abc");
    host.Send(EM_SETLIMITTEXT, 5);
    host.Select(3, 3);
    host.Replace(L"12345");
    EXPECT_EQ(host.Text(), L"abc12");
    EXPECT_EQ(host.Codes(), (Codes{EN_MAXTEXT, EN_UPDATE, EN_CHANGE}));
}

TEST(Edit, AnAssignedTextMayBeLongerThanTheLimit)
{
    const EditHost host;
    host.Send(EM_SETLIMITTEXT, 3);
    SetWindowTextW(host.Control(), L"abcdef");
    EXPECT_EQ(host.Text(), L"abcdef");
    EXPECT_EQ(host.Send(EM_GETLIMITTEXT), 3);
    host.Type(L"x");
    EXPECT_EQ(host.Text(), L"abcdef");
}

TEST(Edit, TenThousandCharactersAreKept)
{
    const std::wstring text(10000, L'q');
    const EditHost host(text.c_str());
    EXPECT_EQ(host.Send(WM_GETTEXTLENGTH), 10000);
    EXPECT_EQ(host.Text(), text);
    host.Select(10000, 10000);
    host.Type(L"x");
    EXPECT_EQ(host.Text(), text + L"x");
}

TEST(Edit, WithoutScrollingWhatFitsIsTyped)
{
    const EditHost host(L"", WS_BORDER);
    host.Type(L"short");
    EXPECT_EQ(host.Text(), L"short");
}

TEST(Edit, TheBorderIsNoStyleButPartOfTheClientArea)
{
    const EditHost host(L"", WS_BORDER | ES_AUTOHSCROLL);
    RECT client{};
    GetClientRect(host.Control(), &client);
    EXPECT_EQ(client.right, 200);
    EXPECT_EQ(client.bottom, 24);
    EXPECT_EQ(GetWindowLongW(host.Control(), GWL_STYLE), WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL);
}

TEST(Edit, TheFocusIsNotifiedAndKeepsTheSelection)
{
    EditHost host(L"abc");
    host.Select(1, 2);
    SetFocus(host.Control());
    EXPECT_EQ(host.Codes(), Codes{EN_SETFOCUS});
    SetFocus(host.Window());
    EXPECT_EQ(host.Codes(), Codes{EN_KILLFOCUS});
    EXPECT_EQ(host.Selection(), Range(1, 2));
}

TEST(Edit, WantsCharactersArrowsAndASelectionFromItsDialog)
{
    const EditHost host;
    EXPECT_EQ(host.Send(WM_GETDLGCODE), DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_HASSETSEL);
}

TEST(Edit, TheFontIsKept)
{
    const EditHost host;
    const auto font = reinterpret_cast<HFONT>(static_cast<INT_PTR>(0x1234));
    host.Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    EXPECT_EQ(reinterpret_cast<HFONT>(host.Send(WM_GETFONT)), font);
}

TEST(Edit, AClickTakesTheFocusAndPutsTheCaretThere)
{
    EditHost host(L"abc");
    host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(190, 5));
    host.Send(WM_LBUTTONUP, 0, MAKELPARAM(190, 5));
    EXPECT_EQ(GetFocus(), host.Control());
    EXPECT_EQ(host.Codes(), Codes{EN_SETFOCUS});
    EXPECT_EQ(host.Selection(), Range(3, 3));
    host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 5));
    host.Send(WM_LBUTTONUP, 0, MAKELPARAM(1, 5));
    EXPECT_EQ(host.Selection(), Range(0, 0));
}

TEST(Edit, AClickWithShiftSelectsFromTheCaret)
{
    const EditHost host(L"abc");
    host.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(190, 5));
    host.Send(WM_LBUTTONUP, 0, MAKELPARAM(190, 5));
    host.Send(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(1, 5));
    host.Send(WM_LBUTTONUP, 0, MAKELPARAM(1, 5));
    EXPECT_EQ(host.Selection(), Range(0, 3));
}

TEST(Edit, ADoubleClickSelectsAWord)
{
    const EditHost host(L"one two");
    host.Send(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 5));
    host.Send(WM_LBUTTONUP, 0, MAKELPARAM(3, 5));
    EXPECT_EQ(host.Selection(), Range(0, 4));
}

TEST(Edit, AFieldMayBeDestroyedByTheHandlerOfAChange)
{
    EditHost host;
    host.onCommand = [&](int code) {
        if (code == EN_UPDATE)
            DestroyWindow(host.Control());
    };
    host.Type(L"a");
    EXPECT_FALSE(IsWindow(host.Control()));
    EXPECT_EQ(host.Codes().at(0), EN_UPDATE);
}
