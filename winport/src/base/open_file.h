// Open files behind handles. Access rights are checked here: to be locked, a file is opened with more rights
// than its handle has.
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

    /// Takes ownership of an open descriptor. Returns false for a negative one.
    bool Adopt(int descriptor)
    {
        m_descriptor = descriptor;
        return descriptor >= 0;
    }

    int Descriptor() const { return m_descriptor; }
    bool MayRead() const { return (m_access & (GENERIC_READ | FILE_READ_DATA)) != 0; }
    bool MayWrite() const { return (m_access & (GENERIC_WRITE | FILE_WRITE_DATA | FILE_APPEND_DATA)) != 0; }

    /// Locks a range; waits for other handles unless `wait` is false. Returns an ERROR_ code:
    /// ERROR_LOCK_VIOLATION if the range is locked by another handle, or by this one, which is never waited
    /// for.
    DWORD Lock(ULONGLONG offset, ULONGLONG size, bool exclusive, bool wait);

    /// Unlocks a range that one call of Lock locked; ERROR_NOT_LOCKED for any other range.
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

/// Creates a handle for an open file.
HANDLE NewHandle(std::shared_ptr<CFile> file);

/// Closes a handle. Returns false if there is no such handle. The file stays open until calls in progress
/// return.
bool ForgetHandle(HANDLE handle);

/// Returns the open file of a handle; null, with ERROR_INVALID_HANDLE set, if there is none.
std::shared_ptr<CFile> FileOf(HANDLE handle);
} // namespace winport
