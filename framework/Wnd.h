// A window of the module: the object behind a handle.
#pragma once

#include "Geometry.h"
#include "MessageMap.h"
#include "WinApp.h"

#include <windows.h>

#include <optional>
#include <string>

/// The text of any window, of any length; empty for none.
std::wstring WindowText(HWND window);

/// The object belongs to whoever made it and outlives its window, or ends it: the destructor destroys the
/// window. While it has a window the module stays loaded. A handler may destroy the window; the object then
/// has no handle any more.
class CWnd
{
public:
    CWnd() noexcept = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd = nullptr;

    /// The object of this thread behind a handle, or null: other modules' windows have none.
    static CWnd* FromHandlePermanent(HWND window) noexcept;

    /// Makes a child window of a class of the system. False, with GetLastError, if it cannot be made.
    bool Create(LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect, HWND parent, UINT id);

    /// Puts this object behind a window that exists; its messages come here first. False if the object has a
    /// window, or the window an object, or there is no such window.
    bool SubclassWindow(HWND window) noexcept;
    bool SubclassDlgItem(UINT id, HWND parent) noexcept { return SubclassWindow(::GetDlgItem(parent, id)); }

    /// False if there is no window.
    bool DestroyWindow() noexcept;

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const noexcept
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    LRESULT SendText(UINT message, WPARAM wParam, LPCWSTR text) const noexcept
    {
        return SendMessage(message, wParam, reinterpret_cast<LPARAM>(text));
    }

    void SetWindowText(LPCWSTR text) const noexcept { ::SetWindowTextW(m_hWnd, text); }
    std::wstring GetWindowText() const { return WindowText(m_hWnd); }
    bool EnableWindow(bool enable = true) const noexcept { return ::EnableWindow(m_hWnd, enable) != FALSE; }
    bool IsWindowEnabled() const noexcept { return ::IsWindowEnabled(m_hWnd) != FALSE; }
    bool ShowWindow(int how) const noexcept { return ::ShowWindow(m_hWnd, how) != FALSE; }
    void SetFocus() const noexcept { ::SetFocus(m_hWnd); }
    HWND GetDlgItem(int id) const noexcept { return ::GetDlgItem(m_hWnd, id); }
    DWORD GetStyle() const noexcept { return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE)); }
    void ModifyStyle(DWORD remove, DWORD add) const noexcept;

    /// In pixels of the screen.
    CRect GetWindowRect() const noexcept;
    /// Left and top are 0.
    CRect GetClientRect() const noexcept;
    /// From pixels of the screen to those of this window.
    CRect ScreenToClient(CRect rect) const noexcept;
    void MoveWindow(const CRect& rect, bool repaint = true) const noexcept;

    /// Looks at a message of the keyboard or the mouse for this window or one of its children before it goes
    /// its way. True if that was all that is to be done with it.
    virtual bool PreTranslateMessage(MSG& message);

    /// The window's object and those of its parents up to `top` in turn.
    static bool WalkPreTranslateTree(HWND top, MSG& message);

protected:
    /// The messages that the class answers.
    virtual const CMessageMap& GetMessageMap() const;
    static const CMessageMap& ClassMessageMap();

    /// A message on its way: the handler of the message map, or what the window does by itself.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// What the window does with the message now handled when nobody interferes.
    LRESULT Default() { return DefaultWindowProc(m_current.message, m_current.wParam, m_current.lParam); }
    virtual LRESULT DefaultWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// Called when the window is gone; the object may delete itself here.
    virtual void PostNcDestroy() {}

    /// Asks the message map; the result, or nothing if no entry matches.
    std::optional<LRESULT> Dispatch(UINT message, WPARAM wParam, LPARAM lParam);

    void Attach(HWND window) noexcept;
    void Detach() noexcept;

    /// Runs `body`, which may throw, where a window procedure must not: what is thrown ends the modal dialog
    /// that runs, which throws it again, and `otherwise` is returned.
    template <class Body>
    static LRESULT Guarded(Body&& body, LRESULT otherwise = 0) noexcept;

private:
    struct Message
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static void Failed() noexcept;
    std::optional<LRESULT> DispatchNotify(LPARAM lParam);

    Message m_current{};
    WNDPROC m_previous = nullptr;
    CWnd* m_next = nullptr; ///< the next object with a window of this thread
    std::optional<CLiveWindow> m_live;
};

template <class Body>
LRESULT CWnd::Guarded(Body&& body, LRESULT otherwise) noexcept
{
    try
    {
        return body();
    }
    catch (...)
    {
        Failed();
        return otherwise;
    }
}
