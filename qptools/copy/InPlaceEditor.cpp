#include "InPlaceEditor.h"

namespace qptools
{
void NotifyEdited(HWND grid, int editorId, const InPlaceCell& cell, std::wstring* text)
{
    NMLVDISPINFOW edited{};
    edited.hdr.hwndFrom = grid;
    edited.hdr.idFrom = static_cast<UINT_PTR>(editorId);
    edited.hdr.code = LVN_ENDLABELEDITW;
    edited.item.mask = LVIF_TEXT;
    edited.item.iItem = cell.row;
    edited.item.iSubItem = cell.column;
    edited.item.pszText = text ? text->data() : nullptr;
    edited.item.cchTextMax = text ? static_cast<int>(text->size()) : 0;
    SendMessageW(GetParent(grid), WM_NOTIFY, static_cast<WPARAM>(GetDlgCtrlID(grid)),
                 reinterpret_cast<LPARAM>(&edited));
}

bool IsEditorKey(const MSG& message)
{
    return message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_DELETE ||
                                             message.wParam == VK_ESCAPE || GetKeyState(VK_CONTROL) < 0);
}
} // namespace qptools
