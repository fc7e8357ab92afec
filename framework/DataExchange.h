// Dialog data exchange: transfers values between members of a dialog and its controls.
#pragma once

#include <windows.h>

#include <string>

class CWnd;

/// One exchange, in one direction. After a failure nothing more is transferred.
class CDataExchange
{
public:
    CDataExchange(HWND dialog, bool save) noexcept : m_bSaveAndValidate(save), m_dialog(dialog) {}

    const bool m_bSaveAndValidate; ///< true: from the controls to the members

    HWND Dialog() const noexcept { return m_dialog; }
    void Fail() noexcept { m_failed = true; }
    bool Failed() const noexcept { return m_failed; }

private:
    HWND m_dialog;
    bool m_failed = false;
};

/// Subclasses the control with `control`, at the first exchange. Does nothing if there is no such control.
void DDX_Control(CDataExchange* pDX, int id, CWnd& control);

void DDX_Text(CDataExchange* pDX, int id, std::wstring& value);

/// An integer: decimal digits, with or without a sign and blanks around. Any other text, also one out of
/// range, fails the exchange and leaves `value` unchanged.
void DDX_Text(CDataExchange* pDX, int id, int& value);

/// BST_UNCHECKED (0) or BST_CHECKED (1).
void DDX_Check(CDataExchange* pDX, int id, int& value);

/// The index, from 0, of the checked radio button in the group that begins with the control `id`; -1 if none
/// is checked.
void DDX_Radio(CDataExchange* pDX, int id, int& value);
