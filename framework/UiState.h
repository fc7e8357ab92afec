// The module's user interface state: whose resources a look-up finds and whose activation context is active.
#pragma once

#include <windows.h>

/// Holds the module's UI state on this thread for a scope. Entering saves the current module and activation
/// context and makes this module's current; leaving puts both back, also when an exception passes. It nests.
/// The module's activation context is made at the first entry, so that nothing is read while the loader holds
/// its lock; if it cannot be made (no manifest resource 2), the one that is active stays.
class CUiState
{
public:
    CUiState() noexcept;
    ~CUiState();
    CUiState(const CUiState&) = delete;
    CUiState& operator=(const CUiState&) = delete;

    /// How deep this thread is inside the state; 0 outside.
    static int Depth() noexcept;

    /// How often this thread has entered the state so far, nested entries included; tests take differences of
    /// it.
    static unsigned Entries() noexcept;

private:
    HINSTANCE m_previousModule;
    ULONG_PTR m_cookie = 0;
    bool m_activated = false;
};

/// The module whose resources (strings, templates, icons) and translation are current on this thread: this
/// module inside its UI state, the program of the process outside.
HINSTANCE CurrentModule() noexcept;

/// The activation context of this module, made at the first call from the manifest that is its resource 2;
/// INVALID_HANDLE_VALUE if it has none. It lives until ReleaseModuleActivationContext.
HANDLE ModuleActivationContext() noexcept;

/// Gives the context back, if one was made; the module calls it when it ends.
void ReleaseModuleActivationContext() noexcept;
