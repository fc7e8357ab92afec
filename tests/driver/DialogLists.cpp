// DialogView: combo boxes and lists.
#include "DialogView.h"

#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>
#include <sstream>

namespace
{
int Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return static_cast<int>(SendMessageW(window, message, wParam, lParam));
}

std::wstring CellOf(HWND list, int row, int column)
{
    std::wstring text(64, L'\0');
    for (;;)
    {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        const auto length = static_cast<std::size_t>(
            Send(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)));
        if (length + 1 < text.size())
        {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 4);
    }
}

std::vector<ShownColumn> ColumnsOf(HWND list)
{
    std::vector<ShownColumn> columns;
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const int count = header ? Send(header, HDM_GETITEMCOUNT) : 0;
    for (int index = 0; index < count; ++index)
    {
        wchar_t caption[512] = {};
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = caption;
        column.cchTextMax = 512;
        Send(list, LVM_GETCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
        columns.push_back({caption, column.cx});
    }
    return columns;
}

Texts ItemsOf(HWND combo)
{
    Texts items;
    const int count = Send(combo, CB_GETCOUNT);
    for (int index = 0; index < count; ++index)
    {
        const auto at = static_cast<WPARAM>(index);
        std::wstring item(static_cast<std::size_t>(Send(combo, CB_GETLBTEXTLEN, at)) + 1, L'\0');
        item.resize(
            static_cast<std::size_t>(Send(combo, CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(item.data()))));
        items.push_back(std::move(item));
    }
    return items;
}

int SelectedRowOf(HWND list)
{
    return Send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
}

std::string RowLines(HWND list)
{
    constexpr int kMostRows = 50;
    std::ostringstream lines;
    const std::vector<ShownColumn> columns = ColumnsOf(list);
    for (const ShownColumn& column : columns)
        lines << "    column \"" << Utf8Text(column.caption) << "\" " << column.width << "\n";
    const int count = Send(list, LVM_GETITEMCOUNT);
    for (int row = 0; row < std::min(count, kMostRows); ++row)
    {
        lines << (row == SelectedRowOf(list) ? "    row*" : "    row ");
        for (int column = 0; column < std::max(1, static_cast<int>(columns.size())); ++column)
            lines << " \"" << Utf8Text(CellOf(list, row, column)) << "\"";
        lines << "\n";
    }
    if (count > kMostRows)
        lines << "    and " << count - kMostRows << " rows more\n";
    return lines.str();
}

std::string ItemLines(HWND combo)
{
    std::ostringstream lines;
    const Texts items = ItemsOf(combo);
    for (std::size_t index = 0; index < items.size(); ++index)
        lines << (static_cast<int>(index) == Send(combo, CB_GETCURSEL) ? "    item* \"" : "    item  \"")
              << Utf8Text(items[index]) << "\"\n";
    return lines.str();
}

void PressThere(WORD key)
{
    const HWND focus = GetFocus();
    SendMessageW(focus, WM_KEYDOWN, key, 1);
    // The edit field of a combo box handles Enter as WM_CHAR.
    if (key == VK_RETURN)
        SendMessageW(focus, WM_CHAR, key, 1);
    SendMessageW(focus, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

// Selects the neighbour silently, then moves to the item by an arrow key: the dialog gets one notification.
void StepTo(HWND combo, int index)
{
    const bool upwards = index == 0 && Send(combo, CB_GETCOUNT) > 1;
    Send(combo, CB_SETCURSEL, static_cast<WPARAM>(upwards ? 1 : index - 1));
    PressThere(upwards ? VK_UP : VK_DOWN);
}
} // namespace

Texts DialogView::Items(DialogControl combo) const
{
    const HWND window = Control(combo);
    return window ? ItemsOf(window) : Texts();
}

int DialogView::Selected(DialogControl combo) const
{
    const HWND window = Control(combo);
    return window ? Send(window, CB_GETCURSEL) : -1;
}

bool DialogView::IsDropped(DialogControl combo) const
{
    const HWND window = Control(combo);
    return window && Send(window, CB_GETDROPPEDSTATE);
}

void DialogView::DropDown(DialogControl combo) const
{
    const HWND window = Usable(combo);
    if (!window)
        return;
    GiveFocus(window);
    Send(window, CB_SHOWDROPDOWN, TRUE);
}

void DialogView::Choose(DialogControl combo, int index) const
{
    const HWND window = Usable(combo);
    if (!window)
        return;
    if (!IsDropped(window))
        DropDown(window);
    if (index < 0 || index >= Send(window, CB_GETCOUNT))
    {
        ADD_FAILURE() << "the box " << GetDlgCtrlID(window) << " has no item " << index << " in\n" << Dump();
        Send(window, CB_SHOWDROPDOWN, FALSE);
        return;
    }
    StepTo(window, index);
    PressThere(VK_RETURN);
}

void DialogView::Choose(DialogControl combo, const std::wstring& item) const
{
    const HWND window = Usable(combo);
    if (!window)
        return;
    // The dialog may fill the box when it opens.
    DropDown(window);
    const Texts items = ItemsOf(window);
    const auto found = std::find(items.begin(), items.end(), item);
    if (found == items.end())
    {
        ADD_FAILURE() << "the box " << GetDlgCtrlID(window) << " has no item \"" << Utf8Text(item)
                      << "\" in\n"
                      << Dump();
        Send(window, CB_SHOWDROPDOWN, FALSE);
        return;
    }
    Choose(window, static_cast<int>(found - items.begin()));
}

HWND DialogView::List() const
{
    HWND found = nullptr;
    int count = 0;
    for (const HWND child : ChildrenOf(m_dialog))
        if (ClassOf(child) == L"SysListView32" && IsShown(child))
        {
            found = child;
            ++count;
        }
    EXPECT_EQ(count, 1) << "lists are shown in\n" << Dump();
    return found;
}

int DialogView::Rows(DialogControl list) const
{
    const HWND window = Control(list);
    return window ? Send(window, LVM_GETITEMCOUNT) : 0;
}

std::wstring DialogView::Cell(DialogControl list, int row, int column) const
{
    const HWND window = Control(list);
    return window ? CellOf(window, row, column) : std::wstring();
}

Texts DialogView::Column(DialogControl list, int column) const
{
    Texts cells;
    for (int row = 0; row < Rows(list); ++row)
        cells.push_back(Cell(list, row, column));
    return cells;
}

Texts DialogView::Row(DialogControl list, int row) const
{
    Texts cells;
    for (int column = 0; column < static_cast<int>(Columns(list).size()); ++column)
        cells.push_back(Cell(list, row, column));
    return cells;
}

std::vector<ShownColumn> DialogView::Columns(DialogControl list) const
{
    const HWND window = Control(list);
    return window ? ColumnsOf(window) : std::vector<ShownColumn>();
}

int DialogView::SelectedRow(DialogControl list) const
{
    const HWND window = Control(list);
    return window ? SelectedRowOf(window) : -1;
}

bool DialogView::MayClickRow(HWND list, int row) const
{
    if (list && row >= 0 && row < Send(list, LVM_GETITEMCOUNT))
        return true;
    if (list)
        ADD_FAILURE() << "the list " << GetDlgCtrlID(list) << " has no row " << row << " in\n" << Dump();
    return false;
}

void DialogView::ClickRow(HWND list, int row, UINT downMessage) const
{
    Send(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    RECT rect{};
    rect.left = LVIR_LABEL;
    Send(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    const LPARAM point = MAKELPARAM(rect.left + 2, (rect.top + rect.bottom) / 2);
    // The list waits for WM_LBUTTONUP while it handles the press.
    PostMessageW(list, WM_LBUTTONUP, 0, point);
    SendMessageW(list, downMessage, MK_LBUTTON, point);
}

void DialogView::SelectRow(DialogControl list, int row) const
{
    const HWND window = Usable(list);
    if (!MayClickRow(window, row))
        return;
    ComeToFront();
    ClickRow(window, row, WM_LBUTTONDOWN);
}

void DialogView::DoubleClick(DialogControl list, int row) const
{
    const HWND window = Usable(list);
    if (!MayClickRow(window, row))
        return;
    SelectRow(window, row);
    ClickRow(window, row, WM_LBUTTONDBLCLK);
}

void DialogView::ClickBesideRows(DialogControl list) const
{
    const HWND window = Usable(list);
    if (!window)
        return;
    RECT area{};
    GetClientRect(window, &area);
    LVHITTESTINFO hit{};
    hit.pt = {area.right - 3, area.bottom - 3};
    if (SendMessageW(window, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) != -1)
    {
        ADD_FAILURE() << "there is no place beside the rows in\n" << Dump();
        return;
    }
    ComeToFront();
    const LPARAM point = MAKELPARAM(hit.pt.x, hit.pt.y);
    PostMessageW(window, WM_LBUTTONUP, 0, point);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
}

void DialogView::EditLabel(DialogControl list, int row, const std::wstring& text) const
{
    const HWND window = Usable(list);
    if (!MayClickRow(window, row))
        return;
    GiveFocus(window);
    SendMessageW(window, LVM_EDITLABELW, static_cast<WPARAM>(row), 0);
    const HWND editor = LabelEditor(window);
    if (!editor)
    {
        ADD_FAILURE() << "the label of row " << row << " cannot be edited in\n" << Dump();
        return;
    }
    SendMessageW(editor, EM_SETSEL, 0, -1);
    TypeInto(editor, text);
}

HWND DialogView::LabelEditor(DialogControl list) const
{
    const HWND window = Control(list);
    return window ? reinterpret_cast<HWND>(SendMessageW(window, LVM_GETEDITCONTROL, 0, 0)) : nullptr;
}

std::string DialogView::Dump() const
{
    if (!IsWindow(m_dialog))
        return "  (the dialog is gone)\n";
    std::ostringstream dump;
    dump << "the dialog \"" << Utf8Text(Title()) << "\"" << (IsWindowEnabled(m_dialog) ? "" : " disabled")
         << "\n";
    for (const HWND control : ChildrenOf(m_dialog))
    {
        dump << Line(control);
        if (ClassOf(control) == L"SysListView32")
            dump << RowLines(control);
        if (ClassOf(control) == L"ComboBox")
            dump << ItemLines(control);
    }
    return dump.str();
}
