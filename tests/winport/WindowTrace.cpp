#include "WindowTrace.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr const wchar_t* kClass = L"QptoolsWindowTrace";
WindowTrace* g_trace = nullptr;

std::string Narrow(const wchar_t* text)
{
    std::string narrow;
    for (; text && *text; ++text)
        narrow.push_back(static_cast<char>(*text));
    return narrow;
}

std::string Pair(LPARAM value, const char* between)
{
    return std::to_string(static_cast<SHORT>(LOWORD(value))) + between +
           std::to_string(static_cast<SHORT>(HIWORD(value)));
}

using Detail = std::string (*)(const WindowTrace&, WPARAM, LPARAM);

struct Known
{
    UINT message;
    const char* name;
    Detail detail;
};

std::string Nothing(const WindowTrace&, WPARAM, LPARAM)
{
    return {};
}

std::string Number(const WindowTrace&, WPARAM value, LPARAM)
{
    return " " + std::to_string(value);
}

std::string Size(const WindowTrace&, WPARAM, LPARAM size)
{
    return " " + Pair(size, "x");
}

std::string Point(const WindowTrace&, WPARAM, LPARAM point)
{
    return " " + Pair(point, ",");
}

std::string First(const WindowTrace& trace, WPARAM window, LPARAM)
{
    return " " + trace.NameOf(reinterpret_cast<HWND>(window));
}

std::string Second(const WindowTrace& trace, WPARAM, LPARAM window)
{
    return " " + trace.NameOf(reinterpret_cast<HWND>(window));
}

std::string Both(const WindowTrace& trace, WPARAM number, LPARAM window)
{
    return Number(trace, LOWORD(number), 0) + Second(trace, 0, window);
}

const Known kKnown[] = {
    {WM_NCCREATE, "WM_NCCREATE", Nothing},
    {WM_CREATE, "WM_CREATE", Nothing},
    {WM_SIZE, "WM_SIZE", Size},
    {WM_MOVE, "WM_MOVE", Point},
    {WM_SHOWWINDOW, "WM_SHOWWINDOW", Number},
    {WM_WINDOWPOSCHANGING, "WM_WINDOWPOSCHANGING", Nothing},
    {WM_WINDOWPOSCHANGED, "WM_WINDOWPOSCHANGED", Nothing},
    {WM_PARENTNOTIFY, "WM_PARENTNOTIFY", Both},
    {WM_NCACTIVATE, "WM_NCACTIVATE", Number},
    {WM_ACTIVATE, "WM_ACTIVATE", Both},
    {WM_SETFOCUS, "WM_SETFOCUS", First},
    {WM_KILLFOCUS, "WM_KILLFOCUS", First},
    {WM_ENABLE, "WM_ENABLE", Number},
    {WM_CANCELMODE, "WM_CANCELMODE", Nothing},
    {WM_CAPTURECHANGED, "WM_CAPTURECHANGED", Second},
    {WM_CLOSE, "WM_CLOSE", Nothing},
    {WM_SYSCOMMAND, "WM_SYSCOMMAND", Number},
    {WM_STYLECHANGING, "WM_STYLECHANGING", Nothing},
    {WM_STYLECHANGED, "WM_STYLECHANGED", Nothing},
    {WM_DESTROY, "WM_DESTROY", Nothing},
    {WM_NCDESTROY, "WM_NCDESTROY", Nothing},
};

BOOL CALLBACK AddToOrder(HWND window, LPARAM parameter)
{
    reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(window);
    return TRUE;
}

std::vector<HWND> OwnWindows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), AddToOrder, reinterpret_cast<LPARAM>(&windows));
    return windows;
}
} // namespace

const wchar_t* WindowTrace::ClassName()
{
    return kClass;
}

WindowTrace::WindowTrace()
{
    g_trace = this;
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kClass;
    RegisterClassW(&description); // fails from the second time on, which is as good
    m_hook = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
}

WindowTrace::~WindowTrace()
{
    UnhookWindowsHookEx(m_hook);
    onMessage = nullptr;
    for (const auto& [window, name] : m_names)
    {
        if (IsWindow(window))
            DestroyWindow(window);
    }
    g_trace = nullptr;
}

HWND WindowTrace::Make(const wchar_t* name, DWORD style, HWND parent, DWORD exStyle)
{
    const auto before = m_lines;
    const HWND window = MakeTraced(name, style, parent, exStyle);
    m_lines = before;
    return window;
}

HWND WindowTrace::MakeTraced(const wchar_t* name, DWORD style, HWND parent, DWORD exStyle)
{
    return CreateWindowExW(exStyle, kClass, name, style, 10, 20, 300, 200, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

std::vector<std::string> WindowTrace::Take()
{
    return std::exchange(m_lines, {});
}

std::string WindowTrace::NameOf(HWND window) const
{
    const auto found = m_names.find(window);
    return found == m_names.end() ? (window ? "?" : "-") : found->second;
}

std::string WindowTrace::Standing() const
{
    return "active " + NameOf(GetActiveWindow()) + ", focus " + NameOf(GetFocus());
}

std::string WindowTrace::Order() const
{
    std::string order;
    for (const HWND window : OwnWindows())
    {
        if (m_names.count(window))
            order += (order.empty() ? "" : " ") + NameOf(window);
    }
    return order;
}

bool WindowTrace::Wanted(UINT message) const
{
    return only.empty() || std::find(only.begin(), only.end(), message) != only.end();
}

void WindowTrace::Write(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const Known& known : kKnown)
    {
        if (known.message == message && Wanted(message))
            m_lines.push_back(NameOf(window) + " " + known.name + known.detail(*this, wParam, lParam));
    }
}

LRESULT CALLBACK WindowTrace::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!g_trace)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCCREATE)
        g_trace->m_names[window] = Narrow(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName);
    g_trace->Write(window, message, wParam, lParam);
    if (g_trace->onMessage)
    {
        if (const auto answer = g_trace->onMessage(window, message, wParam, lParam))
            return *answer;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK WindowTrace::OnHook(int code, WPARAM wParam, LPARAM lParam)
{
    if (g_trace && g_trace->onHook)
    {
        if (const LRESULT objection = g_trace->onHook(code, wParam, lParam))
            return objection;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
