#include "open_file.h"

#include "immortal.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <unistd.h>

namespace winport
{
namespace
{
struct HandleTable
{
    std::mutex lock;
    std::map<ULONG_PTR, std::shared_ptr<CFile>> files;
    ULONG_PTR last = 0;
};

HandleTable& Handles()
{
    return Immortal<HandleTable>();
}

// Offsets of a descriptor have 63 bits; a range beyond is locked up to the end, which is a length of 0.
struct flock SystemLock(short type, ULONGLONG offset, ULONGLONG size)
{
    constexpr ULONGLONG kEnd = 0x7FFFFFFFFFFFFFFF;
    struct flock lock
    {
    };
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = static_cast<off_t>(std::min(offset, kEnd - 1));
    lock.l_len = size >= kEnd - static_cast<ULONGLONG>(lock.l_start) ? 0 : static_cast<off_t>(size);
    return lock;
}
} // namespace

CFile::~CFile()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

bool CFile::Range::Overlaps(const Range& other) const
{
    const ULONGLONG distance = offset < other.offset ? other.offset - offset : offset - other.offset;
    return distance < (offset < other.offset ? size : other.size);
}

bool CFile::Conflicts(const Range& range)
{
    const std::lock_guard lock(m_lock);
    return std::any_of(m_ranges.begin(), m_ranges.end(), [&](const Range& held) {
        return (range.exclusive || held.exclusive) && held.Overlaps(range);
    });
}

DWORD CFile::Lock(ULONGLONG offset, ULONGLONG size, bool exclusive, bool wait)
{
    const Range range{offset, size, exclusive};
    if (Conflicts(range))
        return ERROR_LOCK_VIOLATION;
    {
        const std::lock_guard lock(m_lock);
        m_ranges.reserve(m_ranges.size() + 1);
    }
    struct flock request = SystemLock(static_cast<short>(exclusive ? F_WRLCK : F_RDLCK), offset, size);
    // A lock of length 0 would be one to the end of the file; on Windows it covers nothing.
    while (size > 0 && fcntl(m_descriptor, wait ? F_OFD_SETLKW : F_OFD_SETLK, &request) != 0)
        if (errno != EINTR)
            return errno == EAGAIN || errno == EACCES ? ERROR_LOCK_VIOLATION : ErrorFromSystem(errno);
    const std::lock_guard lock(m_lock);
    m_ranges.push_back(range);
    return ERROR_SUCCESS;
}

DWORD CFile::Unlock(ULONGLONG offset, ULONGLONG size)
{
    const std::lock_guard lock(m_lock);
    const auto found = std::find_if(m_ranges.begin(), m_ranges.end(), [&](const Range& range) {
        return range.offset == offset && range.size == size;
    });
    if (found == m_ranges.end())
        return ERROR_NOT_LOCKED;
    m_ranges.erase(found);
    struct flock request = SystemLock(F_UNLCK, offset, size);
    if (size > 0 && fcntl(m_descriptor, F_OFD_SETLK, &request) != 0)
        return ErrorFromSystem(errno);
    return ERROR_SUCCESS;
}

DWORD ErrorFromSystem(int code)
{
    switch (code)
    {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
        return ERROR_PATH_NOT_FOUND;
    case EEXIST:
        return ERROR_FILE_EXISTS;
    case EMFILE:
    case ENFILE:
        return ERROR_TOO_MANY_OPEN_FILES;
    case EACCES:
    case EPERM:
    case EISDIR:
    case ETXTBSY:
        return ERROR_ACCESS_DENIED;
    case EROFS:
        return ERROR_WRITE_PROTECT;
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case ENOTEMPTY:
        return ERROR_DIR_NOT_EMPTY;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case EINVAL:
        return ERROR_INVALID_PARAMETER;
    default:
        return ERROR_GEN_FAILURE;
    }
}

HANDLE NewHandle(std::shared_ptr<CFile> file)
{
    HandleTable& table = Handles();
    const std::lock_guard lock(table.lock);
    table.last += 4;
    table.files.emplace(table.last, std::move(file));
    return reinterpret_cast<HANDLE>(table.last);
}

std::shared_ptr<CFile> FileOf(HANDLE handle)
{
    HandleTable& table = Handles();
    const std::lock_guard lock(table.lock);
    const auto found = table.files.find(reinterpret_cast<ULONG_PTR>(handle));
    if (found != table.files.end())
        return found->second;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

bool ForgetHandle(HANDLE handle)
{
    HandleTable& table = Handles();
    const std::lock_guard lock(table.lock);
    return table.files.erase(reinterpret_cast<ULONG_PTR>(handle)) == 1;
}
} // namespace winport
