// Task memory, from the same allocator as strings and arrays.
#include <objbase.h>

#include "automation/allocation.h"

LPVOID CoTaskMemAlloc(SIZE_T size)
{
    return winport::Allocate(size);
}

void CoTaskMemFree(LPVOID memory)
{
    winport::Free(memory);
}
