// A push button, check box, radio button or group box.
#pragma once

#include "Wnd.h"

class CButton : public CWnd
{
public:
    /// BST_UNCHECKED or BST_CHECKED.
    int GetCheck() const noexcept { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int state) const noexcept { SendMessage(BM_SETCHECK, static_cast<WPARAM>(state)); }
};
