// A modal dialog, created from a dialog template of the module.
#pragma once

#include "DataExchange.h"
#include "Wnd.h"

#include <exception>

/// The object must outlive DoModal; its values can be read afterwards. Derived classes override OnInitDialog,
/// DoDataExchange, OnOK, OnCancel and GetMessageMap as needed.
class CDialog : public CWnd
{
public:
    /// If `parent` is null, the owner is the thread's active window.
    explicit CDialog(UINT templateId, HWND parent = nullptr) noexcept;
    ~CDialog() override;

    /// Shows the dialog and runs its modal loop until EndDialog is called, with the owner disabled. To be
    /// called inside the module's UI state. Returns the code of EndDialog, or -1 if the dialog cannot be
    /// created or the program is quitting. An exception of a handler, such as out of memory, ends the dialog
    /// and is rethrown here.
    INT_PTR DoModal();

    /// Ends the modal loop with this code; of several calls the last one counts. The window is destroyed
    /// after the handler has returned. The system's EndDialog, called with the window's handle, cancels the
    /// dialog, whatever its code: DoModal returns 2, and no value is read from the controls.
    void EndDialog(INT_PTR code) noexcept;

    /// Transfers the values of DoDataExchange: from the controls if `save`, else to them. Returns false if
    /// the content of a control is not valid; the values after it are not transferred then.
    bool UpdateData(bool save = true);

    /// Handles the keys that move between the controls and press the default button.
    bool PreTranslateMessage(MSG& message) override;

    /// Ends the innermost modal loop of this thread; its DoModal rethrows `failure`.
    static void FailCurrent(std::exception_ptr failure) noexcept;

    static const CMessageMap& ClassMessageMap();

protected:
    /// Called after the controls are created and before the dialog is shown. Overrides call it first: it
    /// transfers the values of DoDataExchange to the controls. Returns true to set the focus to the first
    /// control, false if the override has set it.
    virtual bool OnInitDialog();

    /// Binds members to controls by the functions of DataExchange.h.
    virtual void DoDataExchange(CDataExchange* pDX);

    /// The OK button, or Enter: reads the values from the controls and ends with 1.
    virtual void OnOK();

    /// The Cancel button, Escape, or the close box: ends with 2.
    virtual void OnCancel();

    const CMessageMap& GetMessageMap() const override;
    LRESULT DefaultWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Each does nothing if there is no control `id`.
    void SetItemText(int id, LPCWSTR text) const noexcept { SetDlgItemTextW(m_hWnd, id, text); }
    void ShowItem(int id, bool show) const noexcept;
    void EnableItem(int id, bool enable) const noexcept;

    /// Whether the check box or radio button `id` is checked; false if there is no such control.
    bool IsItemChecked(int id) const noexcept;

    /// Enter presses the push button `id` while no other push button has the focus, and of all buttons it
    /// alone looks like the default one, even if the template has several. Call it in OnInitDialog.
    void SetDefaultButton(int id) const noexcept;

    /// In client coordinates of the dialog; empty if there is no such control.
    CRect ItemRect(int id) const noexcept;

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void NoticeSystemEnd(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    bool IsRunning() noexcept;
    void RunModalLoop();
    void Close(HWND owner) noexcept;

    UINT m_template;
    HWND m_parent;
    INT_PTR m_code = -1;
    bool m_running = false;
    bool m_showWindowHides = false; ///< ShowWindow is about to hide the window
    bool m_endedBySystem = false;   ///< the system's EndDialog was called on the window
    std::exception_ptr m_failure;
    CDialog* m_outer = nullptr; ///< the modal dialog of this thread below this one
};
