// The columns of a list view. They are the headings of its header.
#include "list_view.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr int kUsualWidth = 10;
} // namespace

const Header* ListView::Columns() const
{
    const Window* header = FindWindowOf(m_header);
    return header ? static_cast<const Header*>(header->control.get()) : nullptr;
}

std::size_t ListView::ColumnCount() const
{
    const Header* columns = Columns();
    return columns ? columns->Headings().size() : 0;
}

void ListView::MakeHeaderWindow()
{
    if (m_header)
        return;
    m_header = CreateWindowExW(0, WC_HEADERW, nullptr, WS_CHILD | HDS_HORZ | HDS_FULLDRAG | HDS_BUTTONS, 0, 0,
                               0, 0, Handle(), nullptr, m_window.instance, nullptr);
    SendMessageW(m_header, WM_SETFONT, reinterpret_cast<WPARAM>(m_window.font), FALSE);
    PlaceHeader();
}

void ListView::PlaceHeader() const
{
    if (!m_header)
        return;
    const bool shown = IsReport() && HeaderHeight() > 0;
    SetWindowPos(m_header, HWND_TOP, -m_left, 0, ClientSize().right + m_left, HeaderHeight(),
                 SWP_NOACTIVATE | SWP_NOZORDER | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

HDITEMW ListView::HeadingFor(const LVCOLUMNW& column) const
{
    RefuseBits(&m_window, "part of a list view column",
               column.mask & ~(LVCF_FMT | LVCF_WIDTH | LVCF_TEXT | LVCF_SUBITEM));
    if ((column.mask & LVCF_FMT) && (column.fmt & ~LVCFMT_JUSTIFYMASK))
        Missing(&m_window, "format of a list view column", static_cast<unsigned>(column.fmt));
    HDITEMW heading{};
    if (column.mask & LVCF_FMT)
        heading.mask |= HDI_FORMAT;
    if (column.mask & LVCF_WIDTH)
        heading.mask |= HDI_WIDTH;
    if (column.mask & LVCF_TEXT)
        heading.mask |= HDI_TEXT;
    if (column.mask & LVCF_SUBITEM)
        heading.mask |= HDI_LPARAM;
    heading.fmt = column.fmt | HDF_STRING;
    heading.cxy = column.cx;
    heading.pszText = column.pszText;
    heading.lParam = column.iSubItem;
    return heading;
}

LRESULT ListView::OnInsertColumn(WPARAM index, LPARAM parameter)
{
    const auto& column = *reinterpret_cast<const LVCOLUMNW*>(parameter);
    if (static_cast<int>(index) < 0)
        return -1;
    MakeHeaderWindow();
    HDITEMW heading = HeadingFor(column);
    if (!(heading.mask & HDI_WIDTH))
        heading.cxy = kUsualWidth;
    if (!(heading.mask & HDI_FORMAT))
        heading.fmt = HDF_LEFT | HDF_STRING;
    heading.mask |= HDI_WIDTH | HDI_FORMAT;
    const LRESULT place = SendMessageW(m_header, HDM_INSERTITEMW, index, reinterpret_cast<LPARAM>(&heading));
    // The text of the row itself stays in the first column.
    const std::size_t at = place > 0 ? static_cast<std::size_t>(place) - 1 : 0;
    for (const auto& row : m_rows)
    {
        if (row->subTexts.size() > at)
            row->subTexts.insert(row->subTexts.begin() + static_cast<std::ptrdiff_t>(at), std::wstring());
    }
    return place;
}

LRESULT ListView::OnGetColumn(WPARAM index, LPARAM parameter)
{
    auto& column = *reinterpret_cast<LVCOLUMNW*>(parameter);
    HeadingFor(column);
    if (index >= ColumnCount())
        return FALSE;
    const Heading& heading = Columns()->Headings()[index];
    if (column.mask & LVCF_FMT)
        column.fmt = heading.format & LVCFMT_JUSTIFYMASK;
    if (column.mask & LVCF_WIDTH)
        column.cx = heading.width;
    if (column.mask & LVCF_TEXT)
        CopyText(heading.text, column.pszText, column.cchTextMax);
    if (column.mask & LVCF_SUBITEM)
        column.iSubItem = static_cast<int>(heading.param);
    return TRUE;
}

LRESULT ListView::OnGetColumnWidth(WPARAM index, LPARAM)
{
    return index < ColumnCount() ? Columns()->Headings()[index].width : 0;
}

LRESULT ListView::OnSetColumnWidth(WPARAM index, LPARAM width)
{
    HDITEMW heading{};
    heading.mask = HDI_WIDTH;
    heading.cxy = static_cast<short>(LOWORD(width));
    if (heading.cxy < 0)
        Missing(&m_window, "column width", static_cast<unsigned>(-heading.cxy));
    return SendMessageW(m_header, HDM_SETITEMW, index, reinterpret_cast<LPARAM>(&heading));
}

// Passes the notifications of the header on to the parent, which may refuse a change.
LRESULT ListView::OnNotify(WPARAM id, LPARAM parameter)
{
    const auto& header = *reinterpret_cast<const NMHDR*>(parameter);
    if (!m_header || header.hwndFrom != m_header)
        return 0;
    const UINT code = header.code;
    if (code == HDN_ITEMCLICKW)
    {
        NMLISTVIEW told{};
        told.iItem = -1;
        told.iSubItem = reinterpret_cast<const NMHEADERW&>(header).iItem;
        Notify(told.hdr, LVN_COLUMNCLICK);
        if (!Alive(Handle()))
            return 0;
    }
    const LRESULT answer = SendMessageW(GetParent(Handle()), WM_NOTIFY, id, parameter);
    if (code == HDN_ITEMCHANGEDW && Alive(Handle()))
        ScrollTo(m_top, m_left);
    return answer;
}
} // namespace winport
