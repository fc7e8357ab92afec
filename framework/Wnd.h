// A window of the module as an object.
#pragma once

#include "Geometry.h"
#include "MessageMap.h"
#include "WinApp.h"

#include <windows.h>

#include <optional>
#include <string>

/// The text of a window, of any length; empty for a null handle.
std::wstring WindowText(HWND window);

/// Owned by its creator. Destroying the object destroys the window; destroying the window, which a handler
/// may do, leaves the object with m_hWnd null. While the object has a window, the module stays loaded.
class CWnd
{
public:
    CWnd() noexcept = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    HWND m_hWnd = nullptr;

    /// The object of a window of this thread; null if it has none, as windows of other modules.
    static CWnd* FromHandlePermanent(HWND window) noexcept;

    /// Creates a child window of a system class. Returns false, with GetLastError, if it cannot be created.
    bool Create(LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect, HWND parent, UINT id);

    /// Attaches this object to an existing window; its messages come here first. Returns false if the object
    /// has a window, the window has an object, or there is no such window.
    bool SubclassWindow(HWND window) noexcept;
    bool SubclassDlgItem(UINT id, HWND parent) noexcept { return SubclassWindow(::GetDlgItem(parent, id)); }

    /// Returns false if there is no window.
    bool DestroyWindow() noexcept;

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const noexcept
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    /// Returns false if the message cannot be posted.
    bool PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const noexcept
    {
        return ::PostMessageW(m_hWnd, message, wParam, lParam) != FALSE;
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
    bool HasFocus() const noexcept { return m_hWnd && ::GetFocus() == m_hWnd; }

    /// Null for the font of the system. Neither function passes ownership.
    HFONT GetFont() const noexcept { return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)); }
    void SetFont(HFONT font, bool redraw = true) const noexcept
    {
        SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font), redraw);
    }

    /// The size in pixels of a line of text in the font of the window.
    SIZE TextExtent(const std::wstring& text) const noexcept;

    HWND GetDlgItem(int id) const noexcept { return ::GetDlgItem(m_hWnd, id); }
    DWORD GetStyle() const noexcept { return static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_STYLE)); }
    void ModifyStyle(DWORD remove, DWORD add) const noexcept
    {
        ::SetWindowLongW(m_hWnd, GWL_STYLE, static_cast<LONG>((GetStyle() & ~remove) | add));
    }

    /// In screen coordinates.
    CRect GetWindowRect() const noexcept;
    /// In client coordinates: left and top are 0.
    CRect GetClientRect() const noexcept;
    /// From screen to client coordinates of this window.
    CRect ScreenToClient(CRect rect) const noexcept;
    void MoveWindow(const CRect& rect, bool repaint = true) const noexcept;

    /// Called for keyboard and mouse messages to this window or its children before they are dispatched.
    /// Returns true if the message has been handled and is not to be dispatched.
    virtual bool PreTranslateMessage(MSG& message);

    /// Calls PreTranslateMessage for the window's object and those of its parents, up to `top`.
    static bool WalkPreTranslateTree(HWND top, MSG& message);

protected:
    /// The message map of the class.
    virtual const CMessageMap& GetMessageMap() const;
    static const CMessageMap& ClassMessageMap();

    /// Calls the handler of the message map, or DefaultWindowProc if there is none.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// The default handling of the current message.
    LRESULT Default() { return DefaultWindowProc(m_current.message, m_current.wParam, m_current.lParam); }
    virtual LRESULT DefaultWindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// Called after the window is destroyed; the object may delete itself here.
    virtual void PostNcDestroy() {}

    /// Calls the handler of the message map. Empty if no entry matches.
    std::optional<LRESULT> Dispatch(UINT message, WPARAM wParam, LPARAM lParam);

    void Attach(HWND window) noexcept;
    void Detach() noexcept;

    /// Runs `body` in a window procedure, which must not throw: an exception ends the innermost modal dialog,
    /// whose DoModal rethrows it, and `otherwise` is returned.
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
    LRESULT Handle(const CMessageMapEntry& entry, const Message& message);
    std::optional<LRESULT> DispatchNotify(WPARAM wParam, LPARAM lParam);

    Message m_current{};
    WNDPROC m_previous = nullptr;
    CWnd* m_next = nullptr; ///< the next object with a window on this thread
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
