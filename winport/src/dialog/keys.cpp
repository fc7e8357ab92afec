// The keys that move between the controls of a dialog and press its buttons.
#include "dialog.h"

#include "base/text.h"

#include <algorithm>

namespace winport
{
namespace
{
// Returns the child of the dialog that is or contains the window.
HWND ControlAround(HWND dialog, HWND window)
{
    while (window && window != dialog && GetParent(window) != dialog)
        window = GetParent(window);
    return window == dialog ? nullptr : window;
}

bool IsUsable(HWND control)
{
    return IsWindowVisible(control) && IsWindowEnabled(control);
}

void Press(HWND dialog, int id)
{
    const HWND button = GetDlgItem(dialog, id);
    if (!button || IsWindowEnabled(button))
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

// Escape works even if the Cancel button is hidden or disabled.
void Cancel(HWND dialog)
{
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
}

void OnTab(HWND dialog)
{
    const bool back = GetKeyState(VK_SHIFT) < 0;
    if (const HWND next = GetNextDlgTabItem(dialog, ControlAround(dialog, GetFocus()), back))
        GiveFocusTo(dialog, next);
}

void OnArrow(HWND dialog, HWND from, bool back)
{
    const HWND next = GetNextDlgGroupItem(dialog, ControlAround(dialog, from), back);
    if (!next)
        return;
    const LRESULT code = DialogCode(next);
    GiveFocusTo(dialog, next);
    const bool automatic =
        (GetWindowLongW(next, GWL_STYLE) & static_cast<LONG>(BS_TYPEMASK)) == BS_AUTORADIOBUTTON;
    if (Alive(next) && (code & DLGC_RADIOBUTTON) && automatic)
        SendMessageW(next, BM_CLICK, 0, 0);
}

void OnEnter(HWND dialog)
{
    const HWND focus = GetFocus();
    if (focus && IsChild(dialog, focus) && (DialogCode(focus) & DLGC_DEFPUSHBUTTON))
        return Press(dialog, GetDlgCtrlID(focus));
    const LRESULT defaultId = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    Press(dialog, HIWORD(defaultId) == DC_HASDEFID ? LOWORD(defaultId) : IDOK);
}

// Returns false if the dialog does not handle the key.
bool OnKey(HWND dialog, const MSG& message, LRESULT wanted)
{
    switch (message.wParam)
    {
    case VK_TAB:
        if (!(wanted & DLGC_WANTTAB))
            OnTab(dialog);
        return !(wanted & DLGC_WANTTAB);
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (!(wanted & DLGC_WANTARROWS))
            OnArrow(dialog, message.hwnd, message.wParam == VK_LEFT || message.wParam == VK_UP);
        return !(wanted & DLGC_WANTARROWS);
    case VK_ESCAPE:
        Cancel(dialog);
        return true;
    case VK_RETURN:
        OnEnter(dialog);
        return true;
    default:
        return false;
    }
}

// Returns the character after a single ampersand, 0 if there is none.
wchar_t MnemonicOf(HWND control)
{
    const Window* window = FindWindowOf(control);
    const std::wstring& text = window->text;
    for (std::size_t at = text.find(L'&'); at != text.npos && at + 1 < text.size();
         at = text.find(L'&', at + 2))
    {
        if (text[at + 1] != L'&')
            return Upper(text[at + 1]);
    }
    return 0;
}

bool AnswersTo(HWND control, wchar_t letter)
{
    const LRESULT code = DialogCode(control);
    const bool plain = (code & DLGC_STATIC) &&
                       (GetWindowLongW(control, GWL_STYLE) & static_cast<LONG>(SS_NOPREFIX)) &&
                       !(code & DLGC_BUTTON);
    return (code & (DLGC_BUTTON | DLGC_STATIC)) && !plain && IsUsable(control) &&
           MnemonicOf(control) == letter;
}

bool OnMnemonic(HWND dialog, HWND from, wchar_t letter)
{
    const std::vector<HWND> controls = HandlesOf(FindWindowOf(dialog)->children);
    const auto focus = std::find(controls.begin(), controls.end(), ControlAround(dialog, from));
    const std::size_t start =
        focus == controls.end() ? 0 : static_cast<std::size_t>(focus - controls.begin()) + 1;
    for (std::size_t step = 0; step < controls.size(); ++step)
    {
        const HWND control = controls[(start + step) % controls.size()];
        if (!AnswersTo(control, Upper(letter)))
            continue;
        // The mnemonic of a label selects the next tab stop.
        const bool label = DialogCode(control) & DLGC_STATIC;
        GiveFocusTo(dialog, label ? GetNextDlgTabItem(dialog, control, FALSE) : control);
        if (!label)
            SendMessageW(control, BM_CLICK, 0, 0);
        return true;
    }
    return false;
}

bool OnCharacter(HWND dialog, const MSG& message)
{
    if (message.message == WM_CHAR)
    {
        const LRESULT wanted =
            SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
        if (wanted & (DLGC_WANTCHARS | DLGC_WANTMESSAGE))
            return false;
    }
    return OnMnemonic(dialog, message.hwnd, static_cast<wchar_t>(message.wParam));
}

bool OnMessage(HWND dialog, const MSG& message)
{
    if (message.message == WM_CHAR || message.message == WM_SYSCHAR)
        return OnCharacter(dialog, message);
    if (message.message != WM_KEYDOWN)
        return false;
    const LRESULT wanted =
        SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    return !(wanted & DLGC_WANTMESSAGE) && OnKey(dialog, message, wanted);
}
} // namespace
} // namespace winport

using namespace winport;

BOOL IsDialogMessageW(HWND dialog, LPMSG message)
{
    if (!FindWindowOf(dialog) || !message->hwnd ||
        (message->hwnd != dialog && !IsChild(dialog, message->hwnd)))
        return FALSE;
    if (OnMessage(dialog, *message))
        return TRUE;
    TranslateMessage(message);
    DispatchMessageW(message);
    return TRUE;
}
