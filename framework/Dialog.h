// A modal dialog on a template of the module.
#pragma once

#include "DataExchange.h"
#include "Wnd.h"

#include <exception>

/// The object lives at least as long as its modal run; its values can be read afterwards. A class of its own
/// overrides OnInitDialog, DoDataExchange, OnOK, OnCancel and GetMessageMap as it needs.
class CDialog : public CWnd
{
public:
    /// `parent` may be null: the active window of the thread then owns the dialog.
    explicit CDialog(UINT templateId, HWND parent = nullptr) noexcept;
    ~CDialog() override;

    /// Shows the dialog and runs until EndDialog was called; the owner is disabled meanwhile. To be called
    /// inside the module's UI state. Returns the end code, or -1 if the dialog could not be made or the
    /// program is about to end. What a handler threw, short memory first of all, ends the dialog and comes
    /// out here.
    INT_PTR DoModal();

    /// Ends the modal run with this code; the last one counts. The window is destroyed when the handler has
    /// returned. The system's EndDialog, called by somebody who knows the window alone, cancels the dialog
    /// whatever its code: the run ends with 2, and no value is taken from the controls.
    void EndDialog(INT_PTR code) noexcept;

    /// Moves the values of DoDataExchange: from the controls if `save`, else to them. False if a control's
    /// content is no such value; those behind it are not moved then.
    bool UpdateData(bool save = true);

    /// Keys that move between the controls and press the default button.
    bool PreTranslateMessage(MSG& message) override;

    /// Ends the innermost modal run of this thread with what was thrown in one of its handlers.
    static void FailCurrent(std::exception_ptr failure) noexcept;

    static const CMessageMap& ClassMessageMap();

protected:
    /// Called before the dialog is shown, with all controls made. Overrides begin with this one, which moves
    /// the values of DoDataExchange to the controls. True: the first control gets the focus; false: the
    /// override gave it to one.
    virtual bool OnInitDialog();

    /// Binds values and control objects to the controls with the functions of DataExchange.h.
    virtual void DoDataExchange(CDataExchange* pDX);

    /// The default button, or Enter: takes the values from the controls and ends with 1.
    virtual void OnOK();

    /// The Cancel button, Escape, or the close box: ends with 2.
    virtual void OnCancel();

    const CMessageMap& GetMessageMap() const override;
    LRESULT DefaultWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Controls by their identifier; one that the dialog has not is passed over.
    void SetItemText(int id, LPCWSTR text) const noexcept { SetDlgItemTextW(m_hWnd, id, text); }
    void ShowItem(int id, bool show) const noexcept;
    void EnableItem(int id, bool enable) const noexcept;

    /// In pixels of the dialog.
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
    bool m_showWindowHides = false; ///< a call of ShowWindow is about to hide the window
    bool m_endedBySystem = false;   ///< the system's EndDialog was called on the window
    std::exception_ptr m_failure;
    CDialog* m_outer = nullptr; ///< the modal dialog of this thread that runs around this one
};
