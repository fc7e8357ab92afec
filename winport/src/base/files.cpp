// Files by handle: opening, reading, writing, locking.
#include "open_file.h"
#include "text.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

using namespace winport;

namespace
{
BOOL Report(DWORD error)
{
    if (error != ERROR_SUCCESS)
        SetLastError(error);
    return error == ERROR_SUCCESS;
}

bool IsReadOnly(const std::string& path)
{
    struct stat state;
    return stat(path.c_str(), &state) == 0 && !S_ISDIR(state.st_mode) && (state.st_mode & 0222) == 0;
}

// Tells a missing file from a missing directory in its path, as Windows does.
DWORD ErrorForPath(int code, const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    if (code != ENOENT || slash == std::string::npos || slash == 0)
        return ErrorFromSystem(code);
    return access(path.substr(0, slash).c_str(), F_OK) == 0 ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

int DispositionFlags(DWORD disposition)
{
    switch (disposition)
    {
    case CREATE_NEW:
        return O_CREAT | O_EXCL;
    case CREATE_ALWAYS:
        return O_CREAT | O_TRUNC;
    case OPEN_EXISTING:
        return 0;
    case OPEN_ALWAYS:
        return O_CREAT;
    case TRUNCATE_EXISTING:
        return O_TRUNC;
    default:
        return -1;
    }
}

constexpr DWORD kWriting = GENERIC_WRITE | FILE_WRITE_DATA | FILE_APPEND_DATA | DELETE;

// Opens for reading and writing if possible, whatever the rights of the handle: an exclusive lock needs write
// access, a shared one read access.
int OpenDescriptor(const std::string& path, DWORD access, int flags)
{
    flags |= O_CLOEXEC;
    const DWORD writing = access & (GENERIC_WRITE | FILE_WRITE_DATA | FILE_APPEND_DATA);
    if (writing == FILE_APPEND_DATA)
        flags |= O_APPEND;
    const int descriptor = open(path.c_str(), flags | O_RDWR, 0666);
    if (descriptor >= 0 || (errno != EACCES && errno != EROFS && errno != EPERM))
        return descriptor;
    return open(path.c_str(), flags | (writing != 0 ? O_WRONLY : O_RDONLY), 0666);
}

HANDLE OpenFile(const std::string& path, DWORD access, DWORD disposition)
{
    struct stat state;
    const bool existed = stat(path.c_str(), &state) == 0;
    const bool writing = (access & kWriting) != 0 || disposition == CREATE_ALWAYS;
    if (existed && (S_ISDIR(state.st_mode) || (writing && IsReadOnly(path))) && disposition != CREATE_NEW)
    {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    auto file = std::make_shared<CFile>(access);
    if (!file->Adopt(OpenDescriptor(path, access, DispositionFlags(disposition))))
    {
        SetLastError(ErrorForPath(errno, path));
        return INVALID_HANDLE_VALUE;
    }
    const HANDLE handle = NewHandle(std::move(file));
    const bool tells = disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
    SetLastError(existed && tells ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return handle;
}

bool IsImpossibleName(const std::string& path)
{
    return path.find_first_of("<>\"|?*") != std::string::npos;
}

ULONGLONG Offset(const OVERLAPPED& overlapped)
{
    return (static_cast<ULONGLONG>(overlapped.OffsetHigh) << 32) | overlapped.Offset;
}

// An offset of all ones appends: the bytes go to the end that the file has at that moment.
constexpr ULONGLONG kEndOfFile = ~0ULL;

// Makes one system call that writes `done` bytes behind the offset of `overlapped` or, without it, at the
// file position. Returns the number of bytes written, or -1 with errno set.
ssize_t WriteSome(int descriptor, const char* bytes, std::size_t size, const OVERLAPPED* overlapped,
                  DWORD done)
{
    if (!overlapped)
        return write(descriptor, bytes, size);
    if (Offset(*overlapped) != kEndOfFile)
        return pwrite(descriptor, bytes, size, static_cast<off_t>(Offset(*overlapped) + done));
    const iovec piece{const_cast<char*>(bytes), size};
    return pwritev2(descriptor, &piece, 1, 0, RWF_APPEND);
}

ULONGLONG Size(DWORD low, DWORD high)
{
    return (static_cast<ULONGLONG>(high) << 32) | low;
}
} // namespace

HANDLE CreateFileW(LPCWSTR path, DWORD access, DWORD, SECURITY_ATTRIBUTES*, DWORD disposition, DWORD, HANDLE)
{
    const bool truncatesUnwritable =
        disposition == TRUNCATE_EXISTING && (access & (GENERIC_WRITE | FILE_WRITE_DATA)) == 0;
    if (!path || DispositionFlags(disposition) < 0 || truncatesUnwritable)
    {
        SetLastError(path ? ERROR_INVALID_PARAMETER : ERROR_PATH_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    return WithMemory(INVALID_HANDLE_VALUE, [&] {
        const std::string file = SystemPath(path);
        if (!file.empty() && !IsImpossibleName(file))
            return OpenFile(file, access, disposition);
        SetLastError(file.empty() ? ERROR_PATH_NOT_FOUND : ERROR_INVALID_NAME);
        return INVALID_HANDLE_VALUE;
    });
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD size, DWORD* read, OVERLAPPED* overlapped)
{
    if (read)
        *read = 0;
    const std::shared_ptr<CFile> file = FileOf(handle);
    if (!file)
        return FALSE;
    if (!file->MayRead())
        return Report(ERROR_ACCESS_DENIED);
    ssize_t count = 0;
    do
        count = overlapped ? pread(file->Descriptor(), buffer, size, static_cast<off_t>(Offset(*overlapped)))
                           : ::read(file->Descriptor(), buffer, size);
    while (count < 0 && errno == EINTR);
    if (count < 0)
        return Report(ErrorFromSystem(errno));
    if (read)
        *read = static_cast<DWORD>(count);
    return Report(overlapped && count == 0 && size > 0 ? ERROR_HANDLE_EOF : ERROR_SUCCESS);
}

BOOL WriteFile(HANDLE handle, LPCVOID buffer, DWORD size, DWORD* written, OVERLAPPED* overlapped)
{
    if (written)
        *written = 0;
    const std::shared_ptr<CFile> file = FileOf(handle);
    if (!file)
        return FALSE;
    if (!file->MayWrite())
        return Report(ERROR_ACCESS_DENIED);
    const auto* bytes = static_cast<const char*>(buffer);
    for (DWORD done = 0; done < size;)
    {
        const ssize_t count = WriteSome(file->Descriptor(), bytes + done, size - done, overlapped, done);
        if (count < 0 && errno != EINTR)
            return Report(ErrorFromSystem(errno));
        done += count > 0 ? static_cast<DWORD>(count) : 0;
        if (written)
            *written = done;
    }
    return TRUE;
}

BOOL SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, LARGE_INTEGER* position, DWORD method)
{
    const std::shared_ptr<CFile> file = FileOf(handle);
    if (!file)
        return FALSE;
    if (method > FILE_END)
        return Report(ERROR_INVALID_PARAMETER);
    const int whence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    const off_t reached = lseek(file->Descriptor(), distance.QuadPart, whence[method]);
    if (reached < 0)
        return Report(errno == EINVAL ? ERROR_NEGATIVE_SEEK : ErrorFromSystem(errno));
    if (position)
        position->QuadPart = reached;
    return TRUE;
}

BOOL GetFileSizeEx(HANDLE handle, LARGE_INTEGER* size)
{
    const std::shared_ptr<CFile> file = FileOf(handle);
    struct stat state;
    if (!file)
        return FALSE;
    if (fstat(file->Descriptor(), &state) != 0)
        return Report(ErrorFromSystem(errno));
    size->QuadPart = state.st_size;
    return TRUE;
}

BOOL SetEndOfFile(HANDLE handle)
{
    const std::shared_ptr<CFile> file = FileOf(handle);
    if (!file)
        return FALSE;
    if (!file->MayWrite())
        return Report(ERROR_ACCESS_DENIED);
    const off_t position = lseek(file->Descriptor(), 0, SEEK_CUR);
    return Report(position < 0 || ftruncate(file->Descriptor(), position) != 0 ? ErrorFromSystem(errno)
                                                                               : ERROR_SUCCESS);
}

BOOL LockFileEx(HANDLE handle, DWORD flags, DWORD reserved, DWORD sizeLow, DWORD sizeHigh,
                OVERLAPPED* overlapped)
{
    if (reserved || !overlapped)
        return Report(ERROR_INVALID_PARAMETER);
    const std::shared_ptr<CFile> file = FileOf(handle);
    if (!file)
        return FALSE;
    return WithMemory(FALSE, [&] {
        return Report(file->Lock(Offset(*overlapped), Size(sizeLow, sizeHigh),
                                 (flags & LOCKFILE_EXCLUSIVE_LOCK) != 0,
                                 (flags & LOCKFILE_FAIL_IMMEDIATELY) == 0));
    });
}

BOOL UnlockFileEx(HANDLE handle, DWORD reserved, DWORD sizeLow, DWORD sizeHigh, OVERLAPPED* overlapped)
{
    if (reserved || !overlapped)
        return Report(ERROR_INVALID_PARAMETER);
    const std::shared_ptr<CFile> file = FileOf(handle);
    return file && Report(file->Unlock(Offset(*overlapped), Size(sizeLow, sizeHigh)));
}

BOOL CloseHandle(HANDLE handle)
{
    return Report(ForgetHandle(handle) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE);
}
