#include "header.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr UINT kKnownParts = HDI_WIDTH | HDI_TEXT | HDI_FORMAT | HDI_LPARAM;
constexpr int kDivider = 4; // the width in pixels, on either side of a border, of the area that drags it
} // namespace

std::unique_ptr<Control> MakeHeader(Window& window)
{
    return std::make_unique<Header>(window);
}

LRESULT Header::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case HDM_GETITEMCOUNT:
        return static_cast<LRESULT>(m_headings.size());
    case HDM_INSERTITEMW:
        return Insert(wParam, *reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_GETITEMW:
        return Get(wParam, reinterpret_cast<HDITEMW*>(lParam));
    case HDM_SETITEMW:
        return Set(wParam, *reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_GETITEMRECT:
        return GetRect(wParam, reinterpret_cast<RECT*>(lParam));
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        Press(PointOf(lParam).x);
        return 0;
    case WM_MOUSEMOVE:
        Drag(PointOf(lParam).x);
        return 0;
    case WM_LBUTTONUP:
        Release(PointOf(lParam).x);
        return 0;
    case WM_CAPTURECHANGED:
        m_pressed = m_dragged = -1;
        return 0;
    default:
        return Default(message, wParam, lParam);
    }
}

int Header::LeftOf(std::size_t index) const
{
    int left = 0;
    for (std::size_t i = 0; i < index; ++i)
        left += m_headings[i].width;
    return left;
}

LRESULT Header::Insert(WPARAM index, const HDITEMW& item)
{
    const std::size_t at = std::min<std::size_t>(index, m_headings.size());
    Heading added;
    Apply(&added, item);
    m_headings.insert(m_headings.begin() + static_cast<std::ptrdiff_t>(at), std::move(added));
    return static_cast<LRESULT>(at);
}

LRESULT Header::Get(WPARAM index, HDITEMW* item) const
{
    RefuseBits(&m_window, "part of a heading", item->mask & ~kKnownParts);
    if (!Has(index))
        return FALSE;
    const Heading& heading = m_headings[index];
    if (item->mask & HDI_TEXT)
        CopyText(heading.text, item->pszText, item->cchTextMax);
    item->cxy = heading.width;
    item->fmt = heading.format;
    item->lParam = heading.param;
    return TRUE;
}

LRESULT Header::Set(WPARAM index, const HDITEMW& item)
{
    if (!Has(index))
        return FALSE;
    HDITEMW change = item;
    if (Tell(HDN_ITEMCHANGINGW, static_cast<int>(index), &change) || !Has(index))
        return FALSE;
    Apply(&m_headings[index], change);
    Tell(HDN_ITEMCHANGEDW, static_cast<int>(index), &change);
    return TRUE;
}

LRESULT Header::GetRect(WPARAM index, RECT* rect) const
{
    if (!Has(index))
        return FALSE;
    const int left = LeftOf(index);
    *rect = {left, 0, left + m_headings[index].width, ClientSize().bottom};
    return TRUE;
}

LRESULT Header::Tell(UINT code, int index, HDITEMW* item)
{
    NMHEADERW told{};
    told.iItem = index;
    told.pitem = item;
    return Notify(told.hdr, code);
}

void Header::Apply(Heading* heading, const HDITEMW& item) const
{
    constexpr int kFormats = HDF_RIGHT | HDF_CENTER | HDF_SORTDOWN | HDF_SORTUP | HDF_STRING;
    RefuseBits(&m_window, "part of a heading", item.mask & ~kKnownParts);
    if ((item.mask & HDI_FORMAT) && (item.fmt & ~kFormats))
        Missing(&m_window, "format of a heading", static_cast<unsigned>(item.fmt & ~kFormats));
    if (item.mask & HDI_WIDTH)
        heading->width = std::max(item.cxy, 0);
    if (item.mask & HDI_TEXT)
        heading->text = item.pszText ? item.pszText : L"";
    if (item.mask & HDI_FORMAT)
        heading->format = item.fmt;
    if (item.mask & HDI_LPARAM)
        heading->param = item.lParam;
}

int Header::HeadingAt(int x) const
{
    int left = 0;
    for (std::size_t i = 0; i < m_headings.size(); ++i)
    {
        const int right = left + m_headings[i].width;
        if (x >= left && x < right)
            return static_cast<int>(i);
        left = right;
    }
    return -1;
}

// To the left of a border, this is the visible heading that ends there; to the right, the last heading of
// width 0 if there is one.
int Header::DividerAt(int x) const
{
    int found = -1;
    int right = 0;
    for (std::size_t i = 0; i < m_headings.size(); ++i)
    {
        right += m_headings[i].width;
        const bool before = m_headings[i].width > 0 && x >= right - kDivider && x < right;
        if (before || (x >= right && x < right + kDivider))
            found = static_cast<int>(i);
        if (before)
            break;
    }
    return found;
}

void Header::Press(int x)
{
    SetCapture(Handle());
    m_dragged = DividerAt(x);
    if (m_dragged >= 0)
        m_dragStart = m_headings[static_cast<std::size_t>(m_dragged)].width - x;
    else if (Style() & HDS_BUTTONS)
        m_pressed = HeadingAt(x);
}

void Header::Drag(int x)
{
    if (m_dragged < 0)
        return;
    HDITEMW change{};
    change.mask = HDI_WIDTH;
    change.cxy = std::max(0, m_dragStart + x);
    Set(static_cast<WPARAM>(m_dragged), change);
}

void Header::Release(int x)
{
    Drag(x);
    const int clicked = m_pressed >= 0 && HeadingAt(x) == m_pressed ? m_pressed : -1;
    if (GetCapture() == Handle())
        ReleaseCapture();
    m_pressed = m_dragged = -1;
    if (clicked >= 0)
        Tell(HDN_ITEMCLICKW, clicked, nullptr);
}
} // namespace winport
