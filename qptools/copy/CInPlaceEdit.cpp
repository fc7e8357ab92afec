#include "CInPlaceEdit.h"

#include <algorithm>

namespace qptools
{
namespace
{
/// Pixels that the text needs beside its own width: the border and the caret.
constexpr int kMargin = 5;
} // namespace

bool CInPlaceEdit::Create(DWORD style, const RECT& rect, HWND grid, UINT id)
{
    if (!CEdit::Create(style, rect, grid, id))
        return false;
    SetFont(GridFont());
    SetWindowText(InitialText().c_str());
    SetFocus();
    SetSel(0, -1);
    return true;
}

const CMessageMap& CInPlaceEdit::GetMessageMap() const
{
    static const CMessageMapEntry entries[] = {
        OnMessage<&CInPlaceEdit::OnChar>(WM_CHAR),
        OnMessage<&CInPlaceEdit::OnKillFocus>(WM_KILLFOCUS),
    };
    static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
    return map;
}

LRESULT CInPlaceEdit::OnChar(WPARAM character, LPARAM)
{
    if (TakesCharacter(character))
        return 0;
    const LRESULT result = Default();
    Widen();
    return result;
}

LRESULT CInPlaceEdit::OnKillFocus(WPARAM, LPARAM)
{
    if (Leave())
        DestroyWindow();
    return 0;
}

void CInPlaceEdit::Widen() const
{
    const LONG width = TextExtent(GetWindowText()).cx + kMargin;
    if (width <= GetClientRect().Width())
        return;
    CRect client;
    ::GetClientRect(Grid(), &client);
    CRect place = GetWindowRect();
    MapWindowPoints(nullptr, Grid(), reinterpret_cast<POINT*>(static_cast<RECT*>(&place)), 2);
    place.right = std::min(place.left + width, client.right);
    MoveWindow(place);
}
} // namespace qptools
