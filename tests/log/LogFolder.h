// A log directory of a test's own.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// The module writes its logs here for as long as this lives; the folder goes with it.
class LogFolder
{
public:
    LogFolder()
    {
        static int count = 0;
        const std::string name =
            "qptools_log_" + std::to_string(GetCurrentProcessId()) + "_" + std::to_string(++count);
        m_path = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
        SetEnvironmentVariableW(L"QPTOOLS_LOG_DIR", m_path.wstring().c_str());
    }
    ~LogFolder()
    {
        SetEnvironmentVariableW(L"QPTOOLS_LOG_DIR", nullptr);
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

    /// The bytes of a log; empty if there is none.
    std::string Bytes(const char* file = "UserActions.log") const
    {
        std::ifstream stream(m_path / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path m_path;
};
