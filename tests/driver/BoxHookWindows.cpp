#include "BoxHookWindows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>

namespace
{
constexpr UINT kBoxCameUp = WM_APP + 1;
constexpr const wchar_t* kReceiverClass = L"QptoolsBoxAnswers";

thread_local BoxAnswers* g_answers = nullptr;
thread_local HWND g_receiver = nullptr;

std::wstring ClassOf(HWND window)
{
    wchar_t name[64];
    return {name, static_cast<std::size_t>(GetClassNameW(window, name, 64))};
}

std::wstring TextOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::vector<HWND> ShownChildren(HWND window)
{
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE)
            children.push_back(child);
    return children;
}

// A message box has nothing but statics and buttons with the system's own numbers.
bool IsMessageBox(HWND window, const std::vector<HWND>& children)
{
    return IsWindow(window) && ClassOf(window) == L"#32770" && !children.empty() &&
           std::all_of(children.begin(), children.end(),
                       [](HWND child)
                       {
                           const int id = GetDlgCtrlID(child);
                           return ClassOf(child) == L"Static" ||
                                  (ClassOf(child) == L"Button" && id >= IDOK && id <= IDHELP);
                       });
}

std::vector<int> ButtonsAmong(const std::vector<HWND>& children)
{
    std::vector<int> buttons;
    for (const HWND child : children)
        if (ClassOf(child) == L"Button")
            buttons.push_back(GetDlgCtrlID(child));
    std::sort(buttons.begin(), buttons.end());
    // The single OK of a box may carry the number of Cancel, so that Esc presses it, too.
    if (buttons == std::vector<int>{IDCANCEL})
        buttons = {IDOK};
    return buttons;
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
    for (const HWND child : children)
        if (ClassOf(child) == L"Static" && !TextOf(child).empty() &&
            SendMessageW(child, STM_GETICON, 0, 0) == 0)
            return TextOf(child);
    return {};
}

void AnswerBox(HWND window)
{
    const std::vector<HWND> children = ShownChildren(window);
    if (!IsMessageBox(window, children))
        return;
    const std::vector<int> buttons = ButtonsAmong(children);
    const ShownBox box{.title = TextOf(window),
                       .text = TextAmong(children),
                       .owner = GetWindow(window, GW_OWNER),
                       .buttons = KindOf(buttons),
                       .icon = IconAmong(children)};
    const int answer = g_answers->Answer(box, buttons);
    const HWND button = GetDlgItem(window, answer);
    const int id = button ? answer : IDCANCEL;
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(window, id)));
}
} // namespace

BoxAnswers::Hook::Hook(BoxAnswers& answers)
{
    const WNDCLASSW receiver{
        .lpfnWndProc = OnMessage, .hInstance = GetModuleHandleW(nullptr), .lpszClassName = kReceiverClass};
    RegisterClassW(&receiver); // fails from the second time on, which is as good
    m_receiver = CreateWindowExW(0, kReceiverClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                 receiver.hInstance, nullptr);
    m_hook = SetWindowsHookExW(WH_CBT, OnEvent, nullptr, GetCurrentThreadId());
    EXPECT_TRUE(m_receiver && m_hook);
    g_answers = &answers;
    g_receiver = m_receiver;
}

BoxAnswers::Hook::~Hook()
{
    UnhookWindowsHookEx(m_hook);
    DestroyWindow(m_receiver);
    g_receiver = nullptr;
    g_answers = nullptr;
}

LRESULT CALLBACK BoxAnswers::Hook::OnEvent(int code, WPARAM window, LPARAM details)
{
    // A box comes up once, but is activated again when its owner was; Answer would take that for a second
    // box.
    thread_local HWND lastSeen = nullptr;
    const HWND target = reinterpret_cast<HWND>(window);
    if (code == HCBT_CREATEWND || code == HCBT_DESTROYWND)
        lastSeen = target == lastSeen ? nullptr : lastSeen;
    if (code == HCBT_ACTIVATE && target != lastSeen && ClassOf(target) == L"#32770")
    {
        lastSeen = target;
        PostMessageW(g_receiver, kBoxCameUp, window, 0);
    }
    return CallNextHookEx(nullptr, code, window, details);
}

LRESULT CALLBACK BoxAnswers::Hook::OnMessage(HWND window, UINT message, WPARAM box, LPARAM details)
{
    if (message != kBoxCameUp)
        return DefWindowProcW(window, message, box, details);
    AnswerBox(reinterpret_cast<HWND>(box));
    return 0;
}
