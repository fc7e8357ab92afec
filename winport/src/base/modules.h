// The modules of the process: the program itself and the linked-in modules.
#pragma once

#include "resources.h"

#include <winport_module.h>

#include <string>

namespace winport
{
/// One module. An HMODULE is the address of a Module; modules live as long as the process.
struct Module
{
    const WinportModule* descriptor = nullptr; ///< null for the program
    std::wstring path;
    ResourceTable resources;
    unsigned count = 0; ///< load count
    bool pinned = false;

    std::wstring_view FileName() const;
};

/// Returns the module of a handle, loaded or not; the program for a null handle. Returns null if there is
/// none.
Module* ModuleOf(HMODULE handle);

/// Returns the module with the last part of a name or path, loaded or not; ".dll" is added to a part without
/// an extension. Returns null if there is none.
Module* FindModule(std::wstring_view name);

/// The directory of the running program, without a trailing slash.
const std::wstring& ProgramDirectory();
} // namespace winport
