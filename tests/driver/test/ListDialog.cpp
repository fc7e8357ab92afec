#include "ListDialog.h"

#include "SmallDialog.h"

#include <commctrl.h>

#include <functional>
#include <string>
#include <utility>

namespace
{
void AddColumn(HWND list, int index, std::wstring caption, int width)
{
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = width;
    column.pszText = caption.data();
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void AddRow(HWND list, int row)
{
    std::wstring text = row == 3 ? std::wstring(300, L'x') : L"row " + std::to_wstring(row);
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = text.data();
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}
} // namespace

INT_PTR ListDialog::operator()(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        Fill(dialog);
    if (message != WM_NOTIFY || wParam != kList)
        return FALSE;
    const int code = static_cast<int>(reinterpret_cast<NMHDR*>(lParam)->code);
    events.push_back(code);
    if (code != static_cast<int>(LVN_ENDLABELEDITW))
        return FALSE;
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, TRUE);
    return TRUE;
}

void ListDialog::Fill(HWND dialog) const
{
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                        LVS_SHOWSELALWAYS | (editable ? LVS_EDITLABELS : 0);
    const HWND list =
        CreateWindowExW(0, WC_LISTVIEWW, L"", style, 100, 10, 150, 100, dialog,
                        reinterpret_cast<HMENU>(INT_PTR{kList}), GetModuleHandleW(nullptr), nullptr);
    AddColumn(list, 0, L"Name", 120);
    AddColumn(list, 1, L"", 0);
    for (int row = 0; row < 20; ++row)
        AddRow(list, row);
}

INT_PTR RunWithList(ListDialog& handler, Steps steps)
{
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    DialogTemplate description(L"Lists", kDialogStyle, 0, 0, 200, 120);
    description.Add(L"Button", IDOK, L"OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 5, 10, 40, 14)
        .AddHidden(L"SysListView32", kList, L"", LVS_REPORT | WS_TABSTOP, 60, 10, 100, 60);
    DialogDriver driver;
    steps.push_back(Presses(IDOK));
    driver.OnDialog(std::move(steps));
    return ModalDialog(description, std::ref(handler)).Run();
}
