// Stays until its Wine session ends and so keeps the desktop up, whose start would otherwise be paid by every
// test.
#include <windows.h>

int main()
{
    GetDesktopWindow();
    Sleep(INFINITE);
}
