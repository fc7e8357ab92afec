#include "GridSteps.h"

#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <utility>

namespace
{
constexpr int kEditor = 1000;

LRESULT Ask(HWND list, UINT message, int index = 0, LPARAM more = 0)
{
    return SendMessageW(list, message, static_cast<WPARAM>(index), more);
}

void Click(HWND list, POINT at)
{
    const LPARAM place = MAKELPARAM(at.x, at.y);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
    PostMessageW(list, WM_LBUTTONUP, 0, place);
}

HWND UsableGrid(const DialogView& view)
{
    const HWND list = GridOf(view);
    if (list && IsWindowEnabled(list) && IsWindowVisible(list))
        return list;
    ADD_FAILURE() << "no user can use the grid of\n" << view.Dump();
    return nullptr;
}

std::string Cell(int row, int column)
{
    return "cell " + std::to_string(row) + ", " + std::to_string(column);
}
} // namespace

HWND GridOf(const DialogView& view)
{
    return GetDlgItem(view.Window(), copy_dialog::kGrid);
}

std::vector<HWND> GridEditors(const DialogView& view)
{
    std::vector<HWND> editors;
    const HWND grid = GridOf(view);
    for (const HWND child : grid ? ChildrenOf(grid) : std::vector<HWND>())
        if (GetDlgCtrlID(child) == kEditor)
            editors.push_back(child);
    return editors;
}

HWND GridEditor(const DialogView& view)
{
    const HWND grid = GridOf(view);
    return grid ? GetDlgItem(grid, kEditor) : nullptr;
}

// For column 0 the list gives the whole row.
RECT CellPlace(HWND grid, int row, int column)
{
    RECT place{};
    place.left = LVIR_BOUNDS;
    place.top = column;
    EXPECT_TRUE(Ask(grid, LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&place))) << "no row " << row;
    if (column == 0)
        place.right = place.left + static_cast<LONG>(Ask(grid, LVM_GETCOLUMNWIDTH, 0));
    return place;
}

DialogStep ClicksGrid(const std::string& where, std::function<POINT(HWND grid)> point)
{
    return {"clicks " + where, [point = std::move(point)](DialogView& view) {
                if (const HWND list = UsableGrid(view))
                    Click(list, point(list));
            }};
}

DialogStep ClicksCell(int row, int column)
{
    return ClicksGrid(Cell(row, column), [=](HWND grid) {
        RECT area{};
        GetClientRect(grid, &area);
        const RECT cell = CellPlace(grid, row, column);
        const LONG right = cell.right < area.right ? cell.right : area.right;
        const LONG left = cell.left > 0 ? cell.left : 0;
        return POINT{(left + right) / 2, (cell.top + cell.bottom) / 2};
    });
}

DialogStep ClicksAtLeftEdge(int row, int column, int pixels)
{
    return ClicksGrid("at the left edge of " + Cell(row, column), [=](HWND grid) {
        const RECT cell = CellPlace(grid, row, column);
        return POINT{cell.left + pixels, (cell.top + cell.bottom) / 2};
    });
}

Steps OpensEditor(int row)
{
    return {ClicksCell(row, 1), ClicksCell(row, 1)};
}

DialogStep SizesColumn(int column, int width)
{
    return {"makes column " + std::to_string(column) + " " + std::to_string(width) + " pixels wide",
            [=](DialogView& view) {
                Ask(GridOf(view), LVM_SETCOLUMNWIDTH, column, width);
                EXPECT_EQ(Ask(GridOf(view), LVM_GETCOLUMNWIDTH, column), width);
            }};
}

DialogStep HasColumn(int column, int format, int width)
{
    return {"inserts column " + std::to_string(column), [=](DialogView& view) {
                LVCOLUMNW wanted{};
                wanted.mask = LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
                wanted.cx = width;
                wanted.fmt = format;
                wanted.iSubItem = column;
                EXPECT_EQ(Ask(GridOf(view), LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&wanted)),
                          column);
            }};
}

DialogStep ScrollsGrid(UINT bar, int request)
{
    return {"scrolls", [=](DialogView& view) {
                if (const HWND list = UsableGrid(view))
                    SendMessageW(list, bar, static_cast<WPARAM>(request), 0);
            }};
}

DialogStep TypesInEditor(const std::wstring& text)
{
    return {"types into the editor", [text](DialogView& view) {
                const HWND editor = GridEditor(view);
                ASSERT_TRUE(editor) << view.Dump();
                view.Type(editor, text);
            }};
}

DialogStep EmptiesEditor()
{
    return {"empties the editor", [](DialogView& view) {
                const HWND editor = GridEditor(view);
                ASSERT_TRUE(editor) << view.Dump();
                view.SetText(editor, L"");
            }};
}

DialogStep ClicksEditor()
{
    return {"clicks into the editor", [](DialogView& view) {
                const HWND editor = GridEditor(view);
                ASSERT_TRUE(editor) << view.Dump();
                view.Click(editor);
            }};
}

RECT PlaceInGrid(HWND grid, HWND child)
{
    RECT place{};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, grid, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

Sight EditorShows(const std::wstring& text)
{
    return {"the editor shows \"" + Utf8Text(text) + "\"", [text](const DialogView& view) {
                const HWND editor = GridEditor(view);
                return editor && view.Text(editor) == text;
            }};
}

Sight EditorFocused()
{
    return {"the editor has the focus", [](const DialogView& view) {
                const HWND editor = GridEditor(view);
                return editor && GetFocus() == editor;
            }};
}

Sight PickerOpen()
{
    return {"a date picker is open", [](const DialogView& view) {
                const HWND editor = GridEditor(view);
                return editor && ClassOf(editor) == DATETIMEPICK_CLASSW;
            }};
}

Sight NoEditor()
{
    return {"no editor is open", [](const DialogView& view) {
                return !GridEditor(view);
            }};
}

Sight EditorCount(int count)
{
    return {std::to_string(count) + " editors are open", [count](const DialogView& view) {
                return static_cast<int>(GridEditors(view).size()) == count;
            }};
}

Sight RowFocused(int row)
{
    return {"row " + std::to_string(row) + " has the focus", [row](const DialogView& view) {
                return Ask(GridOf(view), LVM_GETNEXTITEM, -1, LVNI_FOCUSED) == row;
            }};
}
