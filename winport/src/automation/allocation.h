// Where strings, arrays and task memory come from. Tests can make it fail: winport_alloc.h.
#pragma once

#include <cstddef>

namespace winport
{
/// Memory of `size` bytes, aligned for any type, its content undefined. Null if out of memory. A size of 0
/// gives an address of its own.
void* Allocate(std::size_t size) noexcept;

/// Frees memory; null is allowed.
void Free(void* memory) noexcept;
} // namespace winport
