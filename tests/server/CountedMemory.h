// Memory of the test program, counted and made to fail.
#pragma once

/// Counts the calls of operator new on this thread while it lives, and lets the n-th of them (1 is the first)
/// and all later ones fail.
class CountedMemory
{
public:
    explicit CountedMemory(int failFrom = 0) noexcept;
    ~CountedMemory();
    CountedMemory(const CountedMemory&) = delete;
    CountedMemory& operator=(const CountedMemory&) = delete;

    static int Count() noexcept;
};
