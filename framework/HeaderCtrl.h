// The header of a list view.
#pragma once

#include "Wnd.h"

#include <commctrl.h>

class CHeaderCtrl : public CWnd
{
public:
    int GetItemCount() const noexcept { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }

    /// Sets the HDF_* format of an item. Returns false if there is no such item.
    bool SetItemFormat(int item, int format) const noexcept
    {
        HDITEMW change{};
        change.mask = HDI_FORMAT;
        change.fmt = format;
        return SendMessage(HDM_SETITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&change)) != 0;
    }
};
