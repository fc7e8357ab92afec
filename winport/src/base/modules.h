// The modules of the process: the program itself and what is linked into it as a module.
#pragma once

#include "resources.h"

#include <winport_module.h>

#include <string>

namespace winport
{
/// One module. An HMODULE is the address of one of these; they live as long as the process.
struct Module
{
    const WinportModule* descriptor = nullptr; ///< null for the program
    std::wstring path;
    ResourceTable resources;
    unsigned count = 0; ///< how often it is loaded
    bool pinned = false;

    std::wstring_view FileName() const;
};

/// The module that a handle names, whether or not it is loaded; null stands for the program. Null for no
/// module.
Module* ModuleOf(HMODULE handle);

/// The module of a name or path, by its last part, to which ".dll" is added if it has no extension. It may
/// not be loaded. Null if there is none.
Module* FindModule(std::wstring_view name);

/// The directory of the running program, without a slash at its end.
const std::wstring& ProgramDirectory();
} // namespace winport
