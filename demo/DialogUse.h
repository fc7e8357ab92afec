// What the demonstration's user reads and does in a dialog.
#pragma once

#include "DialogStep.h"

#include <string>

/// Prints the title and the first column of the list.
void PrintRows(const DialogView& view);

/// The index of the row whose first column shows that text; -1 if there is none.
int RowOf(const DialogView& view, const std::wstring& name);

/// Selects the row whose first column shows `name`, and presses OK.
void PickRow(const DialogView& view, const std::wstring& name);

/// Clears the selection with a click below the last row.
void SelectNothing(const DialogView& view);

void PressOk(const DialogView& view);

/// Prints the button's text and presses it.
void PressButton(const DialogView& view, int button);

/// Prints what the user does.
void Says(const std::wstring& act);
DialogStep Saying(const std::wstring& act);

// Steps that print what the user does.
DialogStep PressesSaying(int button);
/// Selects the row whose first column shows `name`.
DialogStep SelectsSaying(const std::wstring& name);
/// Clicks on the heading of a column.
DialogStep ClicksHeading(int column);

/// Indents all lines but the first, as messages are printed.
std::wstring Indented(std::wstring text);
