// What must hold for a figure to mean something.
#pragma once

#include <cstdio>
#include <cstdlib>

/// Fails the run rather than measure something else than was meant.
inline void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "qp_bench: %s\n", what);
    std::abort();
}
