// A combo box.
#pragma once

#include "Wnd.h"

class CComboBox : public CWnd
{
public:
    int GetCount() const noexcept { return static_cast<int>(SendMessage(CB_GETCOUNT)); }

    /// The index of the selected item, or CB_ERR.
    int GetCurSel() const noexcept { return static_cast<int>(SendMessage(CB_GETCURSEL)); }

    /// -1 clears the selection and the text.
    int SetCurSel(int index) const noexcept
    {
        return static_cast<int>(SendMessage(CB_SETCURSEL, Index(index)));
    }

    /// Both return the index of the new item, or CB_ERR.
    int AddString(LPCWSTR text) const noexcept { return static_cast<int>(SendText(CB_ADDSTRING, 0, text)); }
    int InsertString(int index, LPCWSTR text) const noexcept
    {
        return static_cast<int>(SendText(CB_INSERTSTRING, Index(index), text));
    }

    /// Returns the number of remaining items, or CB_ERR.
    int DeleteString(int index) const noexcept
    {
        return static_cast<int>(SendMessage(CB_DELETESTRING, Index(index)));
    }
    /// Whether the list is open.
    bool GetDroppedState() const noexcept { return SendMessage(CB_GETDROPPEDSTATE) != 0; }

    void ResetContent() const noexcept { SendMessage(CB_RESETCONTENT); }

    /// The text of an item; empty if there is no such item.
    std::wstring GetLBText(int index) const;

    /// The index of the first item after `after` that begins with `text`, ignoring case, or CB_ERR. The
    /// search wraps around.
    int FindString(int after, LPCWSTR text) const noexcept
    {
        return static_cast<int>(SendText(CB_FINDSTRING, Index(after), text));
    }

    /// The same, and selects the item; if none is found, the selection is unchanged.
    int SelectString(int after, LPCWSTR text) const noexcept
    {
        return static_cast<int>(SendText(CB_SELECTSTRING, Index(after), text));
    }

    LPARAM GetItemData(int index) const noexcept { return SendMessage(CB_GETITEMDATA, Index(index)); }
    void SetItemData(int index, LPARAM data) const noexcept
    {
        SendMessage(CB_SETITEMDATA, Index(index), data);
    }

private:
    static WPARAM Index(int index) noexcept { return static_cast<WPARAM>(index); }
};
