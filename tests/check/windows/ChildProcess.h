// A program that the kit runs, with all that it starts itself.
#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>

/// Both streams of output are appended to a log file. The destructor ends the program and all programs that
/// it started.
class ChildProcess
{
public:
    /// Runs in the folder of the program.
    ChildProcess(const std::filesystem::path& program, const std::wstring& arguments,
                 const std::filesystem::path& log);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The system's error if the program could not be started, else 0.
    DWORD StartError() const { return m_startError; }

    /// To wait for; null if it was not started.
    HANDLE Handle() const { return m_process; }
    DWORD Id() const { return m_id; }

    /// Its exit code, if it has ended.
    std::optional<DWORD> ExitCode() const;

    /// The milliseconds since the log last grew.
    ULONGLONG SilentFor();

    /// Ends it and whatever it started, and waits for its end.
    void End();

private:
    HANDLE OpenLog(const std::filesystem::path& log);
    void Start(const std::filesystem::path& program, std::wstring line, HANDLE log);

    HANDLE m_job = nullptr;
    HANDLE m_process = nullptr;
    HANDLE m_log = INVALID_HANDLE_VALUE; ///< to read its size
    DWORD m_id = 0;
    DWORD m_startError = 0;
    LONGLONG m_logSize = 0;
    ULONGLONG m_lastGrowth = GetTickCount64();
};
