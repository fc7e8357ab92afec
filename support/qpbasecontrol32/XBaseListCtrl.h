// The list view of the choosers: shows values as texts and stores those that are not texts.
#pragma once

#include "ListCtrl.h"
#include "XQPComVariant.h"

#include <deque>
#include <utility>
#include <vector>

/// A report list with a header, single selection and full row select, which shows its selection without the
/// focus too. A row stores the values that its cells cannot give back, so that a column of width 0 can hold
/// an object.
class XBaseListCtrl : public CListCtrl
{
public:
    XBaseListCtrl() = default;
    ~XBaseListCtrl() override;

    /// Creates the list; `style` is extended by the styles of its kind and WS_TABSTOP. Returns false if it
    /// cannot be created.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id);

    /// Creates the list as a child of `dialog` at the position of the control `frame`, and hides that
    /// control. Without such a control the list has no size. Returns false if it cannot be created.
    bool CreateInPlaceOf(const CWnd& dialog, int frame, DWORD style, UINT id);

    /// Adds a row with one value for each column, at the index `row` or after the last one. Values without a
    /// text form (objects, empty ones) show nothing; numbers and dates are shown in the user's locale.
    /// `image` is reserved for lists with images and passed as -1. Returns false, with nothing added, if
    /// there is no window, `columns` is empty, or the row cannot be inserted. Throws
    /// ComException(E_OUTOFMEMORY).
    bool AddEntry(std::vector<XQPComVariant> columns, int row, int image);

    /// Copies the selected row's value in `column`, counted from 0; a text is read back from the cell.
    /// Returns false, with `value` unchanged, if no row is selected or the row has no such column. Throws
    /// ComException(E_OUTOFMEMORY) and std::bad_alloc.
    bool GetSelData(int column, XQPComVariant& value) const;

    /// Removes all rows and their values.
    void Empty();

protected:
    const CMessageMap& GetMessageMap() const override;

private:
    struct Row
    {
        int columns;
        std::vector<std::pair<int, XQPComVariant>> values; ///< index of the column, value; no texts
    };

    void OnDeleteAllItems(NMHDR* header, LRESULT* result);
    static Row RowFor(const std::vector<XQPComVariant>& columns);
    static void Keep(std::vector<XQPComVariant>& columns, Row& row) noexcept;
    void ShowTexts(int row, const std::vector<XQPComVariant>& columns) const;

    std::deque<Row> m_rows; ///< in the order of creation; the item data of the window's rows point here
};
