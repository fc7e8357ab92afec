// The names of keys, the same for both drivers.
#pragma once

#include "DialogView.h"

#include <string>

/// Presses keys: names with blanks between them ("Tab", "Down Down", "f i"), each held with others or not
/// ("shift+Tab", "alt+c"). They reach the dialog after the step; keys that are held together with others
/// need a step of their own. An unknown name fails the test.
void PressKeys(const DialogView& view, const std::string& keys);
