// A modal dialog with nothing of the product in it, for tests of the driver and of the window system.
#pragma once

#include "DialogTemplate.h"

#include <functional>

class ModalDialog
{
public:
    /// Gets each message before the default handling. A result other than 0 says that it was handled.
    using Handler = std::function<INT_PTR(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)>;

    /// OK and Cancel, and the close box with it, end the run with their number if the handler lets them.
    explicit ModalDialog(DialogTemplate& description, Handler handler = {});

    /// Makes and shows the dialog and runs until End; the owner is disabled meanwhile. Returns the code of
    /// End, or -1 if the dialog could not be made, was destroyed, or the program ends.
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
