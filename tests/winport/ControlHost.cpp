#include "ControlHost.h"

#include <utility>

namespace
{
constexpr const wchar_t* kClass = L"QptoolsControlHost";
constexpr int kControl = 100;
} // namespace

ControlHost::ControlHost(const wchar_t* className, DWORD style, int width, int height, DWORD exStyle)
{
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    WNDCLASSW host{};
    host.lpfnWndProc = Procedure;
    host.hInstance = GetModuleHandleW(nullptr);
    host.lpszClassName = kClass;
    RegisterClassW(&host); // fails from the second time on, which is as good
    m_window = CreateWindowExW(0, kClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                               host.hInstance, nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_control = CreateWindowExW(exStyle, className, L"", style | WS_CHILD | WS_VISIBLE, 10, 10, width, height,
                                m_window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kControl)),
                                host.hInstance, nullptr);
    m_codes.clear();
}

ControlHost::~ControlHost()
{
    SetWindowLongPtrW(m_window, GWLP_USERDATA, 0);
    DestroyWindow(m_window);
}

std::wstring ControlHost::Text() const
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(m_control)) + 1, L'\0');
    const int length = GetWindowTextW(m_control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void ControlHost::Press(WORD key) const
{
    Send(WM_KEYDOWN, key, 1);
    if (key == VK_RETURN || key == VK_ESCAPE || key == VK_BACK || key == VK_TAB || key == VK_SPACE)
        Send(WM_CHAR, key, 1);
    Send(WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void ControlHost::Type(const wchar_t* text) const
{
    for (; *text; ++text)
        Send(WM_CHAR, static_cast<WPARAM>(*text), 1);
}

std::vector<int> ControlHost::Codes()
{
    return std::exchange(m_codes, {});
}

LRESULT CALLBACK ControlHost::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* host = reinterpret_cast<ControlHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (host && (message == WM_COMMAND || message == WM_NOTIFY))
        return host->OnMessage(message, wParam, lParam);
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT ControlHost::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_COMMAND)
    {
        const int code = HIWORD(wParam);
        m_codes.push_back(code);
        if (onCommand)
            onCommand(code);
        return 0;
    }
    auto& header = *reinterpret_cast<NMHDR*>(lParam);
    m_codes.push_back(static_cast<int>(header.code));
    return onNotify ? onNotify(header) : 0;
}
