// Open files behind handles. Access rights are kept here, because a file that is to be locked must be open
// for more than its handle allows.
#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace winport
{
/// One open file; closes its descriptor.
class CFile
{
public:
    explicit CFile(DWORD access) : m_access(access) {}
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    /// Takes over an open descriptor; false for a negative one.
    bool Adopt(int descriptor)
    {
        m_descriptor = descriptor;
        return descriptor >= 0;
    }

    int Descriptor() const { return m_descriptor; }
    bool MayRead() const { return (m_access & (GENERIC_READ | FILE_READ_DATA)) != 0; }
    bool MayWrite() const { return (m_access & (GENERIC_WRITE | FILE_WRITE_DATA | FILE_APPEND_DATA)) != 0; }

    /// Takes a lock on a range; waits for other handles unless `wait` is false. Returns an ERROR_ code:
    /// ERROR_LOCK_VIOLATION if the range is taken, also by this very handle, for which there is no waiting.
    DWORD Lock(ULONGLONG offset, ULONGLONG size, bool exclusive, bool wait);

    /// Gives back exactly what one Lock took; ERROR_NOT_LOCKED for any other range.
    DWORD Unlock(ULONGLONG offset, ULONGLONG size);

private:
    struct Range
    {
        ULONGLONG offset;
        ULONGLONG size;
        bool exclusive;
        bool Overlaps(const Range& other) const;
    };

    bool Conflicts(const Range& range);

    int m_descriptor = -1;
    DWORD m_access;
    std::mutex m_lock;
    std::vector<Range> m_ranges;
};

/// The error code for an errno.
DWORD ErrorFromSystem(int code);

/// Makes a handle for an open file.
HANDLE NewHandle(std::shared_ptr<CFile> file);

/// Closes a handle; false if there is none. The file stays open while a call on it is under way.
bool ForgetHandle(HANDLE handle);

/// The open file behind a handle; null, with ERROR_INVALID_HANDLE set, if there is none.
std::shared_ptr<CFile> FileOf(HANDLE handle);
} // namespace winport
