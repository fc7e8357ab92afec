// Appends numbered lines to a log and to the log book: log_writer DIRECTORY TAG COUNT. Creates the file
// ready-TAG and begins when there is a file `go`, so that several of them write at the same time.
#include "XQPError.h"

#include <windows.h>

#include <shellapi.h>

#include <filesystem>
#include <fstream>
#include <string>

int main()
{
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 4)
        return 2;
    const std::filesystem::path directory = arguments[1];
    const std::wstring wideTag = arguments[2];
    const int lines = std::stoi(arguments[3]);
    LocalFree(arguments);
    const std::string tag(wideTag.begin(), wideTag.end());
    SetEnvironmentVariableW(L"QPTOOLS_LOG_DIR", directory.wstring().c_str());
    std::ofstream(directory / ("ready-" + tag)).put('\n');
    for (int waited = 0; !std::filesystem::exists(directory / "go"); ++waited)
    {
        if (waited > 20000)
            return 3;
        Sleep(1);
    }
    for (int number = 0; number < lines; ++number)
    {
        // Lines of many lengths: a torn or overwritten one cannot look like another.
        const std::wstring line = wideTag + L" " + std::to_wstring(number) + L" " +
                                  std::wstring(static_cast<std::size_t>(number % 97), wideTag.front()) + L".";
        XQPError::WriteLogLine(L"Shared", (line + L"\n").c_str());
        XQPError::WriteLogLineToLogBook(wideTag.c_str(), L"main", static_cast<ULONG>(number), line.c_str());
    }
    return 0;
}
