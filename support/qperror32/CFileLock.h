// The lock that serialises the writers of a log.
#pragma once

#include <windows.h>

/// Excludes other objects of this class on the same file, in this and other processes, for its lifetime. The
/// locked range is far beyond the end of the file, so that readers are not blocked. Waits a second at most: a
/// process that is suspended while it holds the lock must not block this one. If the lock is not acquired,
/// for that reason or because the file system has no locks, IsHeld() returns false and the caller goes on
/// without.
class CFileLock
{
public:
    explicit CFileLock(HANDLE file) noexcept;
    ~CFileLock();
    CFileLock(const CFileLock&) = delete;
    CFileLock& operator=(const CFileLock&) = delete;

    bool IsHeld() const noexcept { return m_locked; }

private:
    bool TryLock() noexcept;

    HANDLE m_file;
    bool m_locked = false;
};
