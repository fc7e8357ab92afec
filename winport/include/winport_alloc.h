// Test hook that makes the allocation of strings, arrays and task memory fail.
#pragma once

/// Called before each allocation; the allocation fails if it returns false.
using WinportAllocHook = bool (*)() noexcept;

/// Sets the hook; null removes it.
void WinportSetAllocHook(WinportAllocHook hook) noexcept;
