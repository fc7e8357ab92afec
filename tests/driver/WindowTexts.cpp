#include "WindowTexts.h"

#include "Utf8.h"

std::string Utf8Text(const std::wstring& text)
{
    return Utf8FromWide(text);
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
