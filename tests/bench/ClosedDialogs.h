// Closes every dialog of the thread as soon as it is up.
#pragma once

#include <windows.h>

#include <cstddef>

/// While one of these lives, Cancel is pressed in each dialog that comes up. One at a time.
class ClosedDialogs
{
public:
    ClosedDialogs();
    ~ClosedDialogs();
    ClosedDialogs(const ClosedDialogs&) = delete;
    ClosedDialogs& operator=(const ClosedDialogs&) = delete;

    /// The rows of the list in the dialog that was closed last.
    std::size_t Rows() const;

private:
    HHOOK m_hook;
};
