// The only exception that may leave a component's method.
#pragma once

#include <windows.h>

#include <exception>

/// Carries a failed status through code that composes texts. The only status thrown is E_OUTOFMEMORY
/// (0x8007000E), by a string operation.
class ComException : public std::exception
{
public:
    explicit ComException(HRESULT status) noexcept : m_status(status) {}
    HRESULT Status() const noexcept { return m_status; }
    const char* what() const noexcept override { return "COM failure"; }

private:
    HRESULT m_status;
};

[[noreturn]] inline void ThrowOutOfMemory()
{
    throw ComException(E_OUTOFMEMORY);
}
