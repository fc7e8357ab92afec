#include "CFileLock.h"

namespace
{
constexpr DWORD kOffsetHigh = 0x40000000;
constexpr ULONGLONG kLongestWait = 1000; // milliseconds

OVERLAPPED LockPlace() noexcept
{
    OVERLAPPED place{};
    place.OffsetHigh = kOffsetHigh;
    return place;
}
} // namespace

CFileLock::CFileLock(HANDLE file) noexcept : m_file(file)
{
    if (TryLock())
        return;
    const ULONGLONG start = GetTickCount64();
    while (GetLastError() == ERROR_LOCK_VIOLATION && GetTickCount64() - start < kLongestWait)
    {
        Sleep(1);
        if (TryLock())
            return;
    }
}

CFileLock::~CFileLock()
{
    OVERLAPPED place = LockPlace();
    if (m_locked)
        UnlockFileEx(m_file, 0, 1, 0, &place);
}

bool CFileLock::TryLock() noexcept
{
    OVERLAPPED place = LockPlace();
    m_locked =
        LockFileEx(m_file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != FALSE;
    return m_locked;
}
