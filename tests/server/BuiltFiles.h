// Where the built module and its type library lie, found from where the test program itself lies.
#pragma once

#include "Resources.h"

#include <string>

inline std::wstring ProgramFolder()
{
    const std::wstring program = ModulePath(nullptr);
    return program.substr(0, program.find_last_of(L'\\'));
}

/// The module, which the build puts beside the test programs.
inline std::wstring BuiltModulePath()
{
    return ProgramFolder() + L"\\qptools.dll";
}

/// The type library as the SDK ships it.
inline std::wstring TypeLibraryPath()
{
    return ProgramFolder() + L"\\..\\sdk\\qptools.tlb";
}
