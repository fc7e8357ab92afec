// Observes the modal windows of this thread, and is called back inside their loops.
#pragma once

#include <windows.h>

/// While it lives, a hook on the thread's window events sees each dialog that opens, message boxes included.
/// Dialogs are found by their class, never by their title: other tests share the desktop.
class ModalWatch
{
public:
    ModalWatch();
    virtual ~ModalWatch();
    ModalWatch(const ModalWatch&) = delete;
    ModalWatch& operator=(const ModalWatch&) = delete;

    /// Posts a call of OnCall, which the innermost modal loop delivers. At most one call is pending.
    void CallLater();

    /// Calls OnTimeUp after `milliseconds`, unless the bound is set again before; 0 stops it.
    void SetBound(UINT milliseconds);

protected:
    /// A dialog is activated, for the first time or again. Called inside the hook: no window function may be
    /// called here.
    virtual void OnActivated(HWND dialog) = 0;

    /// A window is about to be destroyed. Called inside the hook.
    virtual void OnGoing(HWND) {}

    virtual void OnCall() = 0;
    virtual void OnTimeUp() {}

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details);
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_receiver = nullptr;
    bool m_waiting = false;
};
