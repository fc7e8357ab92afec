// What a user sees of a dialog, in words.
#pragma once

#include "DialogView.h"

#include <functional>
#include <string>
#include <vector>

/// A condition on the dialog in front, and the words by which a failure names it.
struct Sight
{
    std::string words;
    std::function<bool(const DialogView&)> isSeen;
};

Sight Titled(const std::wstring& title);
/// Null for a dialog without an owner.
Sight OwnedBy(HWND owner);
Sight OwnerDisabled();
/// A message box is in front.
Sight Box(const std::wstring& title);

// A control. A control that the dialog does not have fails the test.
Sight FocusOn(int control);
/// Its text: of a button, an edit field, a combo box's field.
Sight Shows(int control, const std::wstring& text);
Sight Visible(int control);
Sight Hidden(int control);
Sight Enabled(int control);
Sight Disabled(int control);
Sight Checked(int control);
Sight Unchecked(int control);

// A combo box.
Sight Offers(int combo, const Texts& items);
/// The item is the chosen one.
Sight Chosen(int combo, const std::wstring& item);
Sight NoneChosen(int combo);
Sight Dropped(int combo);
Sight Undropped(int combo);

// The one list that is shown.
/// The list has the place of this control, which is hidden.
Sight ListInPlaceOf(int control);
Sight RowCount(int count);
Sight RowSelected(int row);
Sight NoRowSelected();
/// The selected row has this text in its first column.
Sight Selected(const std::wstring& text);
/// The cells of a column, from top to bottom.
Sight InColumn(int column, const Texts& texts);
/// The cells of a row, from left to right.
Sight InRow(int row, const Texts& texts);
Sight Headings(const Texts& captions);
/// The label of the row is being edited and its editor holds this text.
Sight LabelEdited(const std::wstring& text);
