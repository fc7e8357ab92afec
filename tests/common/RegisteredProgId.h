// A ProgID of a class that is known for as long as a test wants it.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <string>

/// While one of these lives, CLSIDFromProgID finds its class by the registry: natively that in memory, on
/// Windows the one that all programs share. There one program at a time can have one of these: the
/// constructor waits for the other. The destructor removes the ProgID.
class RegisteredProgId
{
public:
    /// Ends the program, with a reason, if it cannot be registered.
    RegisteredProgId(const wchar_t* progId, REFCLSID clsid);

    /// Makes sure that the ProgID is not registered, here or by another program.
    explicit RegisteredProgId(const wchar_t* progId);

    ~RegisteredProgId();
    RegisteredProgId(const RegisteredProgId&) = delete;
    RegisteredProgId& operator=(const RegisteredProgId&) = delete;

private:
    void Remove() const;

    const std::wstring m_path;
    HANDLE m_turn = nullptr; ///< natively null
};
