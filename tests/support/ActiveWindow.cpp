#include "ActiveWindow.h"

#ifdef _WIN32

ActiveWindow::ActiveWindow()
    : m_window(CreateWindowExW(0, L"Static", L"active", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                               nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)),
      m_before(SetActiveWindow(m_window))
{
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

#else

#include "winport_test.h"

ActiveWindow::ActiveWindow() : m_window(reinterpret_cast<HWND>(this)), m_before(GetActiveWindow())
{
    WinportSetActiveWindow(m_window);
}

void ActiveWindow::Activate() const
{
    WinportSetActiveWindow(m_window);
}

ActiveWindow::~ActiveWindow()
{
    WinportSetActiveWindow(m_before);
}

#endif
