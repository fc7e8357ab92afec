// The modal message boxes of the module.
#pragma once

#include <windows.h>

/// Each shows a message box and returns when it is closed. If `parent` is null, the owner is the thread's
/// active window, so that a dialog is disabled while its own box is open. A null title or text is empty;
/// neither is translated here. The last argument is reserved and passed as 0.

/// No icon, OK.
void CoOkBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);

/// Error icon, OK. Returns IDOK.
int CoErrorBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);

/// Question icon, Yes and No. Returns IDYES (6) or IDNO.
int CoYesNoBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);

/// Information icon, OK. Returns IDOK.
int CoInfoBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);
