#include "list_view.h"

namespace winport
{
// The messages that a list view handles itself.
const ListView::Entry ListView::kEntries[] = {
    {LVM_GETITEMCOUNT, &ListView::OnGetItemCount},
    {LVM_INSERTITEMW, &ListView::OnInsertItem},
    {LVM_SETITEMTEXTW, &ListView::OnSetItemText},
    {LVM_GETITEMTEXTW, &ListView::OnGetItemText},
    {LVM_GETITEMW, &ListView::OnGetItem},
    {LVM_SETITEMW, &ListView::OnSetItem},
    {LVM_DELETEITEM, &ListView::OnDeleteItem},
    {LVM_DELETEALLITEMS, &ListView::OnDeleteAllItems},
    {LVM_SORTITEMS, &ListView::OnSortItems},
    {LVM_SETITEMSTATE, &ListView::OnSetItemState},
    {LVM_GETITEMSTATE, &ListView::OnGetItemState},
    {LVM_GETSELECTEDCOUNT, &ListView::OnGetSelectedCount},
    {LVM_GETNEXTITEM, &ListView::OnGetNextItem},
    {LVM_INSERTCOLUMNW, &ListView::OnInsertColumn},
    {LVM_GETCOLUMNW, &ListView::OnGetColumn},
    {LVM_GETCOLUMNWIDTH, &ListView::OnGetColumnWidth},
    {LVM_SETCOLUMNWIDTH, &ListView::OnSetColumnWidth},
    {LVM_GETHEADER, &ListView::OnGetHeader},
    {LVM_GETITEMRECT, &ListView::OnGetItemRect},
    {LVM_GETSUBITEMRECT, &ListView::OnGetSubItemRect},
    {LVM_HITTEST, &ListView::OnHitTest},
    {LVM_ENSUREVISIBLE, &ListView::OnEnsureVisible},
    {LVM_SCROLL, &ListView::OnScroll},
    {LVM_GETTOPINDEX, &ListView::OnGetTopIndex},
    {LVM_GETCOUNTPERPAGE, &ListView::OnGetCountPerPage},
    {LVM_EDITLABELW, &ListView::OnEditLabel},
    {LVM_GETEDITCONTROL, &ListView::OnGetEditControl},
    {kEndLabel, &ListView::OnEndLabel},
    {LVM_SETEXTENDEDLISTVIEWSTYLE, &ListView::OnSetExtendedStyle},
    {LVM_GETEXTENDEDLISTVIEWSTYLE, &ListView::OnGetExtendedStyle},
    {WM_CREATE, &ListView::OnCreate},
    {WM_DESTROY, &ListView::OnDestroy},
    {WM_STYLECHANGED, &ListView::OnStyleChanged},
    {WM_SIZE, &ListView::OnSize},
    {WM_NOTIFY, &ListView::OnNotify},
    {WM_COMMAND, &ListView::OnCommand},
    {WM_KEYDOWN, &ListView::OnKeyDown},
    {WM_CHAR, &ListView::OnChar},
    {WM_LBUTTONDOWN, &ListView::OnButtonDown},
    {WM_LBUTTONUP, &ListView::OnButtonUp},
    {WM_LBUTTONDBLCLK, &ListView::OnDoubleClick},
    {WM_SETFOCUS, &ListView::OnSetFocus},
    {WM_KILLFOCUS, &ListView::OnKillFocus},
    {WM_GETDLGCODE, &ListView::OnDialogCode},
    {WM_VSCROLL, &ListView::OnScrollBarDown},
    {WM_HSCROLL, &ListView::OnScrollBarAcross},
    {WM_SETFONT, &ListView::OnSetFont},
    {WM_SETREDRAW, &ListView::Ignore},
};

std::unique_ptr<Control> MakeListView(Window& window)
{
    return std::make_unique<ListView>(window);
}

LRESULT ListView::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const Entry& entry : kEntries)
    {
        if (entry.message == message)
            return (this->*entry.handler)(wParam, lParam);
    }
    return Default(message, wParam, lParam);
}

LRESULT ListView::OnDestroy(WPARAM, LPARAM)
{
    m_edit = nullptr;
    OnDeleteAllItems(0, 0);
    return 0;
}

LRESULT ListView::OnStyleChanged(WPARAM which, LPARAM)
{
    if (static_cast<int>(which) != GWL_STYLE)
        return 0;
    const DWORD mode = Style() & LVS_TYPEMASK;
    if (mode != LVS_ICON && mode != LVS_REPORT)
        Missing(&m_window, "list view mode", mode);
    if (mode == LVS_REPORT)
        MakeHeaderWindow();
    PlaceHeader();
    return 0;
}

LRESULT ListView::OnSetExtendedStyle(WPARAM mask, LPARAM style)
{
    constexpr DWORD kKnown = LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_REGIONAL | LVS_EX_LABELTIP;
    const DWORD before = m_extendedStyle;
    const DWORD chosen = mask ? static_cast<DWORD>(mask) : ~0U;
    const DWORD after = (before & ~chosen) | (static_cast<DWORD>(style) & chosen);
    RefuseBits(&m_window, "extended list view style", after & ~kKnown);
    m_extendedStyle = after;
    return static_cast<LRESULT>(before);
}

LRESULT ListView::OnSetFont(WPARAM font, LPARAM redraw)
{
    if (m_header)
        SendMessageW(m_header, WM_SETFONT, font, redraw);
    return Default(WM_SETFONT, font, redraw);
}
} // namespace winport
