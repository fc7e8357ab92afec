// The owner of a file handle.
#pragma once

#include <windows.h>

#include <utility>

/// Closes the handle in its destructor. INVALID_HANDLE_VALUE stands for no file.
class CFileHandle
{
public:
    explicit CFileHandle(HANDLE file) noexcept : m_file(file) {}
    CFileHandle(CFileHandle&& other) noexcept : m_file(std::exchange(other.m_file, INVALID_HANDLE_VALUE)) {}
    CFileHandle& operator=(CFileHandle other) noexcept
    {
        std::swap(m_file, other.m_file);
        return *this;
    }
    ~CFileHandle()
    {
        if (*this)
            CloseHandle(m_file);
    }

    explicit operator bool() const noexcept { return m_file != INVALID_HANDLE_VALUE; }
    HANDLE Get() const noexcept { return m_file; }

private:
    HANDLE m_file;
};
