#include "CInPlaceDateTime.h"

namespace qptools
{
bool CInPlaceDateTime::Create(DWORD style, const RECT& rect, HWND grid, UINT id)
{
    if (!CDateTimeCtrl::Create(style, rect, grid, id))
        return false;
    SetFont(GridFont());
    ShowWindow(SW_SHOW);
    return true;
}

const CMessageMap& CInPlaceDateTime::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnMessage<&CInPlaceDateTime::OnChar>(WM_CHAR),
        OnMessage<&CInPlaceDateTime::OnKillFocus>(WM_KILLFOCUS),
        OnMessage<&CInPlaceDateTime::OnClose>(WM_CLOSE),
        OnReflected<&CInPlaceDateTime::OnCloseUp>(DTN_CLOSEUP),
        OnReflected<&CInPlaceDateTime::OnDateTimeChange>(DTN_DATETIMECHANGE),
    };
    static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
    return map;
}

LRESULT CInPlaceDateTime::OnChar(WPARAM character, LPARAM)
{
    return TakesCharacter(character) ? 0 : Default();
}

// The window is destroyed later: the picker goes on after its own handling of the loss.
LRESULT CInPlaceDateTime::OnKillFocus(WPARAM, LPARAM)
{
    if (Leave())
        PostMessage(WM_CLOSE);
    return 0;
}

LRESULT CInPlaceDateTime::OnClose(WPARAM, LPARAM)
{
    DestroyWindow();
    return 0;
}

void CInPlaceDateTime::OnCloseUp(NMHDR*, LRESULT*)
{
    ::SetFocus(Grid());
}

// The grid does nothing with it.
void CInPlaceDateTime::OnDateTimeChange(NMHDR* notification, LRESULT*)
{
    NMDATETIMECHANGE change = *reinterpret_cast<const NMDATETIMECHANGE*>(notification);
    change.nmhdr.hwndFrom = Grid();
    ::SendMessageW(Grid(), WM_NOTIFY, change.nmhdr.idFrom, reinterpret_cast<LPARAM>(&change));
}
} // namespace qptools
