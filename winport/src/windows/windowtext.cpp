// Texts of windows: their copies, their order, their size.
#include "wpthread.h"

#include "automation/wpnames.h"
#include "base/wptext.h"

#include <winnls.h>

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

int CompareShownTexts(const std::wstring& one, const std::wstring& other)
{
    return CompareNames(one, other, NORM_IGNORECASE);
}

bool BeginsWith(const std::wstring& text, const std::wstring& prefix)
{
    return text.size() >= prefix.size() &&
           CompareNoCase(std::wstring_view(text).substr(0, prefix.size()), prefix) == 0;
}
} // namespace winport

using namespace winport;

BOOL SetWindowTextW(HWND handle, LPCWSTR text)
{
    if (!OwnWindow(handle, "text of a window of another thread"))
        return FALSE;
    return SendMessageW(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) > 0;
}

int GetWindowTextW(HWND handle, LPWSTR buffer, int size)
{
    if (buffer && size > 0)
        *buffer = L'\0';
    if (!OwnWindow(handle, "text of a window of another thread"))
        return 0;
    return static_cast<int>(SendMessageW(handle, WM_GETTEXT, static_cast<WPARAM>(std::max(size, 0)),
                                         reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND handle)
{
    if (!OwnWindow(handle, "text of a window of another thread"))
        return 0;
    return static_cast<int>(SendMessageW(handle, WM_GETTEXTLENGTH, 0, 0));
}

// Device contexts know no more than the one font.
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
