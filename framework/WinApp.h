// The application object of a module, and the count of windows that keep the module loaded.
#pragma once

#include <windows.h>

/// A module has one static object of a class derived from this. It is made when the module is loaded;
/// InitInstance runs after that and ExitInstance before the module goes, both while the loader holds its
/// lock.
class CWinApp
{
public:
    explicit CWinApp(LPCWSTR applicationName = nullptr) noexcept;
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    /// FALSE keeps the module from loading. The base has nothing to do and returns TRUE.
    virtual BOOL InitInstance();

    /// Gives the module's activation context back and returns 0.
    virtual int ExitInstance();

    /// S_OK if no window of the module lives, else S_FALSE.
    HRESULT CanUnloadNow() const noexcept;

    /// The module's application object, or null.
    static CWinApp* Get() noexcept;

    HINSTANCE m_hInstance = nullptr; ///< the module, set before InitInstance runs
    LPCWSTR m_pszAppName;
};

/// Held by every window and dialog of the module for as long as it lives.
class CLiveWindow
{
public:
    CLiveWindow() noexcept;
    ~CLiveWindow();
    CLiveWindow(const CLiveWindow&) = delete;
    CLiveWindow& operator=(const CLiveWindow&) = delete;
    static LONG Count() noexcept;
};

/// What a module's entry point does: `reason` is DLL_PROCESS_ATTACH or DLL_PROCESS_DETACH, others are
/// ignored. Returns what the application's InitInstance returned, TRUE otherwise.
BOOL RunModuleEntry(HINSTANCE instance, DWORD reason);
