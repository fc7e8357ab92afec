// A list view in report view.
#pragma once

#include "Wnd.h"

#include <commctrl.h>

class CListCtrl : public CWnd
{
public:
    using CWnd::Create;

    /// Creates the list as a child of `parent` with exactly this style. Returns false if it cannot be
    /// created.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id);

    /// Returns the index of the new column, or -1. `format` is LVCFMT_*, `width` is in pixels.
    int InsertColumn(int index, LPCWSTR caption, int format, int width) const noexcept;

    int GetColumnCount() const noexcept { return Int(::SendMessageW(GetHeader(), HDM_GETITEMCOUNT, 0, 0)); }

    /// In pixels.
    int GetColumnWidth(int column) const noexcept
    {
        return Int(SendMessage(LVM_GETCOLUMNWIDTH, Index(column)));
    }

    /// LVCFMT_LEFT, LVCFMT_RIGHT or LVCFMT_CENTER; LVCFMT_LEFT if there is no such column.
    int GetColumnFormat(int column) const noexcept;

    int GetItemCount() const noexcept { return Int(SendMessage(LVM_GETITEMCOUNT)); }

    /// Returns the index of the new row, which a sorted list chooses by the text, or -1.
    int InsertItem(int index, LPCWSTR text, LPARAM data = 0) const noexcept;
    bool DeleteItem(int index) const noexcept { return SendMessage(LVM_DELETEITEM, Index(index)) != 0; }
    bool DeleteAllItems() const noexcept { return SendMessage(LVM_DELETEALLITEMS) != 0; }

    /// Returns false if there is no such row or column.
    bool SetItemText(int index, int column, LPCWSTR text) const noexcept;
    std::wstring GetItemText(int index, int column) const;

    bool SetItemData(int index, LPARAM data) const noexcept;
    LPARAM GetItemData(int index) const noexcept;

    /// Sets the state bits (LVIS_*) in `mask` of a row, or of all rows for -1, to those of `state`.
    bool SetItemState(int index, UINT state, UINT mask) const noexcept;

    /// The state bits (LVIS_*) of a row that are in `mask`; 0 if there is no such row.
    UINT GetItemState(int index, UINT mask) const noexcept
    {
        return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, Index(index), mask));
    }

    /// The index of the first row after `after` (-1: from the start) with all of the flags LVNI_*, or -1.
    int GetNextItem(int after, UINT flags) const noexcept
    {
        return Int(SendMessage(LVM_GETNEXTITEM, Index(after), flags));
    }
    int GetSelectedCount() const noexcept { return Int(SendMessage(LVM_GETSELECTEDCOUNT)); }

    /// `part` is LVIR_BOUNDS or LVIR_LABEL. Returns false if there is no such row.
    bool GetItemRect(int index, int part, RECT& rect) const noexcept;
    int HitTest(const POINT& point) const noexcept;
    bool EnsureVisible(int index, bool partial) const noexcept
    {
        return SendMessage(LVM_ENSUREVISIBLE, Index(index), partial) != 0;
    }
    bool Scroll(int x, int y) const noexcept { return SendMessage(LVM_SCROLL, Index(x), y) != 0; }
    int GetTopIndex() const noexcept { return Int(SendMessage(LVM_GETTOPINDEX)); }
    int GetCountPerPage() const noexcept { return Int(SendMessage(LVM_GETCOUNTPERPAGE)); }

    void SetExtendedStyle(DWORD style) const noexcept { SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, style); }

    /// `compare` receives the item data of two rows and `parameter`; a negative result puts the first one
    /// first.
    bool SortItems(PFNLVCOMPARE compare, LPARAM parameter) const noexcept
    {
        return SendMessage(LVM_SORTITEMS, static_cast<WPARAM>(parameter),
                           reinterpret_cast<LPARAM>(compare)) != 0;
    }

    /// Begins editing the label of a row. Returns the edit control, or null.
    HWND EditLabel(int index) const noexcept
    {
        return reinterpret_cast<HWND>(SendMessage(LVM_EDITLABELW, Index(index)));
    }
    HWND GetEditControl() const noexcept { return reinterpret_cast<HWND>(SendMessage(LVM_GETEDITCONTROL)); }
    HWND GetHeader() const noexcept { return reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER)); }

private:
    static WPARAM Index(int index) noexcept { return static_cast<WPARAM>(index); }
    static int Int(LRESULT result) noexcept { return static_cast<int>(result); }
};
