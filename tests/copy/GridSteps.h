// What users do in the grid of the enhanced copy dialog, and what they see of its editors.
#pragma once

#include "CopyWords.h"
#include "Steps.h"

#include <functional>
#include <string>

/// The grid's window; null if the dialog has none.
HWND GridOf(const DialogView& view);

/// A cell in client coordinates of the grid: its row from top to bottom, its column from left to right.
RECT CellPlace(HWND grid, int row, int column);

/// Presses and releases the left mouse button at a point of the grid, in client coordinates.
DialogStep ClicksGrid(const std::string& where, std::function<POINT(HWND grid)> point);

/// Clicks into the middle of a cell with the left mouse button. The first click in a row selects it; the next
/// one opens the editor.
DialogStep ClicksCell(int row, int column);

/// Clicks into a cell, so many pixels beside its left edge.
DialogStep ClicksAtLeftEdge(int row, int column, int pixels);

/// Selects the row of a cell and opens the editor of its value.
Steps OpensEditor(int row);

/// Drags the right border of a column.
DialogStep SizesColumn(int column, int width);

/// The grid gets one more column, which the dialog does without. `format` is LVCFMT_*.
DialogStep HasColumn(int column, int format, int width);

/// What a scroll bar asks for.
inline constexpr int kScrollBack = 0; ///< by a line
inline constexpr int kScrollOn = 1;
inline constexpr int kScrollPageOn = 3;

/// `bar` is WM_HSCROLL or WM_VSCROLL, or WM_MOUSEWHEEL with a turn of the wheel.
DialogStep ScrollsGrid(UINT bar, int request);

/// Types characters into the open editor, over what is selected.
DialogStep TypesInEditor(const std::wstring& text);

/// Deletes the text of the open editor.
DialogStep EmptiesEditor();

/// Clicks into the open editor, which gives it the focus.
DialogStep ClicksEditor();

/// The window of the open editor; null if none is open.
HWND GridEditor(const DialogView& view);

/// All open editors, the one opened first in front.
std::vector<HWND> GridEditors(const DialogView& view);

/// Where a child is in client coordinates of the grid.
RECT PlaceInGrid(HWND grid, HWND child);

Sight EditorShows(const std::wstring& text);
Sight EditorFocused();
Sight PickerOpen();
Sight NoEditor();
Sight EditorCount(int count);
Sight RowFocused(int row);
