// Access to the controls of a dialog by identifier.
#include "window/window.h"

using namespace winport;

HWND GetDlgItem(HWND dialog, int id)
{
    const Window* window = FindWindowOf(dialog);
    if (!window)
    {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    for (const Window* child : window->children)
    {
        if (static_cast<int>(child->id) == id)
            return child->handle;
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int GetDlgCtrlID(HWND window)
{
    return static_cast<int>(GetWindowLongPtrW(window, GWLP_ID));
}

LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND item = GetDlgItem(dialog, id);
    return item ? SendMessageW(item, message, wParam, lParam) : 0;
}

BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text)
{
    return SendDlgItemMessageW(dialog, id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned)
{
    const std::wstring text = isSigned ? std::to_wstring(static_cast<int>(value)) : std::to_wstring(value);
    return SetDlgItemTextW(dialog, id, text.c_str());
}

BOOL CheckRadioButton(HWND dialog, int first, int last, int checked)
{
    const Window* window = FindWindowOf(dialog);
    if (!window)
        return FALSE;
    std::vector<std::pair<HWND, bool>> radios;
    for (const Window* child : window->children)
    {
        const int id = static_cast<int>(child->id);
        if (id >= first && id <= last &&
            (SendMessageW(child->handle, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON))
            radios.emplace_back(child->handle, id == checked);
    }
    for (const auto& [radio, marked] : radios)
        SendMessageW(radio, BM_SETCHECK, marked ? BST_CHECKED : BST_UNCHECKED, 0);
    return TRUE;
}
