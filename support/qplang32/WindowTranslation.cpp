#include "WindowTranslation.h"

#include "Translation.h"

#include "Wnd.h"

#include <cwchar>
#include <string>

namespace
{
constexpr int kLongestClassName = 16;

/// Returns true for labels, buttons and group frames, whose texts the user does not enter.
bool ShowsFixedText(HWND window)
{
    wchar_t name[kLongestClassName] = {};
    GetClassNameW(window, name, kLongestClassName);
    return std::wcscmp(name, L"Button") == 0 || std::wcscmp(name, L"Static") == 0;
}

void TranslateText(HWND window)
{
    const std::wstring text = WindowText(window);
    if (text.empty())
        return;
    const wchar_t* translated = CoTranslateText(text.c_str());
    if (text.c_str() != translated && std::wcscmp(translated, text.c_str()) != 0)
        SetWindowTextW(window, translated);
}
} // namespace

void CoTranslateWindow(HWND window)
{
    TranslateText(window);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ShowsFixedText(child))
            TranslateText(child);
}
