#include "GridSteps.h"

#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace
{
constexpr int kEditor = 1000;

HWND GridOf(const DialogView& view)
{
    return GetDlgItem(view.Window(), copy_dialog::kGrid);
}

void Click(HWND list, POINT at)
{
    const LPARAM place = MAKELPARAM(at.x, at.y);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(list, WM_LBUTTONUP, 0, place);
}
} // namespace

HWND GridEditor(const DialogView& view)
{
    const HWND grid = GridOf(view);
    return grid ? GetDlgItem(grid, kEditor) : nullptr;
}

DialogStep ClicksCell(int row, int column)
{
    return {"clicks cell " + std::to_string(row) + ", " + std::to_string(column), [=](DialogView& view) {
                const HWND list = GridOf(view);
                ASSERT_TRUE(list && IsWindowEnabled(list) && IsWindowVisible(list)) << view.Dump();
                RECT cell{};
                cell.left = LVIR_BOUNDS;
                cell.top = column;
                ASSERT_TRUE(SendMessageW(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                                         reinterpret_cast<LPARAM>(&cell)))
                    << view.Dump();
                const LONG right =
                    column > 0 ? cell.right
                               : static_cast<LONG>(cell.left + SendMessageW(list, LVM_GETCOLUMNWIDTH, 0, 0));
                Click(list, {(cell.left + right) / 2, (cell.top + cell.bottom) / 2});
            }};
}

Steps OpensEditor(int row)
{
    return {ClicksCell(row, 1), ClicksCell(row, 1)};
}

DialogStep TypesInEditor(const std::wstring& text)
{
    return {"types into the editor", [text](DialogView& view) {
                const HWND editor = GridEditor(view);
                ASSERT_TRUE(editor) << view.Dump();
                view.Type(editor, text);
            }};
}

Sight EditorShows(const std::wstring& text)
{
    return {"the editor shows the text", [text](const DialogView& view) {
                const HWND editor = GridEditor(view);
                return editor && view.Text(editor) == text;
            }};
}

Sight PickerOpen()
{
    return {"a date picker is open", [](const DialogView& view) {
                wchar_t name[32] = {};
                if (const HWND editor = GridEditor(view))
                    GetClassNameW(editor, name, 32);
                return std::wstring(name) == DATETIMEPICK_CLASSW;
            }};
}

Sight NoEditor()
{
    return {"no editor is open", [](const DialogView& view) {
                return !GridEditor(view);
            }};
}
