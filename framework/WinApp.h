// The application object of a module, and the count of the windows that keep the module loaded.
#pragma once

#include <windows.h>

/// A module has one static object of a derived class, constructed when the module is loaded. InitInstance is
/// called after that and ExitInstance before the module is unloaded, both under the loader lock.
class CWinApp
{
public:
    explicit CWinApp(LPCWSTR applicationName = nullptr) noexcept;
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    /// Returns FALSE to fail loading the module. The base returns TRUE.
    virtual BOOL InitInstance();

    /// Releases the module's activation context. Returns 0.
    virtual int ExitInstance();

    /// Returns S_OK if the module has no window, else S_FALSE.
    HRESULT CanUnloadNow() const noexcept;

    /// The module's application object, or null.
    static CWinApp* Get() noexcept;

    HINSTANCE m_hInstance = nullptr; ///< the module, set before InitInstance is called
    bool m_processEnds = false;      ///< set before ExitInstance: other modules may be gone already
    LPCWSTR m_pszAppName;
};

/// A member of every window object while it has a window.
class CLiveWindow
{
public:
    CLiveWindow() noexcept;
    ~CLiveWindow();
    CLiveWindow(const CLiveWindow&) = delete;
    CLiveWindow& operator=(const CLiveWindow&) = delete;
    static LONG Count() noexcept;
};

/// The body of DllMain: handles DLL_PROCESS_ATTACH and DLL_PROCESS_DETACH and ignores other reasons. Returns
/// the result of InitInstance for the former, else TRUE. `processEnds` tells the end of the process from the
/// unloading of the module.
BOOL RunModuleEntry(HINSTANCE instance, DWORD reason, bool processEnds = false);
