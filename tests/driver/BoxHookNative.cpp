#include "BoxHookNative.h"

namespace
{
thread_local BoxAnswers* g_answers = nullptr;

std::vector<int> ButtonsOf(UINT type)
{
    switch (type & MB_TYPEMASK)
    {
    case MB_OKCANCEL:
        return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE:
        return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL:
        return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO:
        return {IDYES, IDNO};
    case MB_RETRYCANCEL:
        return {IDRETRY, IDCANCEL};
    default:
        return {IDOK};
    }
}
} // namespace

BoxAnswers::Hook::Hook(BoxAnswers& answers) : m_previous(WinportSetBoxHook(OnBox))
{
    g_answers = &answers;
}

BoxAnswers::Hook::~Hook()
{
    g_answers = nullptr;
    WinportSetBoxHook(m_previous);
}

int BoxAnswers::Hook::OnBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT type)
{
    ShownBox box{.title = title,
                 .text = text ? text : L"",
                 .owner = owner,
                 .buttons = type & MB_TYPEMASK,
                 .icon = type & MB_ICONMASK};
    return g_answers->Answer(box, ButtonsOf(type));
}
