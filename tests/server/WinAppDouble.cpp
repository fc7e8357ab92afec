#include "WinAppDouble.h"

#include "ComModule.h"
#include "UiState.h"
#include "WinApp.h"

RecordedBase g_base;

namespace
{
CWinApp* g_application = nullptr;

void Note(const char* name)
{
    g_base.calls.push_back({name, CUiState::Depth(), ComModule::Get().LibraryId() != nullptr});
}
} // namespace

std::ostream& operator<<(std::ostream& out, const BaseCall& call)
{
    return out << call.name << " at depth " << call.depth << (call.started ? ", started" : ", not started");
}

CWinApp::CWinApp(LPCWSTR applicationName) noexcept : m_pszAppName(applicationName)
{
    g_application = this;
}

CWinApp::~CWinApp()
{
    g_application = nullptr;
}

BOOL CWinApp::InitInstance()
{
    Note("InitInstance");
    return g_base.init;
}

int CWinApp::ExitInstance()
{
    Note("ExitInstance");
    return g_base.exit;
}

HRESULT CWinApp::CanUnloadNow() const noexcept
{
    Note("CanUnloadNow");
    return g_base.unload;
}

CWinApp* CWinApp::Get() noexcept
{
    return g_application;
}

BOOL RunModuleEntry(HINSTANCE instance, DWORD reason, bool processEnds)
{
    Note("RunModuleEntry");
    g_base.entryInstance = instance;
    g_base.entryReason = reason;
    g_base.entryProcessEnds = processEnds;
    return g_base.entry;
}
