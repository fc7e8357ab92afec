#include "ActiveWindow.h"

namespace
{
constexpr const wchar_t* kClass = L"QptoolsActiveWindow";

HWND MakeWindow()
{
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kClass;
    RegisterClassW(&description); // fails from the second time on, which is as good
    return CreateWindowExW(0, kClass, L"active", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                           nullptr, description.hInstance, nullptr);
}
} // namespace

ActiveWindow::ActiveWindow() : m_before(GetActiveWindow()), m_window(MakeWindow())
{
    Activate();
}

void ActiveWindow::Activate() const
{
    SetActiveWindow(m_window);
}

ActiveWindow::~ActiveWindow()
{
    DestroyWindow(m_window);
    SetActiveWindow(m_before);
}
