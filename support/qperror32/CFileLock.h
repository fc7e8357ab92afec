// The lock that keeps several writers of one log apart.
#pragma once

#include <windows.h>

/// Locks out other holders of this class on the same file, in this and other processes, for as long as it
/// lives. It lies far beyond the end of the file, so that whoever reads the file meets no lock. Waits a
/// second at most: a process that was stopped while it held the lock must not stop this one. Whoever does not
/// get it, then or on a file system without locks, goes on without and sees that by IsHeld().
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
