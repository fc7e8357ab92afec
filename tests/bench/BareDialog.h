// A dialog of one of the module's templates without anything behind it.
#pragma once

#include "XQPComVariant.h"

#include <windows.h>

#include <cstddef>
#include <string_view>

/// A dialog of a template of the module, shown until its end of life.
class BareDialog
{
public:
    explicit BareDialog(std::string_view dialog)
        : m_window(CreateDialogIndirectParamW(GetModuleHandleW(nullptr),
                                              reinterpret_cast<const DLGTEMPLATE*>(dialog.data()), nullptr,
                                              &BareDialog::DoNothing, 0))
    {
    }
    ~BareDialog() { DestroyWindow(m_window); }
    BareDialog(const BareDialog&) = delete;
    BareDialog& operator=(const BareDialog&) = delete;

    HWND Window() const { return m_window; }

    void Show() const { ShowWindow(m_window, SW_SHOW); }

    void Add(int combo, const wchar_t* text) const
    {
        SendDlgItemMessageW(m_window, combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }

    void Set(int control, XQPComVariant value) const
    {
        SetDlgItemTextW(m_window, control, value.GetString());
    }
    void Check(int button, bool checked) const
    {
        SendDlgItemMessageW(m_window, button, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    void Enable(int control, bool enabled) const { EnableWindow(GetDlgItem(m_window, control), enabled); }

    /// Shows the list. Returns the number of its items.
    std::size_t Drop(int combo) const
    {
        SendDlgItemMessageW(m_window, combo, CB_SHOWDROPDOWN, TRUE, 0);
        return Items(combo);
    }
    std::size_t Items(int combo) const
    {
        return static_cast<std::size_t>(SendDlgItemMessageW(m_window, combo, CB_GETCOUNT, 0, 0));
    }

private:
    static INT_PTR CALLBACK DoNothing(HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; }

    HWND m_window;
};
