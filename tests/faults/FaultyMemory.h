// An allocator that fails on request: operator new and everything that winport allocates for strings and
// arrays. It belongs to the program that links it.
#pragma once

/// Counts the allocations of this thread from its making to its end and makes some of them fail.
class FaultyMemory
{
public:
    enum class Failing
    {
        Once,     ///< the n-th allocation alone
        FromThere ///< the n-th and all after it
    };

    /// `n` counts from 1; 0 fails none. Allocations for which `exempt` says true are not counted.
    FaultyMemory(long n, Failing failing, bool (*exempt)() noexcept = nullptr) noexcept;
    ~FaultyMemory();
    FaultyMemory(const FaultyMemory&) = delete;
    FaultyMemory& operator=(const FaultyMemory&) = delete;

    /// Whether an allocation was made to fail.
    bool Struck() const noexcept;

    /// Allocations counted so far.
    long Count() const noexcept;
};
