#include "UiState.h"

#include "WinApp.h"

#include <atomic>
#include <mutex>

namespace
{
/// The resource identifier of the manifest of a DLL.
constexpr WORD kManifestResource = 2;

thread_local HINSTANCE t_currentModule = nullptr;
thread_local int t_depth = 0;
thread_local unsigned t_entries = 0;

constinit std::atomic<bool> g_contextMade{false};
HANDLE g_context = INVALID_HANDLE_VALUE;

std::mutex& ContextLock()
{
    static std::mutex lock;
    return lock;
}

HINSTANCE ThisModule() noexcept
{
    const CWinApp* application = CWinApp::Get();
    return application ? application->m_hInstance : nullptr;
}

HANDLE MakeActivationContext()
{
    ACTCTXW request = {};
    request.cbSize = sizeof(request);
    request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.hModule = ThisModule();
    request.lpResourceName = MAKEINTRESOURCEW(kManifestResource);
    return request.hModule ? CreateActCtxW(&request) : INVALID_HANDLE_VALUE;
}
} // namespace

CUiState::CUiState() noexcept : m_previousModule(t_currentModule)
{
    const HANDLE context = ModuleActivationContext();
    m_activated = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &m_cookie);
    t_currentModule = ThisModule();
    ++t_entries;
    ++t_depth;
}

CUiState::~CUiState()
{
    --t_depth;
    t_currentModule = m_previousModule;
    // Forced, because a callee may have left a context of its own active above this one.
    if (m_activated)
        DeactivateActCtx(DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION, m_cookie);
}

int CUiState::Depth() noexcept
{
    return t_depth;
}

unsigned CUiState::Entries() noexcept
{
    return t_entries;
}

HINSTANCE CurrentModule() noexcept
{
    return t_currentModule;
}

HANDLE ModuleActivationContext() noexcept
{
    if (g_contextMade.load())
        return g_context;
    const std::lock_guard guard(ContextLock());
    if (!g_contextMade)
    {
        g_context = MakeActivationContext();
        g_contextMade = true;
    }
    return g_context;
}

void ReleaseModuleActivationContext() noexcept
{
    g_contextMade = false;
    if (g_context != INVALID_HANDLE_VALUE)
        ReleaseActCtx(g_context);
    g_context = INVALID_HANDLE_VALUE;
}
