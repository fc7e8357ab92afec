// A folder of a test's own for the logs.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// Made empty, named by QPTOOLS_LOG_DIR for as long as it lives, and deleted.
class LogFolder
{
public:
    LogFolder()
        : m_path(std::filesystem::temp_directory_path() /
                 ("qptools-server-" + std::to_string(GetCurrentProcessId())))
    {
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

    /// The whole log book, empty if there is none.
    std::string Book() const
    {
        std::ifstream file(m_path / "logbook.log", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path m_path;
};
