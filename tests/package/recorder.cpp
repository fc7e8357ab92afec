// Stands in for a program of the system that a script starts: appends its command line and the path that the
// script hands over to the file %RECORD%, and ends with the exit code %RECORD_CODE%.
#include "Utf8.h"

#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <string>

namespace
{
std::wstring Variable(const wchar_t* name)
{
    wchar_t text[1024];
    const DWORD length = GetEnvironmentVariableW(name, text, 1024);
    return {text, length < 1024 ? length : 0};
}
} // namespace

int main()
{
    std::FILE* file = _wfopen(Variable(L"RECORD").c_str(), L"ab");
    if (!file)
        return 101;
    const std::string record =
        Utf8FromWide(std::wstring(GetCommandLineW()) + L"\nmodule " + Variable(L"QP_MODULE") + L"\n");
    std::fwrite(record.data(), 1, record.size(), file);
    std::fclose(file);
    return std::wcstol(Variable(L"RECORD_CODE").c_str(), nullptr, 10);
}
