// Makes an allocation of a loaded module fail. On Windows only. It replaces imports of the module; operator
// new of a test program is replaced by tests/common/FaultyMemory.h.
#pragma once

#include <windows.h>

/// While it lives, the module's imports of malloc and calloc lead here and its n-th allocation fails, and no
/// other. Allocations of the program and the system are not touched.
class ModuleMemory
{
public:
    /// `n` counts from 1. Ends the program if the module has no such imports.
    ModuleMemory(HMODULE module, int n);
    ~ModuleMemory();
    ModuleMemory(const ModuleMemory&) = delete;
    ModuleMemory& operator=(const ModuleMemory&) = delete;

    /// True if there was an n-th allocation, which failed.
    bool Struck() const noexcept;

private:
    void** m_malloc;
    void** m_calloc;
};
