// Text of windows: get, set, measure.
#include "thread.h"

#include <algorithm>

namespace winport
{
int CopyText(std::wstring_view text, LPWSTR buffer, int size)
{
    if (!buffer || size <= 0)
        return 0;
    const std::size_t copied = std::min(text.size(), static_cast<std::size_t>(size) - 1);
    text.copy(buffer, copied);
    buffer[copied] = L'\0';
    return static_cast<int>(copied);
}

std::wstring TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}
} // namespace winport

using namespace winport;

BOOL SetWindowTextW(HWND handle, LPCWSTR text)
{
    return SendMessageW(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

int GetWindowTextW(HWND handle, LPWSTR buffer, int size)
{
    if (buffer && size > 0)
        *buffer = L'\0';
    return static_cast<int>(SendMessageW(handle, WM_GETTEXT, static_cast<WPARAM>(std::max(size, 0)),
                                         reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND handle)
{
    return static_cast<int>(SendMessageW(handle, WM_GETTEXTLENGTH, 0, 0));
}

// Device contexts have the one font only.
HDC GetDC(HWND window)
{
    static int context = 0;
    return !window || AnyWindow(window) ? reinterpret_cast<HDC>(&context) : nullptr;
}

int ReleaseDC(HWND, HDC context)
{
    return context != nullptr;
}

HGDIOBJ SelectObject(HDC, HGDIOBJ object)
{
    static int systemFont = 0;
    static thread_local HGDIOBJ selected = &systemFont;
    return std::exchange(selected, object ? object : selected);
}

BOOL GetTextExtentPoint32W(HDC context, LPCWSTR, int length, LPSIZE size)
{
    if (!context || length < 0)
        return FALSE;
    *size = {length * kCharacterWidth, length ? kCharacterHeight : 0};
    return TRUE;
}
