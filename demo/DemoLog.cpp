#include "DemoLog.h"

#include "Paths.h"

#include "Utf8.h"

#include <windows.h>

#include <fstream>
#include <iterator>

static std::wstring EnvironmentValue(const wchar_t* name)
{
    wchar_t value[4096] = L"";
    const DWORD length = GetEnvironmentVariableW(name, value, 4096);
    return length < 4096 ? std::wstring(value, length) : std::wstring();
}

std::filesystem::path UserActionLogFile()
{
    const std::wstring named = EnvironmentValue(L"QPTOOLS_LOG_DIR");
    const std::filesystem::path folder =
        named.empty() ? ToPath(EnvironmentValue(L"LOCALAPPDATA")) / "qptools" / "logs" : ToPath(named);
    return folder / "UserActions.log";
}

std::uintmax_t SizeOf(const std::filesystem::path& file)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return error ? 0 : size;
}

std::vector<std::wstring> LinesBehind(const std::filesystem::path& file, std::uintmax_t offset)
{
    std::ifstream input(file, std::ios::binary);
    input.seekg(static_cast<std::streamoff>(offset));
    std::vector<std::wstring> lines;
    for (std::string line; std::getline(input, line);)
        WideFromUtf8(line, lines.emplace_back());
    return lines;
}
