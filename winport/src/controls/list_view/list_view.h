// The list view in report mode: rows with texts in columns, selection and focus, scrolling, label editing. In
// icon mode it only takes rows and columns until it is switched to report mode.
#pragma once

#include "controls/header.h"

namespace winport
{
struct ListRow
{
    std::wstring text;
    std::vector<std::wstring> subTexts; ///< of the second column and up, as far as they were set
    LPARAM param = 0;
    bool selected = false;
};

class ListView final : public Control
{
public:
    using Control::Control;
    using Control::Handle;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// The window procedure of the edit control of a label.
    static LRESULT CALLBACK EditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);

private:
    /// The edit control of a label ends the edit by this message, so that the list may be destroyed
    /// meanwhile.
    static constexpr UINT kEndLabel = WM_APP - 1;

    using Handler = LRESULT (ListView::*)(WPARAM, LPARAM);
    struct Entry
    {
        UINT message;
        Handler handler;
    };
    static const Entry kEntries[];

    // Rows: items.cpp.
    LRESULT OnGetItemCount(WPARAM, LPARAM) { return Count(); }
    LRESULT OnInsertItem(WPARAM, LPARAM item);
    LRESULT OnDeleteItem(WPARAM index, LPARAM);
    LRESULT OnDeleteAllItems(WPARAM, LPARAM);
    LRESULT OnGetItem(WPARAM, LPARAM item);
    LRESULT OnSetItem(WPARAM, LPARAM item);
    LRESULT OnGetItemText(WPARAM index, LPARAM item);
    LRESULT OnSetItemText(WPARAM index, LPARAM item);
    LRESULT OnSortItems(WPARAM parameter, LPARAM compare);
    int PlaceFor(const ListRow& row, int asked) const;
    bool SetText(int index, int subItem, LPCWSTR text);
    const std::wstring& TextOf(int index, int subItem) const;
    void CheckItem(const LVITEMW& item) const;
    void RemoveRow(int index);

    // Columns: columns.cpp.
    LRESULT OnInsertColumn(WPARAM index, LPARAM column);
    LRESULT OnGetColumn(WPARAM index, LPARAM column);
    LRESULT OnGetColumnWidth(WPARAM index, LPARAM);
    LRESULT OnSetColumnWidth(WPARAM index, LPARAM width);
    LRESULT OnGetHeader(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(m_header); }
    LRESULT OnNotify(WPARAM, LPARAM header);
    HDITEMW HeadingFor(const LVCOLUMNW& column) const;
    const Header* Columns() const; ///< null while there is no header
    std::size_t ColumnCount() const;
    int ColumnsWidth() const { return Columns() ? Columns()->LeftOf(ColumnCount()) : 0; }
    void MakeHeaderWindow();
    void PlaceHeader() const;

    // Selection and focus: state.cpp.
    LRESULT OnSetItemState(WPARAM index, LPARAM item);
    LRESULT OnGetItemState(WPARAM index, LPARAM mask);
    LRESULT OnGetSelectedCount(WPARAM, LPARAM) { return m_selected; }
    LRESULT OnGetNextItem(WPARAM start, LPARAM flags);
    UINT StateOf(int index) const;
    bool SetState(int index, UINT state, UINT mask);
    bool Change(int index, const LVITEMW& item);
    UINT ChangesBy(int index, const LVITEMW& item) const;
    void ApplyState(int index, UINT state);
    void TakeFromOthers(int index, UINT gained);
    void DeselectOthers(int index);
    void SelectOnly(int index);
    void SelectRange(int from, int to);
    void Toggle(int index);
    LRESULT Tell(UINT code, int index, UINT changed = 0, UINT before = 0, UINT after = 0);

    // Positions and scrolling: place.cpp.
    LRESULT OnGetItemRect(WPARAM index, LPARAM rect);
    LRESULT OnGetSubItemRect(WPARAM index, LPARAM rect);
    LRESULT OnHitTest(WPARAM, LPARAM hit);
    LRESULT OnEnsureVisible(WPARAM index, LPARAM);
    LRESULT OnScroll(WPARAM x, LPARAM y);
    LRESULT OnScrollBarDown(WPARAM what, LPARAM);
    LRESULT OnScrollBarAcross(WPARAM what, LPARAM);
    LRESULT OnGetTopIndex(WPARAM, LPARAM);
    LRESULT OnGetCountPerPage(WPARAM, LPARAM);
    LRESULT OnSize(WPARAM, LPARAM);
    void NeedReport() const;
    bool IsReport() const { return (Style() & LVS_TYPEMASK) == LVS_REPORT; }
    int HeaderHeight() const;
    int PerPage() const;
    RECT RowRect(int index) const;
    RECT LabelRect(int index) const;
    int RowAt(POINT point) const;
    int ColumnAt(int x) const;
    int Hit(POINT point) const;
    void ScrollTo(int top, int left);

    // Keyboard and mouse: input.cpp.
    LRESULT OnKeyDown(WPARAM key, LPARAM);
    LRESULT OnChar(WPARAM character, LPARAM);
    int FindPrefix(std::wstring_view prefix, int first) const;
    LRESULT OnButtonDown(WPARAM keys, LPARAM point);
    LRESULT OnButtonUp(WPARAM, LPARAM point);
    LRESULT OnDoubleClick(WPARAM, LPARAM point);
    LRESULT OnSetFocus(WPARAM, LPARAM) { return Notify(NM_SETFOCUS), 0; }
    LRESULT OnKillFocus(WPARAM, LPARAM) { return Notify(NM_KILLFOCUS), 0; }
    LRESULT OnDialogCode(WPARAM, LPARAM) { return DLGC_WANTCHARS | DLGC_WANTARROWS; }
    int TargetOf(WPARAM key) const;
    void MoveTo(int index);
    void PressRow(int index, WPARAM keys);
    LRESULT PressNothing(WPARAM keys);
    void TellClick(UINT code, LPARAM point);

    // Labels: label.cpp.
    LRESULT OnEditLabel(WPARAM index, LPARAM);
    LRESULT OnGetEditControl(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(m_edit); }
    LRESULT OnEndLabel(WPARAM cancelled, LPARAM) { return EndEdit(cancelled != FALSE), 0; }
    LRESULT OnCommand(WPARAM code, LPARAM control);
    LRESULT TellLabel(UINT code, LPWSTR text);
    bool OpenEdit(int index);
    void EndEdit(bool cancelled);
    void CommitLabel(bool cancelled);
    void CloseEdit();

    // The window itself: list_view.cpp.
    LRESULT OnCreate(WPARAM, LPARAM) { return OnStyleChanged(static_cast<WPARAM>(GWL_STYLE), 0); }
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnStyleChanged(WPARAM which, LPARAM);
    LRESULT OnSetExtendedStyle(WPARAM mask, LPARAM style);
    LRESULT OnGetExtendedStyle(WPARAM, LPARAM) { return m_extendedStyle; }
    LRESULT OnSetFont(WPARAM font, LPARAM redraw);
    LRESULT Ignore(WPARAM, LPARAM) { return 0; }

    int Count() const { return static_cast<int>(m_rows.size()); }
    bool Has(int index) const { return index >= 0 && index < Count(); }
    ListRow& Row(int index) const { return *m_rows[static_cast<std::size_t>(index)]; }
    bool IsSingle() const { return (Style() & LVS_SINGLESEL) != 0; }

    std::vector<std::unique_ptr<ListRow>> m_rows;
    HWND m_header = nullptr;
    HWND m_edit = nullptr;
    /// Index of the row whose label is edited. Inserting and deleting rows does not change it.
    int m_edited = -1;
    bool m_ending = false;
    int m_focus = -1;
    int m_anchor = -1; ///< index of the first row of a selected range
    int m_selected = 0;
    int m_top = 0;  ///< index of the first visible row
    int m_left = 0; ///< horizontal scroll position in pixels
    bool m_pressed = false;
    std::wstring m_typed;    ///< prefix typed so far
    ULONGLONG m_typedAt = 0; ///< time of its last character
    /// Index of the row that becomes the only selected one when the mouse button is released.
    int m_keptSelected = -1;
    bool m_ordered = true; ///< the rows are known to be sorted by their texts
    DWORD m_extendedStyle = 0;
};
} // namespace winport
