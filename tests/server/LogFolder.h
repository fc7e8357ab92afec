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

    /// A whole log, empty if there is none.
    std::string Text(const char* file) const
    {
        std::ifstream stream(m_path / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    std::string Book() const { return Text("logbook.log"); }

private:
    std::filesystem::path m_path;
};
