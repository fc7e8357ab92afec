// Positions of the rows and columns of a list view, hit tests, scrolling.
#include "list_view.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr int kHeaderHeight = kCharacterHeight + 4;
constexpr int kRowHeight = kCharacterHeight + 1;
constexpr int kLabelGap = 2;

// The requests of a scroll bar.
constexpr WORD kLineBack = 0;
constexpr WORD kLineOn = 1;
constexpr WORD kPageBack = 2;
constexpr WORD kPageOn = 3;
constexpr WORD kStart = 6;
constexpr WORD kEnd = 7;

int Scrolled(WORD what, int from, int page, int end)
{
    switch (what)
    {
    case kLineBack:
        return from - 1;
    case kLineOn:
        return from + 1;
    case kPageBack:
        return from - page;
    case kPageOn:
        return from + page;
    case kStart:
        return 0;
    case kEnd:
        return end;
    default:
        return from;
    }
}
} // namespace

void ListView::NeedReport() const
{
    if (!IsReport())
        Missing(&m_window, "places in list view mode", Style() & LVS_TYPEMASK);
}

int ListView::HeaderHeight() const
{
    return Style() & LVS_NOCOLUMNHEADER ? 0 : kHeaderHeight;
}

int ListView::PerPage() const
{
    return std::max(1, (static_cast<int>(ClientSize().bottom) - HeaderHeight()) / kRowHeight);
}

RECT ListView::RowRect(int index) const
{
    const int top = HeaderHeight() + (index - m_top) * kRowHeight;
    return {-m_left, top, ColumnsWidth() - m_left, top + kRowHeight};
}

RECT ListView::LabelRect(int index) const
{
    RECT rect = RowRect(index);
    const int width = ColumnCount() ? Columns()->Headings()[0].width : 0;
    rect.right = rect.left + width;
    rect.left += kLabelGap;
    return rect;
}

LRESULT ListView::OnGetItemRect(WPARAM parameter, LPARAM pointer)
{
    NeedReport();
    auto& rect = *reinterpret_cast<RECT*>(pointer);
    const auto index = static_cast<int>(parameter);
    if (rect.left != LVIR_BOUNDS && rect.left != LVIR_LABEL)
        Missing(&m_window, "part of a list view item", static_cast<unsigned>(rect.left));
    if (!Has(index))
        return FALSE;
    rect = rect.left == LVIR_BOUNDS ? RowRect(index) : LabelRect(index);
    return TRUE;
}

LRESULT ListView::OnGetSubItemRect(WPARAM parameter, LPARAM pointer)
{
    auto& rect = *reinterpret_cast<RECT*>(pointer);
    const auto index = static_cast<int>(parameter);
    const LONG subItem = rect.top;
    if (subItem == 0)
        return OnGetItemRect(parameter, pointer);
    NeedReport();
    if (!Has(index) || subItem < 0 || static_cast<std::size_t>(subItem) >= ColumnCount())
        return FALSE;
    rect = RowRect(index);
    rect.left += Columns()->LeftOf(static_cast<std::size_t>(subItem));
    rect.right = rect.left + Columns()->Headings()[static_cast<std::size_t>(subItem)].width;
    return TRUE;
}

int ListView::RowAt(POINT point) const
{
    NeedReport();
    const RECT client = ClientSize();
    if (!PtInRect(&client, point) || point.y < HeaderHeight())
        return -1;
    const int index = m_top + (static_cast<int>(point.y) - HeaderHeight()) / kRowHeight;
    return Has(index) ? index : -1;
}

int ListView::ColumnAt(int x) const
{
    return Columns() ? Columns()->HeadingAt(x + m_left) : -1;
}

// Returns the row that a click at this point selects. Beyond the label that takes LVS_EX_FULLROWSELECT.
int ListView::Hit(POINT point) const
{
    const int row = RowAt(point);
    const int column = ColumnAt(static_cast<int>(point.x));
    return column == 0 || (column > 0 && (m_extendedStyle & LVS_EX_FULLROWSELECT)) ? row : -1;
}

LRESULT ListView::OnHitTest(WPARAM, LPARAM pointer)
{
    auto& hit = *reinterpret_cast<LVHITTESTINFO*>(pointer);
    const bool onLabel = ColumnAt(static_cast<int>(hit.pt.x)) == 0;
    hit.iItem = Hit(hit.pt);
    hit.flags = hit.iItem < 0 ? LVHT_NOWHERE : onLabel ? LVHT_ONITEMLABEL : LVHT_ONITEM;
    return hit.iItem;
}

// Scrolls no further than the last row and column.
void ListView::ScrollTo(int top, int left)
{
    if (!IsReport() || !Alive(Handle()))
        return;
    const int before = m_left;
    m_top = std::clamp(top, 0, std::max(0, Count() - PerPage()));
    m_left = std::clamp(left, 0, std::max(0, ColumnsWidth() - static_cast<int>(ClientSize().right)));
    if (m_left != before)
        PlaceHeader();
}

// A row that is cut off at the bottom is visible in part.
LRESULT ListView::OnEnsureVisible(WPARAM parameter, LPARAM partial)
{
    const auto index = static_cast<int>(parameter);
    if (!Has(index))
        return FALSE;
    if (partial && index >= m_top && RowRect(index).top < ClientSize().bottom)
        return TRUE;
    if (index < m_top)
        ScrollTo(index, m_left);
    else if (index >= m_top + PerPage())
        ScrollTo(index + 1 - PerPage(), m_left);
    return TRUE;
}

LRESULT ListView::OnScroll(WPARAM x, LPARAM y)
{
    NeedReport();
    ScrollTo(m_top + static_cast<int>(y) / kRowHeight, m_left + static_cast<int>(x));
    return TRUE;
}

LRESULT ListView::OnScrollBarDown(WPARAM what, LPARAM)
{
    EndEdit(false);
    ScrollTo(Scrolled(LOWORD(what), m_top, PerPage(), Count()), m_left);
    return 0;
}

LRESULT ListView::OnScrollBarAcross(WPARAM what, LPARAM)
{
    EndEdit(false);
    const int page = static_cast<int>(ClientSize().right) / kCharacterWidth;
    const int end = ColumnsWidth() / kCharacterWidth;
    ScrollTo(m_top, Scrolled(LOWORD(what), m_left / kCharacterWidth, page, end) * kCharacterWidth);
    return 0;
}

LRESULT ListView::OnGetTopIndex(WPARAM, LPARAM)
{
    NeedReport();
    return m_top;
}

LRESULT ListView::OnGetCountPerPage(WPARAM, LPARAM)
{
    NeedReport();
    return PerPage();
}

LRESULT ListView::OnSize(WPARAM, LPARAM)
{
    ScrollTo(m_top, m_left);
    PlaceHeader();
    return 0;
}
} // namespace winport
