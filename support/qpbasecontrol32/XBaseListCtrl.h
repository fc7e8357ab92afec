// The list of the choosers: shows values as texts and keeps the values.
#pragma once

#include "ListCtrl.h"
#include "XQPComVariant.h"

#include <memory>
#include <vector>

/// A report list with a header in which one row can be selected, over its whole width, and stays visibly so.
/// Each row keeps the values it was made of, so that a column of no width can carry an object.
class XBaseListCtrl : public CListCtrl
{
public:
    XBaseListCtrl() = default;
    ~XBaseListCtrl() override;

    /// Makes the list with the styles of its kind added to `style`; Tab reaches it. False if it cannot be
    /// made.
    bool Create(DWORD style, const RECT& rect, HWND parent, UINT id);

    /// Adds a row with one value a column, at `row` or behind the last one. Values without a text (objects,
    /// empty ones) show nothing; numbers and dates are shown as the user's locale has them. `image` is for
    /// lists with images and is passed as -1. False if there is no window, there are no values, or the row
    /// cannot be made, and nothing is added then. Throws ComException(E_OUTOFMEMORY).
    bool AddEntry(std::vector<XQPComVariant> columns, int row, int image);

    /// A copy of the selected row's value in `column`, counted from 0. False, with `value` unchanged, if no
    /// row is selected or the row has no such column. Throws ComException(E_OUTOFMEMORY).
    bool GetSelData(int column, XQPComVariant& value) const;

    /// Takes all rows and their values away.
    void Empty();

private:
    using Row = std::vector<XQPComVariant>;

    void ShowTexts(int row, const Row& columns) const;

    std::vector<std::unique_ptr<Row>> m_rows; ///< in the order of their making
};
