// The editor of a text cell.
#pragma once

#include "InPlaceEditor.h"

#include "Edit.h"

namespace qptools
{
/// Opens with the cell's text selected, and grows with what is typed up to the edge of the grid. Its window
/// is destroyed when it loses the focus.
class CInPlaceEdit final : public InPlaceEditor<CEdit>
{
public:
    CInPlaceEdit(int row, int column, std::wstring text) : InPlaceEditor(row, column, std::move(text)) {}

    /// Creates the editor as a child of `grid` and takes the focus. Returns false if it cannot be created.
    bool Create(DWORD style, const RECT& rect, HWND grid, UINT id);

protected:
    const CMessageMap& GetMessageMap() const override;

private:
    LRESULT OnChar(WPARAM character, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);
    void Widen() const;
};
} // namespace qptools
