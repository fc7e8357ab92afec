// The content of a message box.
#pragma once

#include <windows.h>

#include <string>

struct ShownBox
{
    std::wstring title;
    std::wstring text;
    HWND owner = nullptr;
    UINT buttons = 0; ///< MB_OK, MB_YESNO ...
    UINT icon = 0;    ///< MB_ICONERROR ..., 0 without one
};

/// The box in words, in UTF-8, for the message of a failure.
std::string Describe(const ShownBox& box);
