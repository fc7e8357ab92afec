// Translation of a whole dialog.
#pragma once

#include <windows.h>

/// Translates the caption of `window` and the texts of its labels, buttons and group frames by
/// CoTranslateText. Controls that hold the user's input (edits, combo boxes, lists) and texts without a
/// translation stay unchanged. Call it once, after the controls are created. Throws
/// ComException(E_OUTOFMEMORY).
void CoTranslateWindow(HWND window);
