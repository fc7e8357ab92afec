// The one replacement of operator new in the tests: counts allocations and makes them fail.
//
// A program that links `faulty_memory` allocates through it:
// - operator new and new[], throwing and nothrow, not those of an alignment of its own. On Windows that is
//   the program alone, because a DLL has a runtime of its own; natively it is all code of the process.
// - natively also what winport allocates for strings, arrays and task memory (winport_alloc.h). The system's
//   allocators on Windows do not fail on request, except the task allocator (tests/host/TaskMemory.h).
//
// malloc called directly is not covered. tests/log/ModuleMemory.h covers a loaded DLL on Windows.
#pragma once

/// Counts the allocations of the calling thread while it lives and makes some of them fail. One at a time for
/// each thread.
class FaultyMemory
{
public:
    enum class Failing
    {
        Once,     ///< the n-th allocation alone
        FromThere ///< the n-th and all after it
    };

    /// `n` counts from 1; 0 fails none. Allocations during which `exempt` returns true are not counted.
    explicit FaultyMemory(long n, Failing failing = Failing::FromThere,
                          bool (*exempt)() noexcept = nullptr) noexcept;
    ~FaultyMemory();
    FaultyMemory(const FaultyMemory&) = delete;
    FaultyMemory& operator=(const FaultyMemory&) = delete;

    /// True if an allocation was made to fail.
    bool Struck() const noexcept;

    /// Allocations counted so far, failed ones included.
    long Count() const noexcept;

    /// The blocks that the process has from operator new now, whether or not one of these lives.
    static long Blocks() noexcept;
};
