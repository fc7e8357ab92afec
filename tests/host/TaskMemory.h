// The task allocator of the test program, watched and made to fail.
#pragma once

#include <cstddef>

/// Counts the allocations from the task allocator while it lives, which is once at a time.
class CTaskMemory
{
public:
    /// The allocation of that number, from 1, and all later ones fail; 0 fails none.
    explicit CTaskMemory(int failFrom = 0);
    ~CTaskMemory();
    CTaskMemory(const CTaskMemory&) = delete;
    CTaskMemory& operator=(const CTaskMemory&) = delete;

    /// Expects that so many blocks were asked for. Windows also tells that each was of `size` bytes and that
    /// none is left; natively the leak check does the latter.
    void ExpectBlocks(int count, std::size_t size) const;
};
