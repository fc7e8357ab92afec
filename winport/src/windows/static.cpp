// Texts and icons that stand in a dialog.
#include "wpwindow.h"

#include <utility>

namespace winport
{
namespace
{
constexpr UINT kFirstMessage = STM_SETICON;
constexpr UINT kLastMessage = STM_GETICON + 3;

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
    case WM_SETFONT:
        m_window.font = reinterpret_cast<HFONT>(wParam);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(m_window.font);
    case STM_SETICON:
        return IsIcon() ? std::exchange(m_icon, static_cast<LRESULT>(wParam)) : 0;
    case STM_GETICON:
        return m_icon;
    default:
        if (message >= WM_USER || (message >= kFirstMessage && message <= kLastMessage))
            Unsupported(message);
        return Default(message, wParam, lParam);
    }
}
} // namespace

std::unique_ptr<Control> MakeStatic(Window& window)
{
    return std::make_unique<Static>(window);
}
} // namespace winport
