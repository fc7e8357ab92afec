// Moves values between the members of a dialog and its controls.
#pragma once

#include <windows.h>

#include <string>

class CWnd;

/// One exchange, in one direction. From the first failure on nothing is moved.
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

/// Puts `control` behind the control, at the first exchange; no failure if the dialog has no such control.
void DDX_Control(CDataExchange* pDX, int id, CWnd& control);

void DDX_Text(CDataExchange* pDX, int id, std::wstring& value);

/// A whole number; what is no number fails the exchange and leaves the value.
void DDX_Text(CDataExchange* pDX, int id, int& value);

/// 0 off, 1 on.
void DDX_Check(CDataExchange* pDX, int id, int& value);

/// The place, from 0, of the chosen radio button in the group that begins with the control `id`; -1 if none
/// is.
void DDX_Radio(CDataExchange* pDX, int id, int& value);
