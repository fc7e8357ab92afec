// Points and rectangles, initialised to zero.
#pragma once

#include <windows.h>

class CPoint : public POINT
{
public:
    CPoint() noexcept : POINT{} {}
    CPoint(LONG x, LONG y) noexcept : POINT{x, y} {}
    explicit CPoint(const POINT& point) noexcept : POINT(point) {}

    /// The point in the lParam of a mouse message.
    static CPoint FromMessage(LPARAM lParam) noexcept
    {
        return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    }
};

class CRect : public RECT
{
public:
    CRect() noexcept : RECT{} {}
    CRect(LONG left, LONG top, LONG right, LONG bottom) noexcept : RECT{left, top, right, bottom} {}
    explicit CRect(const RECT& rect) noexcept : RECT(rect) {}

    LONG Width() const noexcept { return right - left; }
    LONG Height() const noexcept { return bottom - top; }

    /// The right and bottom edges are outside.
    bool Contains(const POINT& point) const noexcept
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
};
