// A dialog of a few controls for the tests of the driver.
#pragma once

#include "ModalDialog.h"

constexpr int kEdit = 101;
constexpr int kCheck = 102;
constexpr int kHidden = 103;
constexpr int kDisabled = 104;
constexpr int kDropDown = 105;
constexpr int kDropDownList = 106;
constexpr int kAgain = 107;
constexpr int kStatic = 108;

constexpr DWORD kDialogStyle = DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;

/// OK, Cancel and one control of each kind, in the order of the constants behind OK and Cancel.
DialogTemplate SmallDialogTemplate();

/// Shows the dialog until OK, Cancel or the close box. Returns the button's identifier.
INT_PTR RunSmallDialog(ModalDialog::Handler handler = {}, HWND owner = nullptr);
