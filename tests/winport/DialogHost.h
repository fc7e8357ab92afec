// A modeless dialog on a template in memory, which records its messages.
#pragma once

#include "DialogTemplate.h"

#include <functional>
#include <string>
#include <vector>

class DialogHost
{
public:
    using Handler = std::function<INT_PTR(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)>;

    /// The handler gets each message first; the default answer to WM_INITDIALOG is TRUE. A handler that
    /// destroys the dialog leaves Window() null.
    explicit DialogHost(DialogTemplate description, Handler handler = {}, HWND owner = nullptr);
    ~DialogHost();
    DialogHost(const DialogHost&) = delete;
    DialogHost& operator=(const DialogHost&) = delete;

    HWND Window() const { return m_window; }
    HWND Item(int id) const { return GetDlgItem(m_window, id); }

    /// The identifier of the control that has the focus; 0 for none, -1 for the dialog itself.
    int Focus() const;

    /// Makes the dialog visible and so the active window.
    void Show() const { ShowWindow(m_window, SW_SHOWNORMAL); }

    void SetFocusTo(int id) const { SetFocus(Item(id)); }

    /// Presses and releases a key in the control that has the focus, and processes all that follows in a loop
    /// like that of a modal dialog.
    void Press(int key) const;
    void PressWithShift(int key) const;
    void PressWithAlt(int key) const;

    /// Runs what is posted through the same loop.
    void Pump() const;

    /// "id:code" of each WM_COMMAND since the last call.
    std::vector<std::string> Commands();

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    void Deliver(UINT message, WPARAM key, LPARAM details) const;

    DialogTemplate m_description;
    Handler m_handler;
    HWND m_window = nullptr;
    std::vector<std::string> m_commands;
};

/// What is 8 point, modal looking and has a caption: the style of most dialogs.
constexpr DWORD kCommonDialog = DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU;
