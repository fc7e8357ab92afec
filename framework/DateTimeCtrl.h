// A date picker.
#pragma once

#include "Wnd.h"

#include <commctrl.h>

class CDateTimeCtrl : public CWnd
{
public:
    /// False if the picker holds no date.
    bool GetTime(SYSTEMTIME& time) const noexcept
    {
        return SendMessage(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) == GDT_VALID;
    }

    /// False for an impossible date, and the picker keeps the one it has.
    bool SetTime(const SYSTEMTIME& time) const noexcept
    {
        return SendMessage(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time)) != 0;
    }
};
