// The static control: texts and icons of a dialog.
#include "window/window.h"

#include <utility>

namespace winport
{
namespace
{
class Static final : public Control
{
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool IsIcon() const { return (Style() & SS_TYPEMASK) == SS_ICON; }

    LRESULT m_icon = 0;
};

LRESULT Static::Handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_NCCREATE:
        if ((Style() & SS_TYPEMASK) > SS_ICON)
            Missing(&m_window, "style", Style() & SS_TYPEMASK);
        return Default(message, wParam, lParam);
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    case WM_NCHITTEST:
        return HTTRANSPARENT;
    case STM_SETICON:
        return IsIcon() ? std::exchange(m_icon, static_cast<LRESULT>(wParam)) : 0;
    case STM_GETICON:
        return m_icon;
    default:
        return Default(message, wParam, lParam);
    }
}
} // namespace

std::unique_ptr<Control> MakeStatic(Window& window)
{
    return std::make_unique<Static>(window);
}
} // namespace winport
