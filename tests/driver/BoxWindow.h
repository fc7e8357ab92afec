// A message box that is up, as a window.
#pragma once

#include "ShownBox.h"

#include <vector>

/// True for a message box: a dialog that shows nothing but a text, an icon, and buttons with the system's own
/// numbers.
bool IsMessageBox(HWND window);

/// The numbers of its buttons in ascending order (IDOK, IDCANCEL ...).
std::vector<int> BoxButtons(HWND box);

ShownBox ReadBox(HWND box);

/// What a careful user presses who did not expect the box.
int CarefulButton(const std::vector<int>& buttons);

/// Presses a button, when the box's own loop runs on.
void PressBoxButton(HWND box, int button);
