// Creates dialogs from their templates.
#include "dialog.h"
#include "window/thread.h"

#include <algorithm>

namespace winport
{
namespace
{
// The only font.
HFONT TheFont()
{
    static int font = 0;
    return reinterpret_cast<HFONT>(&font);
}

// Rounds halves away from 0.
int Scale(int value, int numerator, int denominator)
{
    const int product = value * numerator;
    const int half = product < 0 ? -denominator / 2 : denominator / 2;
    return (product + half) / denominator;
}

int PixelsAcross(int units)
{
    return Scale(units, kCharacterWidth, 4);
}

int PixelsDown(int units)
{
    return Scale(units, kCharacterHeight, 8);
}

const wchar_t* ClassOfNumber(WORD number)
{
    switch (number)
    {
    case 0x80:
        return WC_BUTTONW;
    case 0x81:
        return WC_EDITW;
    case 0x82:
        return WC_STATICW;
    case 0x85:
        return WC_COMBOBOXW;
    default:
        Missing(nullptr, "window class", number);
    }
}

DWORD ExStyleOf(const TemplateItem& dialog)
{
    const DWORD modal = dialog.style & DS_MODALFRAME ? WS_EX_DLGMODALFRAME : 0;
    return dialog.exStyle | WS_EX_CONTROLPARENT | modal;
}

struct Frame
{
    int sides;
    int top;
};

Frame FrameOf(DWORD style, DWORD exStyle)
{
    Window measured;
    measured.style = style;
    measured.exStyle = CompleteExStyle(style, exStyle);
    Reframe(measured);
    return {measured.frame, measured.frame + measured.caption};
}

// Moves a top-level dialog onto the screen, as far as it fits.
POINT KeptOnScreen(POINT place, SIZE size)
{
    const LONG right = kScreenWidth - size.cx;
    const LONG bottom = kScreenHeight - size.cy;
    return {std::max<LONG>(0, std::min(place.x, right)), std::max<LONG>(0, std::min(place.y, bottom))};
}

// The template gives the position of the client area, relative to that of the owner.
POINT PlaceOf(const TemplateItem& dialog, Frame frame, SIZE size, HWND owner)
{
    POINT place{PixelsAcross(dialog.x), PixelsDown(dialog.y)};
    if (owner && !(dialog.style & (DS_ABSALIGN | WS_CHILD)))
        MapWindowPoints(owner, nullptr, &place, 1);
    place = {place.x - frame.sides, place.y - frame.top};
    if (dialog.style & WS_CHILD)
        return place;
    if (dialog.style & DS_CENTER)
        place = {(kScreenWidth - size.cx) / 2, (kScreenHeight - size.cy) / 2};
    return KeptOnScreen(place, size);
}

HWND MakeDialogWindow(const TemplateItem& dialog, HWND owner, HINSTANCE module)
{
    const DWORD style = (dialog.style & ~WS_VISIBLE) | DS_3DLOOK;
    const DWORD exStyle = ExStyleOf(dialog);
    const Frame frame = FrameOf(style, exStyle);
    const SIZE size{PixelsAcross(dialog.width) + 2 * frame.sides,
                    PixelsDown(dialog.height) + frame.top + frame.sides};
    const POINT place = PlaceOf(dialog, frame, size, owner);
    return CreateWindowExW(exStyle, L"#32770", dialog.text.text.c_str(), style, place.x, place.y, size.cx,
                           size.cy, owner, nullptr, module, nullptr);
}

// A number instead of a text identifies an icon.
void GiveIcon(HWND control, WORD number, HINSTANCE module)
{
    if (const HICON icon = number ? LoadIconW(module, MAKEINTRESOURCEW(number)) : nullptr)
        SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
}

HWND MakeControlOf(const TemplateItem& item, HWND dialog, HINSTANCE module)
{
    const std::wstring className =
        item.className.number ? ClassOfNumber(item.className.number) : item.className.text;
    const HWND control = CreateWindowExW(
        item.exStyle | WS_EX_NOPARENTNOTIFY, className.c_str(), item.text.text.c_str(), item.style | WS_CHILD,
        PixelsAcross(item.x), PixelsDown(item.y), PixelsAcross(item.width), PixelsDown(item.height), dialog,
        reinterpret_cast<HMENU>(static_cast<LONG_PTR>(static_cast<int>(item.id))), module,
        const_cast<WORD*>(item.data));
    if (control)
        GiveIcon(control, item.text.number, module);
    return control;
}

bool MakeControls(const Template& read, HWND dialog, HINSTANCE module)
{
    const auto font = reinterpret_cast<WPARAM>(TheFont());
    bool hasDefault = false;
    for (const TemplateItem& item : read.controls)
    {
        const HWND control = MakeControlOf(item, dialog, module);
        if (!control || !Alive(dialog))
            return false;
        if (read.dialog.style & DS_SETFONT)
            SendMessageW(control, WM_SETFONT, font, FALSE);
        if (hasDefault || !(DialogCode(control) & DLGC_DEFPUSHBUTTON))
            continue;
        hasDefault = true;
        StateOf(dialog).defaultId = GetDlgCtrlID(control);
    }
    return true;
}

HWND FirstControl(HWND dialog)
{
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    return first ? first : GetNextDlgGroupItem(dialog, nullptr, FALSE);
}

// The handler of WM_INITDIALOG returns TRUE to have the focus set to the first control, FALSE if it has set
// the focus itself.
void Initialize(HWND dialog, LPARAM parameter)
{
    const auto first = reinterpret_cast<WPARAM>(FirstControl(dialog));
    if (!SendMessageW(dialog, WM_INITDIALOG, first, parameter) || !Alive(dialog) ||
        (FindWindowOf(dialog)->style & WS_CHILD))
        return;
    const HWND next = FirstControl(dialog);
    if (next && (DialogCode(next) & DLGC_HASSETSEL))
        SendMessageW(next, EM_SETSEL, 0, -1);
    SetFocus(next ? next : dialog);
}
} // namespace

DialogState& StateOf(HWND dialog)
{
    Window& window = *FindWindowOf(dialog);
    if (!window.control)
        window.control = std::make_unique<DialogState>(window);
    return static_cast<DialogState&>(*window.control);
}
} // namespace winport

using namespace winport;

HWND CreateDialogIndirectParamW(HINSTANCE module, LPCDLGTEMPLATEW description, HWND owner, DLGPROC procedure,
                                LPARAM parameter)
{
    if (!description)
        return nullptr;
    const Template read = ReadTemplate(description);
    const HWND dialog = MakeDialogWindow(read.dialog, owner, module);
    if (!dialog)
        return nullptr;
    SetWindowLongPtrW(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    if (read.dialog.style & DS_SETFONT)
    {
        FindWindowOf(dialog)->font = TheFont();
        SendMessageW(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(TheFont()), 0);
    }
    if (!MakeControls(read, dialog, module))
    {
        if (Alive(dialog))
            DestroyWindow(dialog);
        return nullptr;
    }
    Initialize(dialog, parameter);
    if (Alive(dialog) && (read.dialog.style & WS_VISIBLE))
        ShowWindow(dialog, SW_SHOWNORMAL);
    return Alive(dialog) ? dialog : nullptr;
}

// Would end a modal loop of the system. There is none: every dialog is created modeless.
BOOL EndDialog(HWND dialog, INT_PTR)
{
    const Window* window = OwnWindow(dialog, "end of a dialog of another thread");
    if (!window)
        return FALSE;
    const bool active = GetActiveWindow() == dialog;
    if (IsChild(dialog, GetFocus()))
        SetFocus(dialog);
    SetWindowPos(dialog, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    const HWND owner = Alive(dialog) ? GetWindow(dialog, GW_OWNER) : nullptr;
    if (owner && active)
        SetActiveWindow(owner); // even if it is disabled
    PostMessageW(dialog, WM_NULL, 0, 0);
    return TRUE;
}

BOOL MapDialogRect(HWND dialog, LPRECT rect)
{
    if (!FindWindowOf(dialog))
        return FALSE;
    *rect = {PixelsAcross(rect->left), PixelsDown(rect->top), PixelsAcross(rect->right),
             PixelsDown(rect->bottom)};
    return TRUE;
}
