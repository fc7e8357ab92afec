// Registration of a linked-in module, which LoadLibrary then finds. The source that qp_module() generates is
// the only user of this header.
#pragma once

#include "wpbase.h"

struct WinportExport
{
    const char* name;
    FARPROC address;
};

/// A linked-in module. Its path is the directory of the program and the file name.
struct WinportModule
{
    const char* fileName;
    BOOL (*dllMain)(HINSTANCE module, DWORD reason, LPVOID reserved);
    const WinportExport* exports;
    std::size_t exportCount;
    const unsigned char* resources; ///< a .res file's bytes; may be null
    std::size_t resourceSize;
};

/// Registers `module`, which must live as long as the process. Returns 0, so that the call can initialise a
/// variable.
int WinportRegisterModule(const WinportModule* module);
