// A date picker.
#pragma once

#include "Wnd.h"

#include <commctrl.h>

class CDateTimeCtrl : public CWnd
{
public:
    /// Returns false if the picker has no date.
    bool GetTime(SYSTEMTIME& time) const noexcept
    {
        return SendMessage(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) == GDT_VALID;
    }

    /// Returns false for an invalid date; the picker is unchanged then.
    bool SetTime(const SYSTEMTIME& time) const noexcept
    {
        return SendMessage(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time)) != 0;
    }
};
