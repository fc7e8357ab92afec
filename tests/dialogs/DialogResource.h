// A dialog template as it stands in a module's resources, read byte by byte.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

struct DialogControl
{
    std::wstring kind; ///< "button", "edit", "static", "list", "scroll bar", "combo", or the class's name
    int id = 0;        ///< -1: none
    std::wstring caption;
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;
    DWORD style = 0;
    DWORD exStyle = 0;

    bool operator==(const DialogControl&) const = default;
};

struct DialogResource
{
    DWORD style = 0;
    DWORD exStyle = 0;
    short width = 0;
    short height = 0;
    std::wstring title;
    WORD pointSize = 0;
    std::wstring font;
    std::vector<DialogControl> controls;

    /// Reads a template of the plain form; a test fails if it is of another, or cut off.
    static DialogResource Read(std::string_view bytes);
};

/// The control in words, for a test's message.
std::ostream& operator<<(std::ostream& stream, const DialogControl& control);
