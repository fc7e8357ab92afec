#include "WindowTexts.h"

std::string Utf8Text(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring ClassOf(HWND window)
{
    wchar_t name[64];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 64))};
}

std::wstring TextOf(HWND window)
{
    const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
    std::wstring text(length + 1, L'\0');
    const LRESULT copied =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::vector<HWND> ChildrenOf(HWND window)
{
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

bool IsShown(HWND window)
{
    return (GetWindowLongW(window, GWL_STYLE) & static_cast<LONG>(WS_VISIBLE)) != 0;
}
