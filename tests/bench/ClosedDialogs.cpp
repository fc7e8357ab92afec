#include "ClosedDialogs.h"

#include <commctrl.h>

#include <cwchar>

namespace
{
std::size_t g_rows = 0;

std::size_t RowsOf(HWND dialog)
{
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
    {
        wchar_t name[32] = {};
        GetClassNameW(child, name, 32);
        if (std::wcscmp(name, WC_LISTVIEWW) == 0)
            return static_cast<std::size_t>(SendMessageW(child, LVM_GETITEMCOUNT, 0, 0));
    }
    return 0;
}

LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
{
    const auto dialog = reinterpret_cast<HWND>(window);
    wchar_t name[32] = {};
    if (code == HCBT_ACTIVATE && GetClassNameW(dialog, name, 32) && std::wcscmp(name, L"#32770") == 0)
    {
        g_rows = RowsOf(dialog);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    }
    return CallNextHookEx(nullptr, code, window, details);
}
} // namespace

ClosedDialogs::ClosedDialogs() : m_hook(SetWindowsHookExW(WH_CBT, OnEvent, nullptr, GetCurrentThreadId()))
{
    g_rows = 0;
}

ClosedDialogs::~ClosedDialogs()
{
    UnhookWindowsHookEx(m_hook);
}

std::size_t ClosedDialogs::Rows() const
{
    return g_rows;
}
