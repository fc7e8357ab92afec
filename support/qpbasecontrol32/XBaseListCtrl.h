// The list of the choosers: shows values as texts and keeps those that are no texts.
#pragma once

#include "ListCtrl.h"
#include "XQPComVariant.h"

#include <deque>
#include <utility>
#include <vector>

/// A report list with a header in which one row can be selected, over its whole width, and stays visibly so.
/// A row keeps the values that its cells cannot give back, so that a column of no width can carry an object.
class XBaseListCtrl : public CListCtrl
{
public:
    XBaseListCtrl() = default;
    ~XBaseListCtrl() override;

    /// Makes the list with the styles of its kind added to `style`; Tab reaches it. False if it cannot be
    /// made.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id);

    /// Makes the list as a child of `dialog` where the control `frame` of its template stands, and hides that
    /// one. A dialog without such a control gets a list of no size. False if it cannot be made.
    bool CreateInPlaceOf(const CWnd& dialog, int frame, DWORD style, UINT id);

    /// Adds a row with one value a column, at `row` or behind the last one. Values without a text (objects,
    /// empty ones) show nothing; numbers and dates are shown as the user's locale has them. `image` is for
    /// lists with images and is passed as -1. False if there is no window, there are no values, or the row
    /// cannot be made, and nothing is added then. Throws ComException(E_OUTOFMEMORY).
    bool AddEntry(std::vector<XQPComVariant> columns, int row, int image);

    /// A copy of the selected row's value in `column`, counted from 0; a text is what the cell has. False,
    /// with `value` unchanged, if no row is selected or the row has no such column. Throws
    /// ComException(E_OUTOFMEMORY) and std::bad_alloc.
    bool GetSelData(int column, XQPComVariant& value) const;

    /// Takes all rows and their values away.
    void Empty();

protected:
    const CMessageMap& GetMessageMap() const override;

private:
    struct Row
    {
        int columns;
        std::vector<std::pair<int, XQPComVariant>> values; ///< by column, without the texts
    };

    void OnDeleteAllItems(NMHDR* header, LRESULT* result);
    static Row RowFor(const std::vector<XQPComVariant>& columns);
    static void Keep(std::vector<XQPComVariant>& columns, Row& row) noexcept;
    void ShowTexts(int row, const std::vector<XQPComVariant>& columns) const;

    std::deque<Row> m_rows; ///< in the order of their making, where the rows of the window refer to them
};
