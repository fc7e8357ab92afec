// An edit control.
#pragma once

#include "Wnd.h"

class CEdit : public CWnd
{
public:
    /// Selects the characters from `first` up to, but not including, `last`; 0 and -1 select all.
    void SetSel(int first, int last) const noexcept
    {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
    }
};
