#include "ChildProcess.h"

namespace
{
constexpr DWORD kEndedByKit = 0xC000013A; // as if by Ctrl+C
constexpr DWORD kPatienceWithEnd = 10'000;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE MakeJob()
{
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}
} // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program, const std::wstring& arguments,
                           const std::filesystem::path& log)
    : m_job(MakeJob())
{
    const HANDLE output = OpenLog(log);
    Start(program, L"\"" + program.wstring() + L"\" " + arguments, output);
    CloseHandle(output);
}

ChildProcess::~ChildProcess()
{
    End();
    CloseHandle(m_process);
    CloseHandle(m_job);
    CloseHandle(m_log);
}

// The handle that the program inherits. Programs are started one after the other, and it is closed before the
// next one starts, which thus does not inherit it as well.
HANDLE ChildProcess::OpenLog(const std::filesystem::path& log)
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    const HANDLE output = CreateFileW(log.c_str(), FILE_APPEND_DATA | SYNCHRONIZE, kShareAll, &inherited,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    m_log = CreateFileW(log.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                        FILE_ATTRIBUTE_NORMAL, nullptr);
    return output;
}

// It becomes part of the job before it runs, so that nothing that it starts is outside.
void ChildProcess::Start(const std::filesystem::path& program, std::wstring line, HANDLE log)
{
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = log;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                        program.parent_path().c_str(), &startup, &process))
    {
        m_startError = GetLastError();
        return;
    }
    AssignProcessToJobObject(m_job, process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    m_process = process.hProcess;
    m_id = process.dwProcessId;
}

std::optional<DWORD> ChildProcess::ExitCode() const
{
    DWORD code = 0;
    if (WaitForSingleObject(m_process, 0) != WAIT_OBJECT_0 || !GetExitCodeProcess(m_process, &code))
        return std::nullopt;
    return code;
}

ULONGLONG ChildProcess::SilentFor()
{
    LARGE_INTEGER size = {};
    GetFileSizeEx(m_log, &size);
    if (size.QuadPart != m_logSize)
    {
        m_logSize = size.QuadPart;
        m_lastGrowth = GetTickCount64();
    }
    return GetTickCount64() - m_lastGrowth;
}

void ChildProcess::End()
{
    TerminateJobObject(m_job, kEndedByKit);
    WaitForSingleObject(m_process, kPatienceWithEnd);
}
