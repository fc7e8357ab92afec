#include "MessageBoxes.h"

namespace
{
int Show(HWND parent, const wchar_t* title, const wchar_t* text, UINT kind)
{
    const HWND owner = parent ? parent : GetActiveWindow();
    // In a background process no window is active: the box disables all top-level windows of the thread then.
    const UINT scope = owner ? MB_APPLMODAL : MB_TASKMODAL;
    return MessageBoxW(owner, text ? text : L"", title ? title : L"", kind | scope);
}
} // namespace

void CoOkBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG)
{
    Show(parent, title, text, MB_OK);
}

int CoErrorBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG)
{
    return Show(parent, title, text, MB_OK | MB_ICONERROR);
}

int CoYesNoBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG)
{
    return Show(parent, title, text, MB_YESNO | MB_ICONQUESTION);
}

int CoInfoBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG)
{
    return Show(parent, title, text, MB_OK | MB_ICONINFORMATION);
}
