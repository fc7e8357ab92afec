// Message boxes without a screen: whoever tests a box answers it; a box that nobody expects ends the run.
#include "wptext.h"

#include <winport_test.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>

using namespace winport;

namespace
{
std::atomic<WinportBoxHook> g_hook{nullptr};
thread_local HWND t_activeWindow = nullptr;
} // namespace

WinportBoxHook WinportSetBoxHook(WinportBoxHook hook)
{
    return g_hook.exchange(hook);
}

void WinportSetActiveWindow(HWND window)
{
    t_activeWindow = window;
}

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT type)
{
    const wchar_t* shownText = text ? text : L"";
    const wchar_t* shownTitle = title ? title : L"Error";
    if (const WinportBoxHook hook = g_hook.load())
        return hook(owner, shownText, shownTitle, type);
    std::fprintf(stderr, "A message box that no test answers: \"%s\", titled \"%s\", type 0x%x\n",
                 Utf8(shownText).c_str(), Utf8(shownTitle).c_str(), type);
    std::abort();
}

HWND GetActiveWindow()
{
    return t_activeWindow;
}

BOOL IsWindow(HWND window)
{
    return window && window == t_activeWindow;
}
