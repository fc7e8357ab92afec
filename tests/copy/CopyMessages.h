// What a user does in the enhanced copy dialog, as messages: for dialogs that may end at any of them.
#pragma once

#include "CopyWords.h"
#include "GridSteps.h"

#include <commctrl.h>

namespace copy_dialog
{
/// Opens the list of plan types and goes to the next one.
inline void ChooseNext(HWND dialog)
{
    const HWND list = GetDlgItem(dialog, kPlanType);
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
    SendMessageW(list, CB_SHOWDROPDOWN, FALSE, 0);
}

/// Clicks the value of the first row, if there is one.
inline void ClickFirstValue(HWND dialog)
{
    const HWND grid = GetDlgItem(dialog, kGrid);
    if (SendMessageW(grid, LVM_GETITEMCOUNT, 0, 0) == 0)
        return;
    const RECT cell = CellPlace(grid, 0, 1);
    const LPARAM at = MAKELPARAM((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2);
    SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(grid, WM_LBUTTONUP, 0, at);
}

/// Types into the editor, if one is open, and ends it.
inline void TypeAndReturn(HWND dialog)
{
    const HWND editor = GridEditor(DialogView(dialog));
    for (const wchar_t character : {L'a', L'b', L'\r'})
        SendMessageW(editor, WM_CHAR, character, 1);
}

template <int Button>
inline void PressThis(HWND dialog)
{
    SendMessageW(GetDlgItem(dialog, Button), BM_CLICK, 0, 0);
}
} // namespace copy_dialog
