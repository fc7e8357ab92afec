#include "ListCtrl.h"

namespace
{
/// Enough for most cells; a longer text is read again into a larger buffer.
constexpr std::size_t kUsualCell = 260;

/// A text for a structure of the list view, which does not write to it.
LPWSTR Given(LPCWSTR text)
{
    return const_cast<LPWSTR>(text);
}

LPARAM At(const void* record)
{
    return reinterpret_cast<LPARAM>(record);
}
} // namespace

bool CListCtrl::Create(DWORD style, const RECT& rect, HWND parent, UINT id)
{
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    return CWnd::Create(WC_LISTVIEWW, L"", style, rect, parent, id);
}

int CListCtrl::InsertColumn(int index, LPCWSTR caption, int format, int width) const noexcept
{
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM;
    column.fmt = format;
    column.cx = width;
    column.pszText = Given(caption);
    column.iSubItem = index;
    return Int(SendMessage(LVM_INSERTCOLUMNW, Index(index), At(&column)));
}

int CListCtrl::GetColumnFormat(int column) const noexcept
{
    LVCOLUMNW found{};
    found.mask = LVCF_FMT;
    return SendMessage(LVM_GETCOLUMNW, Index(column), At(&found)) ? found.fmt & LVCFMT_JUSTIFYMASK
                                                                  : LVCFMT_LEFT;
}

int CListCtrl::InsertItem(int index, LPCWSTR text, LPARAM data) const noexcept
{
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = index;
    item.pszText = Given(text);
    item.lParam = data;
    return Int(SendMessage(LVM_INSERTITEMW, 0, At(&item)));
}

bool CListCtrl::SetItemText(int index, int column, LPCWSTR text) const noexcept
{
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = Given(text);
    return SendMessage(LVM_SETITEMTEXTW, Index(index), At(&item)) != 0;
}

std::wstring CListCtrl::GetItemText(int index, int column) const
{
    std::wstring text(kUsualCell, L'\0');
    for (;;)
    {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text.data();
        item.cchTextMax = Int(static_cast<LRESULT>(text.size()));
        const auto copied = static_cast<std::size_t>(SendMessage(LVM_GETITEMTEXTW, Index(index), At(&item)));
        if (copied + 1 < text.size())
        {
            text.resize(copied);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

bool CListCtrl::SetItemData(int index, LPARAM data) const noexcept
{
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    item.lParam = data;
    return SendMessage(LVM_SETITEMW, 0, At(&item)) != 0;
}

LPARAM CListCtrl::GetItemData(int index) const noexcept
{
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = index;
    return SendMessage(LVM_GETITEMW, 0, At(&item)) ? item.lParam : 0;
}

bool CListCtrl::SetItemState(int index, UINT state, UINT mask) const noexcept
{
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    return SendMessage(LVM_SETITEMSTATE, Index(index), At(&item)) != 0;
}

bool CListCtrl::GetItemRect(int index, int part, RECT& rect) const noexcept
{
    rect = {};
    rect.left = part;
    return SendMessage(LVM_GETITEMRECT, Index(index), At(&rect)) != 0;
}

int CListCtrl::HitTest(const POINT& point) const noexcept
{
    LVHITTESTINFO test{};
    test.pt = point;
    return Int(SendMessage(LVM_HITTEST, 0, At(&test)));
}
