// The module's UI state: the module whose resources are looked up, and the activation context.
#pragma once

#include <windows.h>

/// Enters the module's UI state on this thread for a scope: makes this module and its activation context
/// current and restores the previous ones at the end, also on an exception. Scopes nest. The activation
/// context is created at the first entry, because nothing may be read under the loader lock; if it cannot be
/// created (no manifest resource 2), the active one stays.
class CUiState
{
public:
    CUiState() noexcept;
    ~CUiState();
    CUiState(const CUiState&) = delete;
    CUiState& operator=(const CUiState&) = delete;

    /// The number of nested scopes on this thread; 0 outside.
    static int Depth() noexcept;

    /// The number of entries on this thread so far, nested ones included. Tests compare two values of it.
    static unsigned Entries() noexcept;

private:
    HINSTANCE m_previousModule;
    ULONG_PTR m_cookie = 0;
    bool m_activated = false;
};

/// The module whose resources (strings, templates, icons) are looked up on this thread: this module inside
/// the UI state, the program outside.
HINSTANCE CurrentModule() noexcept;

/// The activation context of this module, created at the first call from the manifest resource 2;
/// INVALID_HANDLE_VALUE if there is none. Valid until ReleaseModuleActivationContext.
HANDLE ModuleActivationContext() noexcept;

/// Releases the activation context, if it was created. Called when the module is unloaded.
void ReleaseModuleActivationContext() noexcept;
