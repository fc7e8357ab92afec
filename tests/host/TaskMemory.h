// The task allocator (CoTaskMemAlloc), which counts its allocations and fails some of them. It is not
// operator new: that is tests/common/FaultyMemory.h.
#pragma once

#include <cstddef>

/// Counts the allocations from the task allocator while it lives. One at a time.
class TaskMemory
{
public:
    /// The allocation `failFrom`, counted from 1, and all later ones fail; 0 fails none.
    explicit TaskMemory(int failFrom = 0);
    ~TaskMemory();
    TaskMemory(const TaskMemory&) = delete;
    TaskMemory& operator=(const TaskMemory&) = delete;

    /// Expects `count` allocations so far. On Windows also that each was of `size` bytes and that all blocks
    /// are freed; natively the leak check finds blocks that are not.
    void ExpectBlocks(int count, std::size_t size) const;
};
