// Message boxes, which are dialogs created without a template.
#include "dialog.h"

#include <algorithm>
#include <utility>

namespace winport
{
namespace
{
constexpr LONG_PTR kTextId = 0xFFFF;
constexpr LONG_PTR kIconId = 0x14;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;
constexpr int kGap = 10;
constexpr int kIcon = 32;

struct ButtonKind
{
    int id;
    const wchar_t* text;
};

// The state that the dialog procedure of a box shares with its loop.
struct BoxRun
{
    int answer = 0;
    bool single = false; ///< OK is the only button, and Escape presses it
};

std::vector<ButtonKind> ButtonsOf(UINT type)
{
    const ButtonKind ok{IDOK, L"OK"};
    const ButtonKind cancel{IDCANCEL, L"Cancel"};
    const ButtonKind yes{IDYES, L"&Yes"};
    const ButtonKind no{IDNO, L"&No"};
    const ButtonKind retry{IDRETRY, L"&Retry"};
    switch (type & MB_TYPEMASK)
    {
    case MB_OK:
        return {ok};
    case MB_OKCANCEL:
        return {ok, cancel};
    case MB_ABORTRETRYIGNORE:
        return {{IDABORT, L"&Abort"}, retry, {IDIGNORE, L"&Ignore"}};
    case MB_YESNOCANCEL:
        return {yes, no, cancel};
    case MB_YESNO:
        return {yes, no};
    case MB_RETRYCANCEL:
        return {retry, cancel};
    default:
        Missing(nullptr, "buttons of a message box", type & MB_TYPEMASK);
    }
}

LPCWSTR IconOf(UINT type)
{
    switch (type & MB_ICONMASK)
    {
    case MB_ICONHAND:
        return IDI_HAND;
    case MB_ICONQUESTION:
        return IDI_QUESTION;
    case MB_ICONEXCLAMATION:
        return IDI_EXCLAMATION;
    case MB_ICONASTERISK:
        return IDI_ASTERISK;
    default:
        return nullptr;
    }
}

INT_PTR CALLBACK BoxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM)
{
    auto* run = reinterpret_cast<BoxRun*>(GetWindowLongPtrW(box, DWLP_USER));
    if (message != WM_COMMAND || !run)
        return FALSE;
    const int id = LOWORD(wParam);
    if (GetDlgItem(box, id) || (id == IDCANCEL && run->single))
        run->answer = id == IDCANCEL && run->single ? IDOK : id;
    return TRUE;
}

// Returns the width of the longest line and the height of all lines.
SIZE Measure(const std::wstring& text)
{
    SIZE size{0, kCharacterHeight};
    int line = 0;
    for (const wchar_t character : text)
    {
        line = character == L'\n' ? 0 : line + kCharacterWidth;
        size.cx = std::max<LONG>(size.cx, line);
        size.cy += character == L'\n' ? kCharacterHeight : 0;
    }
    return size;
}

HWND AddChild(HWND box, const wchar_t* className, const wchar_t* text, DWORD style, const RECT& place,
              LONG_PTR id)
{
    return CreateWindowExW(WS_EX_NOPARENTNOTIFY, className, text, style | WS_CHILD | WS_VISIBLE, place.left,
                           place.top, place.right - place.left, place.bottom - place.top, box,
                           reinterpret_cast<HMENU>(id), nullptr, nullptr);
}

void AddButtons(HWND box, const std::vector<ButtonKind>& buttons, UINT type, int top)
{
    const std::size_t preferred = std::min<std::size_t>((type & MB_DEFMASK) >> 8, buttons.size() - 1);
    int left = kGap;
    for (std::size_t place = 0; place < buttons.size(); ++place)
    {
        const bool isDefault = place == preferred;
        const DWORD group = place == 0 ? WS_GROUP : 0;
        const HWND button =
            AddChild(box, WC_BUTTONW, buttons[place].text,
                     WS_TABSTOP | group | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
                     {left, top, left + kButtonWidth, top + kButtonHeight}, buttons[place].id);
        left += kButtonWidth + kGap;
        if (!isDefault)
            continue;
        StateOf(box).defaultId = buttons[place].id;
        StateOf(box).focus = button;
    }
}

HWND MakeBox(HWND owner, const std::wstring& text, const wchar_t* title, UINT type, BoxRun* run)
{
    const std::vector<ButtonKind> buttons = ButtonsOf(type);
    const SIZE size = Measure(text);
    const LPCWSTR icon = IconOf(type);
    const int textLeft = kGap + (icon ? kIcon + kGap : 0);
    const int width = std::max<int>(textLeft + static_cast<int>(size.cx),
                                    static_cast<int>(buttons.size()) * (kButtonWidth + kGap)) +
                      2 * kGap;
    const int top = 2 * kGap + std::max<int>(static_cast<int>(size.cy), icon ? kIcon : 0);
    const HWND box = CreateWindowExW(WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT, L"#32770", title,
                                     WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT, 0, 0,
                                     width, top + kButtonHeight + 4 * kGap, owner, nullptr, nullptr, nullptr);
    if (!box)
        return nullptr;
    SetWindowLongPtrW(box, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(&BoxProcedure));
    SetWindowLongPtrW(box, DWLP_USER, reinterpret_cast<LONG_PTR>(run));
    run->single = buttons.size() == 1;
    if (icon)
    {
        const HWND shown =
            AddChild(box, WC_STATICW, L"", SS_ICON, {kGap, kGap, kGap + kIcon, kGap + kIcon}, kIconId);
        SendMessageW(shown, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, icon)), 0);
    }
    AddButtons(box, buttons, type, top);
    // After the buttons, with WS_GROUP: the arrow keys move between the buttons only.
    AddChild(box, WC_STATICW, text.c_str(), SS_NOPREFIX | WS_GROUP,
             {textLeft, kGap, textLeft + size.cx, kGap + size.cy}, kTextId);
    return box;
}

// Keeps windows disabled while a box is shown.
class DisabledWindows
{
public:
    DisabledWindows(HWND owner, bool all)
    {
        if (owner)
            Disable(owner);
        for (const Window* window : all && !owner ? TopLevelWindows() : std::vector<Window*>())
            Disable(window->handle);
    }
    ~DisabledWindows() { Enable(); }
    DisabledWindows(const DisabledWindows&) = delete;
    DisabledWindows& operator=(const DisabledWindows&) = delete;

    void Enable()
    {
        for (const HWND window : std::exchange(m_windows, {}))
            EnableWindow(window, TRUE);
    }

private:
    void Disable(HWND window)
    {
        if (!IsWindowEnabled(window))
            return;
        m_windows.push_back(window);
        EnableWindow(window, FALSE);
    }

    std::vector<HWND> m_windows;
};

void Run(HWND box, const BoxRun& run)
{
    ShowWindow(box, SW_SHOWNORMAL);
    MSG message;
    while (run.answer == 0 && Alive(box))
    {
        if (GetMessageW(&message, nullptr, 0, 0) == 0)
        {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (!IsDialogMessageW(box, &message))
        {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}
} // namespace
} // namespace winport

using namespace winport;

int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR title, UINT type)
{
    BoxRun run;
    const HWND root = owner ? GetAncestor(owner, GA_ROOT) : nullptr;
    DisabledWindows disabled(root, (type & MB_TASKMODAL) != 0);
    const HWND box = MakeBox(root, text ? text : L"", title ? title : L"Error", type, &run);
    if (!box)
        return 0;
    Run(box, run);
    disabled.Enable();
    if (Alive(box))
        DestroyWindow(box);
    return run.answer;
}
