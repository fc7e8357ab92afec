// A window that has one control and records the control's notifications.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <vector>

class ControlHost
{
public:
    /// Makes the host, 400 x 300 pixels of client area, visible, and in it a control of `className` with the
    /// style (WS_CHILD and WS_VISIBLE are added), at 10, 10, with the given size and the identifier 100.
    ControlHost(const wchar_t* className, DWORD style, int width = 200, int height = 100, DWORD exStyle = 0);
    ~ControlHost();
    ControlHost(const ControlHost&) = delete;
    ControlHost& operator=(const ControlHost&) = delete;

    HWND Window() const { return m_window; }
    HWND Control() const { return m_control; }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return SendMessageW(m_control, message, wParam, lParam);
    }
    LRESULT SendText(UINT message, WPARAM wParam, const wchar_t* text) const
    {
        return Send(message, wParam, reinterpret_cast<LPARAM>(text));
    }

    /// The control's window text.
    std::wstring Text() const;

    /// Presses and releases a key by the messages of a keyboard, with WM_CHAR if the key has a character.
    void Press(WORD key) const;

    /// Types characters.
    void Type(const wchar_t* text) const;

    /// The codes of the notifications since the last call, in their order: of WM_COMMAND and of WM_NOTIFY.
    std::vector<int> Codes();

    /// Called with each WM_NOTIFY, after it was written down; what it returns is the answer.
    std::function<LRESULT(NMHDR&)> onNotify;

    /// Called with each WM_COMMAND of the control, after it was written down.
    std::function<void(int)> onCommand;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_window = nullptr;
    HWND m_control = nullptr;
    std::vector<int> m_codes;
};
