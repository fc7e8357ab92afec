// Critical sections and blocks of local memory.
#include <windows.h>

#include <cstdlib>
#include <mutex>
#include <new>

namespace
{
static_assert(sizeof(std::recursive_mutex) <= sizeof(CRITICAL_SECTION));

std::recursive_mutex& LockOf(CRITICAL_SECTION* section)
{
    return *std::launder(reinterpret_cast<std::recursive_mutex*>(section->lock));
}
} // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section)
{
    new (section->lock) std::recursive_mutex;
}

BOOL InitializeCriticalSectionAndSpinCount(CRITICAL_SECTION* section, DWORD)
{
    InitializeCriticalSection(section);
    return TRUE;
}

void EnterCriticalSection(CRITICAL_SECTION* section)
{
    LockOf(section).lock();
}

BOOL TryEnterCriticalSection(CRITICAL_SECTION* section)
{
    return LockOf(section).try_lock();
}

void LeaveCriticalSection(CRITICAL_SECTION* section)
{
    LockOf(section).unlock();
}

void DeleteCriticalSection(CRITICAL_SECTION* section)
{
    LockOf(section).~recursive_mutex();
}

HLOCAL LocalAlloc(UINT flags, SIZE_T size)
{
    const SIZE_T count = size ? size : 1;
    void* memory = (flags & LMEM_ZEROINIT) != 0 ? std::calloc(1, count) : std::malloc(count);
    if (!memory)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return memory;
}

HLOCAL LocalFree(HLOCAL memory)
{
    std::free(memory);
    return nullptr;
}
