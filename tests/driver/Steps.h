// The words for what users do and see, for scenarios of both drivers:
//
//     driver.OnDialog({Checks(kSwitch), Chooses(kCombo, L"two"), Sees(Enabled(kEdit)), Presses(IDOK)});
//
// What a word finds otherwise (a control that is missing or disabled, a box that is checked already) fails
// the test. A step without a word is a lambda; one that is written a third time becomes a word here.
#pragma once

#include "DialogStep.h"

#include <string>
#include <vector>

/// Waits for nothing: what is to be seen is there when the steps before are done.
DialogStep Sees(Sight sight);

// Keys, by their names (KeyNames.h).
DialogStep Types(const std::string& keys);
/// The next step comes when this is seen. KeyboardUser fails the test if it is seen before the keys are
/// typed, because it would not show then that they arrived.
DialogStep Types(const std::string& keys, Sight until);
/// The keys end the dialog.
DialogStep Ends(const std::string& keys);
/// Tab leads through these controls and back to the first, which has the focus at the beginning, and
/// Shift+Tab the same way back.
Steps GoesRound(const std::vector<int>& controls);

// Buttons.
DialogStep Presses(int button);
/// A check box or radio button that is not checked.
DialogStep Checks(int button);
/// A check box that is checked.
DialogStep Unchecks(int box);

// Edit fields, of combo boxes as well.
/// Types characters behind what is there.
DialogStep Types(int edit, const std::wstring& text);
/// Types characters over what is there; none delete it.
DialogStep Enters(int edit, const std::wstring& text);

// Combo boxes.
DialogStep Drops(int combo);
/// Opens the box and chooses an item, as the arrow keys and Enter do.
DialogStep Chooses(int combo, const std::wstring& item);
DialogStep Chooses(int combo, int index);

// The one list that is shown.
DialogStep Selects(int row);
/// The row with this text in its first column.
DialogStep Selects(const std::wstring& text);
/// Clicks where no row is: no row is selected then.
DialogStep SelectsNone();
DialogStep DoubleClicks(int row);
DialogStep DoubleClicks(const std::wstring& text);
/// Begins to edit the row's label and types this over it. Types("Return") and Types("Escape") end that.
DialogStep EditsLabel(int row, const std::wstring& text);

// The dialog.
DialogStep Closes(); ///< by the close box
