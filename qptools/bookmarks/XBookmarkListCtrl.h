// The list of bookmarks.
#pragma once

#include "XQPComBSTR.h"

#include "ListCtrl.h"

#include <deque>
#include <string>

namespace qptools
{
/// A report list of two columns: the bookmark's name and the name of its component. A click on a heading
/// sorts by that column, descending the first time; each further click, on either heading, reverses the
/// direction.
class XBookmarkListCtrl : public CListCtrl
{
public:
    struct Row
    {
        XQPComBSTR component;
        XQPComBSTR name;
        XQPComBSTR tree; ///< where the object is; identifies the bookmark
        int place = 0;   ///< the index before a sort
    };

    /// Inserts the columns and sets the list up.
    void Open();

    /// Adds a row; the list places it by its name, whatever `index` is. The row is owned by this object and
    /// freed with it, not when it is deleted from the list.
    void AddRow(int index, Row row);

    /// The row at that index; null if there is none.
    Row* RowAt(int index) const noexcept { return reinterpret_cast<Row*>(GetItemData(index)); }

    /// The index of the first selected row, or -1.
    int FirstSelected() const noexcept { return GetNextItem(-1, LVNI_SELECTED); }

protected:
    const CMessageMap& GetMessageMap() const override;

private:
    LRESULT OnButtonDown(WPARAM, LPARAM);
    void EndEditing() const;
    void OnColumnClick(NMHDR* notification, LRESULT* result);
    void OnColumnChanging(NMHDR* notification, LRESULT* result);
    void Sort(int column);
    void ShowOrder(int column) const;

    std::deque<Row> m_rows; ///< in the order of creation, deleted ones included
    bool m_ascending = true;
};
} // namespace qptools
