// The modal message boxes of the module.
#pragma once

#include <windows.h>

/// Each shows a box and returns when it closes. `parent` may be null: the thread's active window is then the
/// owner, so that no dialog stays usable behind its own box. A null title or text is an empty one; both are
/// shown as given. The last argument is reserved and passed as 0.

/// A text to take note of: no icon, OK.
void CoOkBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);

/// An error: error icon, OK. Returns IDOK.
int CoErrorBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);

/// A question: question icon, Yes and No. Returns IDYES (6) or IDNO.
int CoYesNoBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);

/// An information: information icon, OK. Returns IDOK.
int CoInfoBox(HWND parent, const wchar_t* title, const wchar_t* text, LONG reserved);
