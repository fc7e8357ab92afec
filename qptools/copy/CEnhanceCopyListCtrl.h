// The grid of the enhanced copy dialog.
#pragma once

#include "Export.h"

#include "ComPtr.h"
#include "ListCtrl.h"

#include "qpconfig.h"

#include <memory>
#include <vector>

namespace qptools
{
class OpenEditor;

/// A list view in report view whose cells are edited in place: column 0 names an attribute, the others hold
/// its value. A first click in a row selects it, the next one in a cell opens an editor over the cell. Every
/// change of a cell is passed to the grid's parent, if that is a CEnhancedCopyDialog. Another parent passes
/// LVN_ENDLABELEDITW of the grid to OnLvnEndlabeledit.
class CEnhanceCopyListCtrl : public CListCtrl
{
public:
    QPTOOLS_EXPORT CEnhanceCopyListCtrl();

    /// Destroys the window.
    QPTOOLS_EXPORT ~CEnhanceCopyListCtrl() override;

    /// Creates the grid as a child of `parent`, for a host that has it outside the dialog; without columns.
    /// `style` includes LVS_REPORT. Returns false if it cannot be created.
    QPTOOLS_EXPORT bool Create(DWORD style, const RECT& rect, HWND parent, UINT id);

    /// Inserts a row at the top. It holds a reference to `attribute`, which may be null, until it is deleted.
    QPTOOLS_EXPORT void InsertAttribute(LPCWSTR name, IQPAttribute* attribute);

    /// The attribute of a row, borrowed; null if it has none or there is no such row.
    QPTOOLS_EXPORT IQPAttribute* AttributeOf(int row) const noexcept;

    /// The row at a point in client coordinates, or -1. In report view `column`, which may be null, receives
    /// the column at the point, in any other view 0; the border of two columns belongs to the left one.
    QPTOOLS_EXPORT int HitTestEx(const CPoint& point, int* column) const noexcept;

    /// Opens the editor of a cell: a date picker for a date, else an edit control. At once the cell shows the
    /// mark "X", and that is its value until the editor ends. Does nothing for column 0, for a column that
    /// does not exist or is too narrow, and for a row without an attribute.
    QPTOOLS_EXPORT void ShowInPlaceControls(int row, int column);

    /// Marks one of the columns 1 to 3 of a row with "X" and empties the other ones up to 4; any other column
    /// empties 1 to 3. Columns that do not exist are skipped.
    QPTOOLS_EXPORT void ApplyRadioButtonLogic(int row, int column);

    /// An editor has ended: its text becomes the cell's, if there is one.
    QPTOOLS_EXPORT void OnLvnEndlabeledit(NMHDR* notification, LRESULT* result);

protected:
    const CMessageMap& GetMessageMap() const override;

private:
    LRESULT OnLButtonDown(WPARAM, LPARAM lParam);
    LRESULT OnFocusTaking(WPARAM, LPARAM);
    LRESULT OnDeleteItem(WPARAM row, LPARAM);
    LRESULT OnDeleteAllItems(WPARAM, LPARAM);

    int ColumnAt(const CRect& row, const CPoint& point) const noexcept;
    CRect EditorPlace(int row, int column) const noexcept;
    void OpenPicker(int row, int column, const CRect& place);
    void OpenEdit(int row, int column, const CRect& place);
    void UpdateContainer(int row, int column) const;
    void AbandonEditors() noexcept;

    std::vector<ComPtr<IQPAttribute>> m_attributes;     ///< of the rows, in no order
    std::vector<std::unique_ptr<OpenEditor>> m_editors; ///< in order of creation, ended ones included
};
} // namespace qptools
