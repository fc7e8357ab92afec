// A dialog with a list for the tests of the driver.
#pragma once

#include "DialogDriver.h"
#include "ModalDialog.h"

#include <vector>

constexpr int kList = 206;

/// The handler of the dialog: fills the list and records its notifications. The list is created at run time;
/// its hidden placeholder has the same identifier.
struct ListDialog
{
    bool editable = false; ///< labels can be edited, and are accepted
    std::vector<int> events{};

    INT_PTR operator()(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void Fill(HWND dialog) const;
};

/// Runs the steps in the dialog, then presses OK. The list has 20 rows, "row 0" and on; row 3 is a long text.
INT_PTR RunWithList(ListDialog& handler, Steps steps);
