// A window with a combo box, which records its notifications.
#pragma once

#include "ControlHost.h"

#include <initializer_list>
#include <string>

/// Combo box messages as functions. Keys go to the field of an editable box, else to the box.
class ComboHost : public ControlHost
{
public:
    explicit ComboHost(DWORD style, std::initializer_list<const wchar_t*> items = {}, int height = 100)
        : ControlHost(WC_COMBOBOXW, style | WS_VSCROLL | WS_TABSTOP, 200, height)
    {
        for (const wchar_t* item : items)
            Insert(-1, item);
    }

    LRESULT Add(const wchar_t* text) const { return SendText(CB_ADDSTRING, 0, text); }
    LRESULT Insert(int at, const wchar_t* text) const
    {
        return SendText(CB_INSERTSTRING, static_cast<WPARAM>(at), text);
    }
    LRESULT Delete(int at) const { return Send(CB_DELETESTRING, static_cast<WPARAM>(at)); }
    LRESULT Find(int after, const wchar_t* text) const
    {
        return SendText(CB_FINDSTRING, static_cast<WPARAM>(after), text);
    }
    LRESULT SelectText(int after, const wchar_t* text) const
    {
        return SendText(CB_SELECTSTRING, static_cast<WPARAM>(after), text);
    }
    LRESULT Select(int at) const { return Send(CB_SETCURSEL, static_cast<WPARAM>(at)); }
    LRESULT Show(bool open) const { return Send(CB_SHOWDROPDOWN, open); }
    int Selected() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    int Count() const { return static_cast<int>(Send(CB_GETCOUNT)); }
    bool Open() const { return Send(CB_GETDROPPEDSTATE) != 0; }
    HWND Field() const { return GetWindow(Control(), GW_CHILD); }

    std::wstring Item(int at) const
    {
        const LRESULT length = Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(at));
        if (length < 0)
            return L"?";
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        text.resize(static_cast<std::size_t>(
            Send(CB_GETLBTEXT, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(text.data()))));
        return text;
    }

    /// All items, with a bar between them.
    std::wstring Items() const
    {
        std::wstring all;
        for (int i = 0; i < Count(); ++i)
            all += (i ? L"|" : L"") + Item(i);
        return all;
    }

    HWND KeyWindow() const { return Field() ? Field() : Control(); }

    void PressKey(WORD key) const
    {
        SendMessageW(KeyWindow(), WM_KEYDOWN, key, 1);
        if (key == VK_RETURN || key == VK_ESCAPE || key == VK_BACK)
            SendMessageW(KeyWindow(), WM_CHAR, key, 1);
        SendMessageW(KeyWindow(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }
    void PressWithAlt(WORD key) const
    {
        SendMessageW(KeyWindow(), WM_SYSKEYDOWN, key, 0x20000001);
        SendMessageW(KeyWindow(), WM_SYSKEYUP, key, static_cast<LPARAM>(0xE0000001));
    }
    void TypeText(const wchar_t* text) const
    {
        for (; *text; ++text)
            SendMessageW(KeyWindow(), WM_CHAR, static_cast<WPARAM>(*text), 1);
    }

    LRESULT DialogCodeFor(WORD key) const
    {
        MSG message{};
        message.hwnd = KeyWindow();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        return SendMessageW(KeyWindow(), WM_GETDLGCODE, key, reinterpret_cast<LPARAM>(&message));
    }
};
