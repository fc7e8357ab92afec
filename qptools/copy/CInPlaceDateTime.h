// The editor of a date cell.
#pragma once

#include "InPlaceEditor.h"

#include "DateTimeCtrl.h"

namespace qptools
{
/// Opens with today's date, whatever the cell holds, and without the focus: until the user enters it, no loss
/// of the focus ends it. The cell receives the text that the picker shows.
class CInPlaceDateTime final : public InPlaceEditor<CDateTimeCtrl>
{
public:
    CInPlaceDateTime(int row, int column, std::wstring text) : InPlaceEditor(row, column, std::move(text)) {}

    /// Creates the editor as a child of `grid`. Returns false if it cannot be created.
    bool Create(DWORD style, const RECT& rect, HWND grid, UINT id);

protected:
    const CMessageMap& GetMessageMap() const override;

private:
    LRESULT OnChar(WPARAM character, LPARAM);
    LRESULT OnKillFocus(WPARAM, LPARAM);
    LRESULT OnClose(WPARAM, LPARAM);
    void OnCloseUp(NMHDR* notification, LRESULT* result);
    void OnDateTimeChange(NMHDR* notification, LRESULT* result);
};
} // namespace qptools
