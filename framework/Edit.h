// A text field.
#pragma once

#include "Wnd.h"

class CEdit : public CWnd
{
public:
    /// Selects from `first` to before `last`; 0 and -1 select everything.
    void SetSel(int first, int last) const noexcept
    {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
    }
};
