// Waits for a message box of another program, prints its text, and closes it. The exit code is 1 if none
// appears within 30 seconds.
#include "Utf8.h"

#include <windows.h>

#include <cstdio>

namespace
{
/// The control in which a message box has its text.
constexpr int kTextControl = 0xFFFF;

HWND WaitForBox()
{
    for (int tries = 0; tries < 300; ++tries)
    {
        // Dialogs have this class. Those without the control are no message boxes.
        for (HWND box = nullptr; (box = FindWindowExW(nullptr, box, L"#32770", nullptr)) != nullptr;)
        {
            if (IsWindowVisible(box) && GetDlgItem(box, kTextControl))
                return box;
        }
        Sleep(100);
    }
    return nullptr;
}
} // namespace

int main()
{
    const HWND box = WaitForBox();
    if (!box)
        return 1;
    wchar_t text[1000] = {};
    SendDlgItemMessageW(box, kTextControl, WM_GETTEXT, 1000, reinterpret_cast<LPARAM>(text));
    std::printf("%s\n", Utf8FromWide(text).c_str());
    PostMessageW(box, WM_CLOSE, 0, 0);
    return 0;
}
