// Makes an allocation of a loaded module fail. On Windows only.
#pragma once

#include <windows.h>

/// While it lives, the n-th allocation that the module makes for itself fails, and no other: its imports of
/// the runtime's malloc and calloc lead here. What the program and the system allocate is left alone.
class ModuleMemory
{
public:
    /// `n` counts from 1. Ends the program if the module has no such imports.
    ModuleMemory(HMODULE module, int n);
    ~ModuleMemory();
    ModuleMemory(const ModuleMemory&) = delete;
    ModuleMemory& operator=(const ModuleMemory&) = delete;

    /// Whether the allocation was made and failed.
    bool Struck() const noexcept;

private:
    void** m_malloc;
    void** m_calloc;
};
