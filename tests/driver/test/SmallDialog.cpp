#include "SmallDialog.h"

#include <utility>

DialogTemplate SmallDialogTemplate()
{
    DialogTemplate description(L"Gr\u00f6\u00dfe", kDialogStyle, 0, 0, 200, 150);
    description.Add(L"Button", IDOK, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 10, 10, 50, 14)
        .Add(L"Button", IDCANCEL, L"Cancel", WS_TABSTOP, 10, 30, 50, 14)
        .Add(L"Edit", kEdit, L"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, 70, 10, 100, 12)
        .Add(L"Button", kCheck, L"&Check", BS_AUTOCHECKBOX | WS_TABSTOP, 70, 30, 50, 12)
        .AddHidden(L"Button", kHidden, L"Hidden", WS_TABSTOP, 70, 50, 50, 14)
        .Add(L"Button", kDisabled, L"Disabled", WS_TABSTOP | WS_DISABLED, 70, 70, 50, 14)
        .Add(L"ComboBox", kDropDown, L"", CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP, 70, 90, 80, 60)
        .Add(L"ComboBox", kDropDownList, L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, 70, 110, 80, 60)
        .Add(L"Button", kAgain, L"Again", WS_TABSTOP, 10, 110, 50, 14)
        .Add(L"Static", kStatic, L"Some text", 0, 10, 130, 50, 10);
    return description;
}

INT_PTR RunSmallDialog(ModalDialog::Handler handler, HWND owner)
{
    DialogTemplate description = SmallDialogTemplate();
    return ModalDialog(description, std::move(handler)).Run(owner);
}
