// Sees the modal windows of this thread come and go, and is called back inside their loops.
#pragma once

#include <windows.h>

/// From its construction to its end, a hook on the thread's window events sees each dialog (and message box,
/// which is a dialog, too) that comes up. Dialogs are known by their class, never by their title: other tests
/// share the desktop.
class ModalWatch
{
public:
    ModalWatch();
    virtual ~ModalWatch();
    ModalWatch(const ModalWatch&) = delete;
    ModalWatch& operator=(const ModalWatch&) = delete;

    /// Has OnCall run from a message that the innermost modal loop delivers. One call waits at a time.
    void CallLater();

    /// Has OnTimeUp run after so many milliseconds, unless it is set anew before or stopped with 0.
    void SetBound(UINT milliseconds);

protected:
    /// The dialog becomes active: for the first time, or again. Called within the hook: nothing may be done
    /// with windows here.
    virtual void OnActivated(HWND dialog) = 0;

    /// A window is about to be destroyed. Called within the hook.
    virtual void OnGoing(HWND) {}

    virtual void OnCall() = 0;
    virtual void OnTimeUp() {}

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details);
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_receiver = nullptr;
    bool m_waiting = false;
};
