// Runs a program on a desktop of its own: on_own_desktop PROGRAM [ARGUMENT...]. Its output and its exit code
// are passed through. On a shared desktop, windows of other programs take the focus from its dialogs.
#include "RunProgram.h"

#include <windows.h>

#include <cstdio>
#include <string>

namespace
{
constexpr DWORD kNotStarted = 125;

/// The command line without this program's name.
std::wstring Rest()
{
    const wchar_t* text = GetCommandLineW();
    const wchar_t end = *text == L'"' ? L'"' : L' ';
    for (++text; *text && *text != end; ++text)
        ;
    while (*text == end || *text == L' ')
        ++text;
    return text;
}

DWORD Run(const std::wstring& command, std::wstring desktop)
{
    STARTUPINFOW start = {};
    start.lpDesktop = desktop.data();
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    return RunProgram(command, start).value_or(kNotStarted);
}
} // namespace

int main()
{
    const std::wstring name = L"QptoolsDemo" + std::to_wstring(GetCurrentProcessId());
    const HDESK desktop = CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    const DWORD code = desktop ? Run(Rest(), name) : kNotStarted;
    if (code == kNotStarted)
        std::fprintf(stderr, "on_own_desktop: the program was not started, error %u\n",
                     static_cast<unsigned>(GetLastError()));
    if (desktop)
        CloseDesktop(desktop);
    return static_cast<int>(code);
}
