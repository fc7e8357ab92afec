// A window that is its thread's active one while it lives.
#pragma once

#include <windows.h>

class ActiveWindow
{
public:
    ActiveWindow();
    ~ActiveWindow();
    ActiveWindow(const ActiveWindow&) = delete;
    ActiveWindow& operator=(const ActiveWindow&) = delete;

    HWND Handle() const { return m_window; }

    /// Makes it the active window again: another program's window may have been activated since.
    void Activate() const;

private:
    HWND m_before = nullptr;
    HWND m_window = nullptr;
};
