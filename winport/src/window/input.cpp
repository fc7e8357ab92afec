// Keyboard, pointer, cursors and icons.
#include "thread.h"

#include <algorithm>

namespace winport
{
namespace
{
constexpr BYTE kDown = 0x80;
constexpr BYTE kToggled = 0x01;
constexpr int kCapsLock = 0x14;
constexpr wchar_t kNoCharacter = 0;

bool IsDown(int key)
{
    return ThisThread().keys[key] & kDown;
}

wchar_t LetterOf(WPARAM key)
{
    if (IsDown(VK_CONTROL) && !IsDown(VK_MENU))
        return static_cast<wchar_t>(key - 'A' + 1);
    const bool capsLock = ThisThread().keys[kCapsLock] & kToggled;
    return static_cast<wchar_t>(IsDown(VK_SHIFT) != capsLock ? key : key - 'A' + 'a');
}

// What a key types on an American keyboard.
wchar_t CharacterOf(WPARAM key)
{
    if (key >= 'A' && key <= 'Z')
        return LetterOf(key);
    if (key >= '0' && key <= '9')
    {
        if (IsDown(VK_CONTROL))
            return kNoCharacter;
        return IsDown(VK_SHIFT) ? L")!@#$%^&*("[key - '0'] : static_cast<wchar_t>(key);
    }
    constexpr wchar_t kLineFeed = 0x0A;
    constexpr wchar_t kRubOut = 0x7F;
    const bool control = IsDown(VK_CONTROL);
    switch (key)
    {
    case VK_SPACE:
    case VK_ESCAPE:
        return static_cast<wchar_t>(key);
    case VK_RETURN:
        return control ? kLineFeed : static_cast<wchar_t>(key);
    case VK_BACK:
        return control ? kRubOut : static_cast<wchar_t>(key);
    case VK_TAB:
        return control ? kNoCharacter : static_cast<wchar_t>(key);
    default:
        return kNoCharacter;
    }
}

// The handle of a cursor or an icon is that of its resource, which is shared; the system's have numbers.
template <class T>
T LoadShared(HINSTANCE module, LPCWSTR name, LPCWSTR type, std::uintptr_t stock)
{
    if (!module)
        return reinterpret_cast<T>(stock + (reinterpret_cast<std::uintptr_t>(name) & 0xFFFF));
    const HRSRC found = FindResourceW(module, name, type);
    return reinterpret_cast<T>(found);
}
} // namespace
} // namespace winport

using namespace winport;

BOOL TranslateMessage(const MSG* message)
{
    if (message->message < WM_KEYFIRST || message->message > WM_KEYLAST)
        return FALSE;
    const bool system = message->message == WM_SYSKEYDOWN;
    if (system || message->message == WM_KEYDOWN)
    {
        if (const wchar_t character = CharacterOf(message->wParam))
            PostMessageW(message->hwnd, system ? WM_SYSCHAR : WM_CHAR, static_cast<WPARAM>(character),
                         message->lParam);
    }
    return TRUE;
}

SHORT GetKeyState(int key)
{
    const BYTE state = ThisThread().keys[key & 0xFF];
    return static_cast<SHORT>((state & kDown ? 0xFF80 : 0) | (state & kToggled));
}

BOOL GetKeyboardState(LPBYTE keys)
{
    std::copy_n(ThisThread().keys, std::size(ThisThread().keys), keys);
    return TRUE;
}

BOOL SetKeyboardState(LPBYTE keys)
{
    std::copy_n(keys, std::size(ThisThread().keys), ThisThread().keys);
    return TRUE;
}

HWND SetCapture(HWND handle)
{
    if (handle && !OwnWindow(handle, "capture for a window of another thread"))
        return nullptr;
    const HWND before = std::exchange(ThisThread().capture, handle);
    if (before && FindWindowOf(before))
        SendMessageW(before, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(handle));
    return before;
}

BOOL ReleaseCapture()
{
    SetCapture(nullptr);
    return TRUE;
}

HWND GetCapture()
{
    return ThisThread().capture;
}

HCURSOR SetCursor(HCURSOR cursor)
{
    return std::exchange(ThisThread().cursor, cursor);
}

HCURSOR GetCursor()
{
    return ThisThread().cursor;
}

HCURSOR LoadCursorW(HINSTANCE module, LPCWSTR name)
{
    constexpr std::uintptr_t kStockCursors = 0x10000;
    return LoadShared<HCURSOR>(module, name, RT_GROUP_CURSOR, kStockCursors);
}

HICON LoadIconW(HINSTANCE module, LPCWSTR name)
{
    constexpr std::uintptr_t kStockIcons = 0x20000;
    return LoadShared<HICON>(module, name, RT_GROUP_ICON, kStockIcons);
}
