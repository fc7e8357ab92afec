// Programs that a test program starts and waits for; on Windows alone.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

/// Starts the program of a command line and waits for its end. It inherits the handles of this process.
/// Returns its exit code; nothing if it could not be started, of which GetLastError tells.
inline std::optional<DWORD> RunProgram(std::wstring commandLine, STARTUPINFOW startup = {})
{
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        return std::nullopt;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}
