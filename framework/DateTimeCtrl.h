// A date picker.
#pragma once

#include "Wnd.h"

#include <commctrl.h>

class CDateTimeCtrl : public CWnd
{
public:
    using CWnd::Create;

    /// Creates the picker as a child of `parent` with exactly this style, showing the current date. Returns
    /// false if it cannot be created.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id)
    {
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_DATE_CLASSES};
        InitCommonControlsEx(&classes);
        return CWnd::Create(DATETIMEPICK_CLASSW, L"", style, rect, parent, id);
    }

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
