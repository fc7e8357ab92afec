#include "ModalDialog.h"

#include <utility>

ModalDialog::ModalDialog(DialogTemplate& description, Handler handler)
    : m_description(description), m_handler(std::move(handler))
{
}

INT_PTR ModalDialog::Run(HWND owner)
{
    m_running = true;
    m_code = -1;
    if (owner)
        EnableWindow(owner, FALSE);
    m_window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), m_description.Get(), owner, Procedure,
                                          reinterpret_cast<LPARAM>(this));
    if (m_window)
        Loop();
    if (owner)
        EnableWindow(owner, TRUE);
    if (m_window)
        DestroyWindow(m_window);
    return m_code;
}

void ModalDialog::Loop()
{
    if (m_running)
        ShowWindow(m_window, SW_SHOWNORMAL);
    MSG message;
    while (m_window && m_running)
    {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0)
        {
            PostQuitMessage(static_cast<int>(message.wParam));
            End(-1);
        }
        else if (!IsDialogMessageW(m_window, &message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void ModalDialog::End(INT_PTR code)
{
    m_code = code;
    m_running = false;
    if (m_window)
        PostMessageW(m_window, WM_NULL, 0, 0);
}

INT_PTR CALLBACK ModalDialog::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
    {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        reinterpret_cast<ModalDialog*>(lParam)->m_window = dialog;
    }
    auto* self = reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return self ? self->OnMessage(dialog, message, wParam, lParam) : FALSE;
}

INT_PTR ModalDialog::OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    const INT_PTR handled = m_handler ? m_handler(dialog, message, wParam, lParam) : FALSE;
    if (message == WM_DESTROY)
        m_window = nullptr;
    if (handled)
        return handled;
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL))
        return FALSE;
    End(LOWORD(wParam));
    return TRUE;
}
