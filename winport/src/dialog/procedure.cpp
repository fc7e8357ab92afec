// Default handling of the messages of a dialog, after its own procedure.
#include "dialog.h"
#include "window/thread.h"

#include <utility>

namespace winport
{
namespace
{
bool IsPushButton(LRESULT code)
{
    return (code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

void SaveFocus(HWND dialog)
{
    Window* window = FindWindowOf(dialog);
    const Window* focus = FindWindowOf(ThisThread().focus);
    if (window && focus && focus != window && IsWithin(*window, focus))
        StateOf(dialog).focus = focus->handle;
}

bool MayHaveFocus(HWND dialog, HWND control)
{
    return control && IsChild(dialog, control) && IsWindowVisible(control) && IsWindowEnabled(control);
}

void RestoreFocus(HWND dialog)
{
    const HWND saved = StateOf(dialog).focus;
    const HWND first = MayHaveFocus(dialog, saved) ? saved : GetNextDlgTabItem(dialog, nullptr, FALSE);
    SetFocus(first ? first : dialog);
}

void OnNextControl(HWND dialog, WPARAM wParam, bool isHandle)
{
    if (isHandle)
        GiveFocusTo(dialog, reinterpret_cast<HWND>(wParam));
    else if (const HWND next = GetNextDlgTabItem(dialog, GetFocus(), wParam != 0))
        GiveFocusTo(dialog, next);
}

void OnClose(HWND dialog)
{
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
}

LRESULT SetDefaultId(HWND dialog, int id)
{
    DialogState& state = StateOf(dialog);
    const int before = std::exchange(state.defaultId, id);
    const HWND old = GetDlgItem(dialog, before);
    if (before != id && old && (DialogCode(old) & DLGC_DEFPUSHBUTTON))
        SendMessageW(old, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    const HWND button = GetDlgItem(dialog, id);
    if (button && (DialogCode(button) & DLGC_UNDEFPUSHBUTTON))
        SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    return TRUE;
}

LRESULT GetDefaultId(HWND dialog)
{
    return MAKELPARAM(StateOf(dialog).defaultId, DC_HASDEFID);
}

LRESULT Default(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_SHOWWINDOW:
        if (!wParam)
            SaveFocus(dialog);
        break;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE)
            SaveFocus(dialog);
        else
            RestoreFocus(dialog);
        return 0;
    case WM_SETFOCUS:
        RestoreFocus(dialog);
        return 0;
    case WM_NEXTDLGCTL:
        OnNextControl(dialog, wParam, lParam != 0);
        return 0;
    case WM_CLOSE:
        OnClose(dialog);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(FindWindowOf(dialog)->font);
    case DM_SETDEFID:
        return SetDefaultId(dialog, static_cast<int>(wParam));
    case DM_GETDEFID:
        return GetDefaultId(dialog);
    default:
        break;
    }
    return DefWindowProcW(dialog, message, wParam, lParam);
}

// The result of these messages is the return value of the procedure, not DWLP_MSGRESULT.
bool AnswersDirectly(UINT message)
{
    return message == WM_INITDIALOG || (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
}
} // namespace

LRESULT DialogCode(HWND control)
{
    return SendMessageW(control, WM_GETDLGCODE, 0, 0);
}

void MoveDefaultLook(HWND dialog, HWND button)
{
    const HWND natural = GetDlgItem(dialog, StateOf(dialog).defaultId);
    const HWND next = button ? button : natural;
    for (const HWND child : HandlesOf(FindWindowOf(dialog)->children))
    {
        const LRESULT code = Alive(child) ? DialogCode(child) : 0;
        if (child != next && (code & DLGC_DEFPUSHBUTTON))
            SendMessageW(child, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        if (child == next && (code & DLGC_UNDEFPUSHBUTTON))
            SendMessageW(child, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    }
}

void GiveFocusTo(HWND dialog, HWND control)
{
    const LRESULT code = DialogCode(control);
    if (code & DLGC_HASSETSEL)
        SendMessageW(control, EM_SETSEL, 0, -1);
    SetFocus(control);
    if (Alive(dialog))
        MoveDefaultLook(dialog, IsPushButton(code) ? control : nullptr);
}

LRESULT CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrW(dialog, DWLP_DLGPROC));
    INT_PTR handled = FALSE;
    if (procedure)
    {
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 0);
        handled = procedure(dialog, message, wParam, lParam);
    }
    if (!FindWindowOf(dialog) || AnswersDirectly(message))
        return handled;
    return handled ? GetWindowLongPtrW(dialog, DWLP_MSGRESULT) : Default(dialog, message, wParam, lParam);
}
} // namespace winport
