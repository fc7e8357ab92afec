// The header: a row of headings, whose widths are those of the columns below.
#pragma once

#include "window/window.h"

namespace winport
{
struct Heading
{
    std::wstring text;
    int width = 0;
    int format = HDF_LEFT;
    LPARAM param = 0;
};

class Header final : public Control
{
public:
    using Control::Control;
    using Control::Handle;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

    const std::vector<Heading>& Headings() const { return m_headings; }
    int LeftOf(std::size_t index) const;
    int HeadingAt(int x) const; ///< index, -1 if there is none

private:
    bool Has(WPARAM index) const { return index < m_headings.size(); }
    LRESULT Insert(WPARAM index, const HDITEMW& item);
    LRESULT Get(WPARAM index, HDITEMW* item) const;
    LRESULT Set(WPARAM index, const HDITEMW& item);
    LRESULT GetRect(WPARAM index, RECT* rect) const;
    LRESULT Tell(UINT code, int index, HDITEMW* item);
    void Apply(Heading* heading, const HDITEMW& item) const;
    int DividerAt(int x) const;
    void Press(int x);
    void Drag(int x);
    void Release(int x);

    std::vector<Heading> m_headings;
    int m_pressed = -1;  ///< index of the heading on which the mouse button was pressed
    int m_dragged = -1;  ///< index of the heading whose right border is dragged
    int m_dragStart = 0; ///< the width that the dragged heading would have at x = 0
};
} // namespace winport
