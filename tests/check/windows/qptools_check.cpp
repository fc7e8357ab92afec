// Runs the tests of the kit and writes check-report.txt. check.cmd starts it.
#include "DialogPictures.h"
#include "Machine.h"
#include "Options.h"
#include "ProgramRuns.h"

#include "Utf8.h"

#include <algorithm>
#include <cstdio>
#include <exception>

namespace
{
/// Programs at the same time. Each creates a desktop, and the memory for desktops of a session is limited.
constexpr unsigned kMostAtOnce = 8;

/// The console shows UTF-8 for as long as this lives.
class Utf8Console
{
public:
    Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() { SetConsoleOutputCP(m_before); }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

private:
    UINT m_before = GetConsoleOutputCP();
};

void Say(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

// Programs inherit these. What they log and store for a time stays in the kit; texts are English, unless a
// test chooses another language; a program that crashes ends at once, without a window that asks.
void PrepareEnvironment(const Kit& kit)
{
    const std::filesystem::path logs = kit.Results() / "logs";
    const std::filesystem::path scratch = kit.Results() / "temp";
    std::filesystem::create_directories(scratch);
    SetEnvironmentVariableW(L"QPTOOLS_LOG_DIR", logs.c_str());
    SetEnvironmentVariableW(L"TMP", scratch.c_str());
    SetEnvironmentVariableW(L"TEMP", scratch.c_str());
    SetEnvironmentVariableW(L"QPTOOLS_LANG", L"en");
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
}

unsigned AtOnce(const Options& options)
{
    SYSTEM_INFO system = {};
    GetSystemInfo(&system);
    return options.atOnce != 0 ? options.atOnce
                               : std::clamp<unsigned>(system.dwNumberOfProcessors, 1, kMostAtOnce);
}

std::vector<ProgramResult> RunPrograms(const Kit& kit, const Options& options, const MachineFacts& machine)
{
    const std::vector<KnownDifference> known = kit.Known().On(machine.conditions);
    std::size_t done = 0;
    ProgramRuns runs(kit, AtOnce(options), options.patience * 1000ULL, [&](const ProgramResult& program) {
        Say(ProgressLine(++done, kit.Programs().size(), program, known));
    });
    return runs.Run();
}

// The tests keep a key for their registries.
void CleanRegistry()
{
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\qptools tests");
}

int Run(const Options& options)
{
    const Kit kit;
    kit.ClearResults();
    PrepareEnvironment(kit);
    CheckResult result;
    result.version = kit.Version();
    result.machine = ReadMachine();
    result.leftOut = kit.LeftOut();
    Say("qptools " + kit.Version() + ": the tests on this machine. This takes some minutes.");
    if (options.programs)
        result.programs = RunPrograms(kit, options, result.machine);
    result.pictures.wanted = options.pictures;
    if (options.pictures)
        result.pictures = DialogPictures(kit, options.patience * 1000ULL, Say).Take();
    CleanRegistry();
    const Report report(std::move(result), kit.Known());
    const std::filesystem::path file = kit.Folder() / "check-report.txt";
    WriteForWindows(file, report.Text());
    Say(report.News() == 0 ? "No news: everything is as expected." : "There is news.");
    Say("The report: " + Utf8FromWide(file.wstring()));
    return report.News() == 0 ? 0 : 1;
}
} // namespace

int main(int count, char** words)
{
    const Utf8Console console;
    const Options options = ReadOptions(count, words);
    if (!options.error.empty())
    {
        std::fprintf(stderr, "check: %s\n%s", options.error.c_str(), kUsage);
        return 2;
    }
    try
    {
        return Run(options);
    }
    catch (const std::exception& failure)
    {
        std::fprintf(stderr, "check: %s\n", failure.what());
        return 2;
    }
}
