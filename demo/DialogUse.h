// What the demonstration's user sees and does in a dialog.
#pragma once

#include "DialogView.h"

#include <string>

/// Prints the title and the first column of the list.
void PrintRows(const DialogView& view);

/// Selects the row whose first column shows `name`, and presses OK.
void PickRow(const DialogView& view, const std::wstring& name);

/// Takes the selection away by a click into the corner behind the last row.
void SelectNothing(const DialogView& view);

void PressOk(const DialogView& view);

/// Tells of it, too.
void PressButton(const DialogView& view, int button);

/// A text of several lines with the further ones indented, as messages are printed.
std::wstring Indented(std::wstring text);
