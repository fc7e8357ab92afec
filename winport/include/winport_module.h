// How code that is linked into a program becomes a module that LoadLibrary finds. qp_module() writes the
// source that registers a module; nothing else needs this header.
#pragma once

#include "wpbase.h"

struct WinportExport
{
    const char* name;
    FARPROC address;
};

/// A linked-in module. The program's own directory is the module's: its path is that directory and the file
/// name.
struct WinportModule
{
    const char* fileName;
    BOOL (*dllMain)(HINSTANCE module, DWORD reason, LPVOID reserved);
    const WinportExport* exports;
    std::size_t exportCount;
    const unsigned char* resources; ///< a .res file's bytes; may be null
    std::size_t resourceSize;
};

/// Makes `module`, which must live as long as the process, known to LoadLibrary. Returns 0, so that a
/// registration can stand as the initialiser of a variable.
int WinportRegisterModule(const WinportModule* module);
