// Task memory, which passes between components and comes from where strings and arrays come from.
#include <objbase.h>

#include <winport_alloc.h>

LPVOID CoTaskMemAlloc(SIZE_T size)
{
    return WinportAlloc(size);
}

LPVOID CoTaskMemRealloc(LPVOID memory, SIZE_T size)
{
    if (memory && size == 0)
    {
        WinportFree(memory);
        return nullptr;
    }
    return WinportRealloc(memory, size);
}

void CoTaskMemFree(LPVOID memory)
{
    WinportFree(memory);
}
