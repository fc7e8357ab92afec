#include "WinApp.h"

#include "UiState.h"

#include <atomic>

namespace
{
constinit CWinApp* g_application = nullptr;
constinit std::atomic<LONG> g_liveWindows{0};
} // namespace

CWinApp::CWinApp(LPCWSTR applicationName) noexcept : m_pszAppName(applicationName)
{
    if (!g_application)
        g_application = this;
}

CWinApp::~CWinApp()
{
    if (g_application == this)
        g_application = nullptr;
}

BOOL CWinApp::InitInstance()
{
    return TRUE;
}

int CWinApp::ExitInstance()
{
    ReleaseModuleActivationContext();
    return 0;
}

HRESULT CWinApp::CanUnloadNow() const noexcept
{
    return CLiveWindow::Count() == 0 ? S_OK : S_FALSE;
}

CWinApp* CWinApp::Get() noexcept
{
    return g_application;
}

CLiveWindow::CLiveWindow() noexcept
{
    ++g_liveWindows;
}

CLiveWindow::~CLiveWindow()
{
    --g_liveWindows;
}

LONG CLiveWindow::Count() noexcept
{
    return g_liveWindows.load();
}

BOOL RunModuleEntry(HINSTANCE instance, DWORD reason, bool processEnds)
{
    CWinApp* application = CWinApp::Get();
    if (!application)
        return TRUE;
    if (reason == DLL_PROCESS_ATTACH)
    {
        application->m_hInstance = instance;
        return application->InitInstance();
    }
    if (reason == DLL_PROCESS_DETACH)
    {
        application->m_processEnds = processEnds;
        application->ExitInstance();
    }
    return TRUE;
}
