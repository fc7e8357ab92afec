#include "OtherProcess.h"

#include "TestFolder.h"

#include <windows.h>

#ifndef _WIN32
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;
#endif

#ifdef _WIN32

OtherProcess::OtherProcess(const std::string& program, const std::vector<std::filesystem::path>& arguments)
{
    std::wstring line = L"\"" + BesideProgram(program + ".exe").wstring() + L"\"";
    for (const std::filesystem::path& argument : arguments)
        line += L" \"" + argument.wstring() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                       &process))
    {
        CloseHandle(process.hThread);
        m_process = reinterpret_cast<std::intptr_t>(process.hProcess);
    }
}

int OtherProcess::Wait()
{
    if (!m_process)
        return -1;
    const HANDLE process = reinterpret_cast<HANDLE>(m_process);
    DWORD code = 0;
    WaitForSingleObject(process, INFINITE);
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    return static_cast<int>(code);
}

#else

OtherProcess::OtherProcess(const std::string& program, const std::vector<std::filesystem::path>& arguments)
{
    std::vector<std::string> texts{BesideProgram(program).string()};
    for (const std::filesystem::path& argument : arguments)
        texts.push_back(argument.string());
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, texts.front().c_str(), nullptr, nullptr, pointers.data(), environ) == 0)
        m_process = process;
}

int OtherProcess::Wait()
{
    int status = 0;
    if (!m_process || waitpid(static_cast<pid_t>(m_process), &status, 0) < 0 || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

#endif
