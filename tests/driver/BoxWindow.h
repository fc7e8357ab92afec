// The window of a message box.
#pragma once

#include "ShownBox.h"

#include <vector>

/// True for a message box: a dialog with nothing but a text, an icon, and buttons with the system's
/// identifiers.
bool IsMessageBox(HWND window);

/// The identifiers of its buttons in ascending order (IDOK, IDCANCEL ...).
std::vector<int> BoxButtons(HWND box);

ShownBox ReadBox(HWND box);

/// The button that dismisses an unexpected box with the least effect.
int CarefulButton(const std::vector<int>& buttons);

/// Posts the press of a button: it happens in the box's own loop.
void PressBoxButton(HWND box, int button);
