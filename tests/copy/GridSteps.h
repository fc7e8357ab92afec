// What users do in the grid of the enhanced copy dialog, and what they see of its editors.
#pragma once

#include "CopyWords.h"
#include "Steps.h"

#include <string>

/// Clicks into the middle of a cell with the left mouse button. The first click in a row selects it; the next
/// one opens the editor.
DialogStep ClicksCell(int row, int column);

/// Selects the row of a cell and opens the editor of its value.
Steps OpensEditor(int row);

/// Types characters into the open editor, over what is selected.
DialogStep TypesInEditor(const std::wstring& text);

/// The window of the open editor; null if none is open.
HWND GridEditor(const DialogView& view);

Sight EditorShows(const std::wstring& text);
Sight PickerOpen();
Sight NoEditor();
