#include "TestFolder.h"

#include "Resources.h"
#include "Utf8.h"

#include <windows.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

TestFolder::TestFolder()
{
    static int number = 0;
    m_path = std::filesystem::temp_directory_path() /
             ("qptools-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++number));
    std::filesystem::remove_all(m_path);
    std::filesystem::create_directories(m_path);
}

TestFolder::~TestFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::vector<std::string> TestFolder::Names() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path))
    {
        const std::u8string name = entry.path().filename().u8string();
        names.emplace_back(name.begin(), name.end());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::filesystem::path BesideProgram(const std::string& name)
{
    const std::string program = Utf8FromWide(ModulePath(nullptr));
    return std::filesystem::path(std::u8string(program.begin(), program.end())).parent_path() / name;
}

std::string ReadBytes(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return bytes.str();
}

void WriteBytes(const std::filesystem::path& file, std::string_view bytes)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::vector<std::string> ReadLines(const std::filesystem::path& file)
{
    const std::string bytes = ReadBytes(file);
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = bytes.find('\n', start)) != std::string::npos; start = end + 1)
        lines.push_back(bytes.substr(start, end - start));
    if (start < bytes.size())
        lines.insert(lines.end(), {bytes.substr(start), "(no line feed)"});
    return lines;
}

namespace
{
std::optional<std::wstring> Variable(const std::wstring& name)
{
    wchar_t value[1024];
    SetLastError(0);
    const DWORD length = GetEnvironmentVariableW(name.c_str(), value, 1024);
    if (length == 0 && GetLastError() != 0)
        return std::nullopt;
    return std::wstring(value, length);
}
} // namespace

TestVariable::TestVariable(const wchar_t* name, const std::optional<std::wstring>& value)
    : m_name(name), m_before(Variable(name))
{
    SetEnvironmentVariableW(name, value ? value->c_str() : nullptr);
}

TestVariable::~TestVariable()
{
    SetEnvironmentVariableW(m_name.c_str(), m_before ? m_before->c_str() : nullptr);
}
