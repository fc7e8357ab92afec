// Where all memory that passes between components comes from: strings, arrays, task memory. A test can make
// it fail.
#pragma once

#include <cstddef>

/// Memory of `size` bytes, aligned for any type, its content undefined. Null if there is none. A size of 0
/// gives an address of its own.
void* WinportAlloc(std::size_t size) noexcept;

/// Moves `memory` (which may be null) to `size` bytes and keeps its content. Null if there is none; then
/// `memory` is as it was.
void* WinportRealloc(void* memory, std::size_t size) noexcept;

/// Gives memory back; null is nothing.
void WinportFree(void* memory) noexcept;

/// Asked before each allocation; false makes it fail.
using WinportAllocHook = bool (*)() noexcept;

/// Sets the hook, null for none.
void WinportSetAllocHook(WinportAllocHook hook) noexcept;
