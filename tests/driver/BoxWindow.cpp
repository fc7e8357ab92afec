#include "BoxWindow.h"

#include "WindowTexts.h"

#include <algorithm>
#include <string>

namespace
{
std::vector<HWND> ShownChildren(HWND window)
{
    std::vector<HWND> children = ChildrenOf(window);
    children.erase(
        std::remove_if(children.begin(), children.end(), [](HWND child) { return !IsShown(child); }),
        children.end());
    return children;
}

bool BelongsToBox(HWND child)
{
    const std::wstring kind = ClassOf(child);
    const int id = GetDlgCtrlID(child);
    return kind == L"Static" || (kind == L"Button" && id >= IDOK && id <= IDHELP);
}

// The text has no identifier of its own.
bool IsBoxText(HWND child)
{
    return ClassOf(child) == L"Static" && LOWORD(GetDlgCtrlID(child)) == 0xFFFF;
}

UINT KindOf(const std::vector<int>& buttons)
{
    static const std::pair<std::vector<int>, UINT> kinds[] = {
        {{IDOK}, MB_OK},
        {{IDOK, IDCANCEL}, MB_OKCANCEL},
        {{IDYES, IDNO}, MB_YESNO},
        {{IDCANCEL, IDYES, IDNO}, MB_YESNOCANCEL},
        {{IDCANCEL, IDRETRY}, MB_RETRYCANCEL},
        {{IDABORT, IDRETRY, IDIGNORE}, MB_ABORTRETRYIGNORE}};
    for (const auto& [ids, kind] : kinds)
        if (ids == buttons)
            return kind;
    return MB_TYPEMASK;
}

UINT IconAmong(const std::vector<HWND>& children)
{
    const std::pair<LPCWSTR, UINT> icons[] = {{IDI_HAND, MB_ICONERROR},
                                              {IDI_QUESTION, MB_ICONQUESTION},
                                              {IDI_EXCLAMATION, MB_ICONWARNING},
                                              {IDI_ASTERISK, MB_ICONINFORMATION}};
    for (const HWND child : children)
        if (const LRESULT shown = ClassOf(child) == L"Static" ? SendMessageW(child, STM_GETICON, 0, 0) : 0)
            for (const auto& [name, icon] : icons)
                if (reinterpret_cast<LRESULT>(LoadIconW(nullptr, name)) == shown)
                    return icon;
    return 0;
}

std::wstring TextAmong(const std::vector<HWND>& children)
{
    const auto found = std::find_if(children.begin(), children.end(), IsBoxText);
    return found == children.end() ? std::wstring() : TextOf(*found);
}
} // namespace

bool IsMessageBox(HWND window)
{
    const std::vector<HWND> children = ShownChildren(window);
    return IsWindow(window) && ClassOf(window) == L"#32770" &&
           std::any_of(children.begin(), children.end(), IsBoxText) &&
           std::all_of(children.begin(), children.end(), BelongsToBox);
}

std::vector<int> BoxButtons(HWND box)
{
    std::vector<int> buttons;
    for (const HWND child : ShownChildren(box))
        if (ClassOf(child) == L"Button")
            buttons.push_back(GetDlgCtrlID(child));
    std::sort(buttons.begin(), buttons.end());
    // The only button of a box, OK, may have the identifier of Cancel, so that Escape presses it.
    if (buttons == std::vector<int>{IDCANCEL})
        buttons = {IDOK};
    return buttons;
}

ShownBox ReadBox(HWND box)
{
    const std::vector<HWND> children = ShownChildren(box);
    return {.title = TextOf(box),
            .text = TextAmong(children),
            .owner = GetWindow(box, GW_OWNER),
            .buttons = KindOf(BoxButtons(box)),
            .icon = IconAmong(children)};
}

int CarefulButton(const std::vector<int>& buttons)
{
    for (const int careful : {IDCANCEL, IDNO, IDABORT, IDOK})
        if (std::find(buttons.begin(), buttons.end(), careful) != buttons.end())
            return careful;
    return buttons.empty() ? IDCANCEL : buttons.back();
}

void PressBoxButton(HWND box, int button)
{
    const int id = GetDlgItem(box, button) ? button : IDCANCEL;
    PostMessageW(box, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(box, id)));
}
