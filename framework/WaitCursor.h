// The wait cursor for a scope.
#pragma once

#include <windows.h>

class CWaitCursor
{
public:
    CWaitCursor() noexcept : m_previous(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~CWaitCursor() { SetCursor(m_previous); }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;

private:
    HCURSOR m_previous;
};
