// Counts of the process's resources that a module may leave behind.
#pragma once

#include <windows.h>

#include <cstddef>
#include <ostream>

struct ProcessCounts
{
    int tlsSlots; ///< free ones, as the next two
    int flsSlots;
    LONG_PTR nextHandle;   ///< the lowest number that no open handle has
    int atoms;             ///< names in the tables of the process and the session; a window class is one
    std::size_t heapBytes; ///< in blocks that are allocated, in all heaps of the process

    static ProcessCounts Take();
};

std::ostream& operator<<(std::ostream& out, const ProcessCounts& counts);
