#include "DemoLog.h"

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
        named.empty() ? std::filesystem::path(EnvironmentValue(L"LOCALAPPDATA")) / "qptools" / "logs"
                      : std::filesystem::path(named);
    return folder / "UserActions.log";
}

std::uintmax_t SizeOf(const std::filesystem::path& file)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return error ? 0 : size;
}

static std::wstring FromUtf8(const std::string& bytes)
{
    const int length = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int made = MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), length);
    text.resize(made > 0 ? static_cast<size_t>(made) : 0);
    return text;
}

std::vector<std::wstring> LinesBehind(const std::filesystem::path& file, std::uintmax_t offset)
{
    std::ifstream input(file, std::ios::binary);
    input.seekg(static_cast<std::streamoff>(offset));
    std::vector<std::wstring> lines;
    for (std::string line; std::getline(input, line);)
        lines.push_back(FromUtf8(line));
    return lines;
}
