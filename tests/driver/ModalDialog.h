// A modal dialog for tests of the driver and of the window system; it uses nothing of the product.
#pragma once

#include "DialogTemplate.h"

#include <functional>

class ModalDialog
{
public:
    /// Called for each message before the default handling. A result other than 0: the message is handled.
    using Handler = std::function<INT_PTR(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)>;

    /// OK, Cancel and the close box end the run with the button's identifier unless the handler handles them.
    explicit ModalDialog(DialogTemplate& description, Handler handler = {});

    /// Creates and shows the dialog and runs until End; the owner is disabled meanwhile. Returns the code of
    /// End, or -1 if the dialog could not be created, was destroyed, or WM_QUIT was received.
    INT_PTR Run(HWND owner = nullptr);

    void End(INT_PTR code);

    HWND Window() const { return m_window; }

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    void Loop();

    DialogTemplate& m_description;
    Handler m_handler;
    HWND m_window = nullptr;
    INT_PTR m_code = -1;
    bool m_running = false;
};
