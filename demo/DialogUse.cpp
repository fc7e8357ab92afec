#include "DialogUse.h"

#include "Table.h"

#include <commctrl.h>

int RowOf(const DialogView& view, const std::wstring& name)
{
    int row = view.Rows(view.List()) - 1;
    while (row >= 0 && view.Cell(view.List(), row, 0) != name)
        --row;
    return row;
}

void PrintRows(const DialogView& view)
{
    PrintLine(L"  " + view.Title());
    for (int row = 0; row < view.Rows(view.List()); ++row)
        PrintLine(L"    " + view.Cell(view.List(), row, 0));
}

void PressButton(const DialogView& view, int button)
{
    Says(L"the button \"" + view.Text(button) + L"\" is pressed");
    view.Click(button);
}

void PickRow(const DialogView& view, const std::wstring& name)
{
    view.SelectRow(view.List(), RowOf(view, name));
    view.Click(IDOK);
}

void SelectNothing(const DialogView& view)
{
    const HWND list = view.List();
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(view.Rows(list) - 1), FALSE);
    RECT area{};
    GetClientRect(list, &area);
    const LPARAM corner = MAKELPARAM(area.right - 3, area.bottom - 3);
    // While it handles the press, the list waits for the button to be released.
    PostMessageW(list, WM_LBUTTONUP, 0, corner);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, corner);
}

void PressOk(const DialogView& view)
{
    view.Click(IDOK);
}

void Says(const std::wstring& act)
{
    PrintLine(L"    " + act);
}

DialogStep Saying(const std::wstring& act)
{
    return {"says what is done", [act](DialogView&) {
                Says(act);
            }};
}

DialogStep PressesSaying(int button)
{
    return {"presses a button", [button](DialogView& view) {
                PressButton(view, button);
            }};
}

DialogStep SelectsSaying(const std::wstring& name)
{
    return {"selects a row", [name](DialogView& view) {
                Says(L"\"" + name + L"\" is selected");
                view.SelectRow(view.List(), RowOf(view, name));
            }};
}

DialogStep ClicksHeading(int column)
{
    return {"clicks on a heading", [column](DialogView& view) {
                const HWND list = view.List();
                Says(L"the heading \"" + view.Columns(list)[static_cast<std::size_t>(column)].caption +
                     L"\" is clicked");
                const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
                RECT heading{};
                SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column),
                             reinterpret_cast<LPARAM>(&heading));
                const LPARAM point = MAKELPARAM((heading.left + heading.right) / 2, heading.bottom / 2);
                SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, point);
                SendMessageW(header, WM_LBUTTONUP, 0, point);
            }};
}

std::wstring Indented(std::wstring text)
{
    for (std::size_t end = text.find(L'\n'); end != std::wstring::npos; end = text.find(L'\n', end + 1))
        text.insert(end + 1, L"      ");
    return text;
}
