// Translation of a whole dialog.
#pragma once

#include <windows.h>

/// Translates the caption of `window` and the texts of its labels, buttons and group frames,
/// each as CoTranslateText does. What a user types or chooses (fields, combo boxes, lists) stays as it is,
/// and so does a text without a translation. To be called once, when the controls are made. Throws
/// ComException(E_OUTOFMEMORY).
void CoTranslateWindow(HWND window);
