// An edit control.
#pragma once

#include "Wnd.h"

#include <commctrl.h>

class CEdit : public CWnd
{
public:
    using CWnd::Create;

    /// Creates the control as a child of `parent` with exactly this style. Returns false if it cannot be
    /// created.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id)
    {
        return CWnd::Create(WC_EDITW, L"", style, rect, parent, id);
    }

    /// Selects the characters from `first` up to, but not including, `last`; 0 and -1 select all.
    void SetSel(int first, int last) const noexcept
    {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
    }
};
