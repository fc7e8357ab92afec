#include "ProgramRuns.h"

#include "UserDateFormat.h"

#include <fstream>

namespace fs = std::filesystem;

namespace
{
constexpr DWORD kBetweenLooks = 200;

/// Separates the runs in a log; tools/run-batches knows it.
constexpr const char* kAgain = "qptools_check: the program is run again without the test that ended it";
} // namespace

ProgramRuns::ProgramRuns(const Kit& kit, unsigned atOnce, ULONGLONG patience, Done done)
    : m_kit(kit), m_atOnce(atOnce), m_patience(patience), m_done(std::move(done))
{
    for (const KitProgram& program : kit.Programs())
        m_results.emplace_back(program.name);
}

std::vector<ProgramResult> ProgramRuns::Run()
{
    const UserDateFormat kept;
    RunSome(false, m_atOnce);
    RunSome(true, 1);
    return m_results;
}

void ProgramRuns::RunSome(bool alone, unsigned atOnce)
{
    for (std::size_t index = 0; index < m_results.size(); ++index)
    {
        if (m_kit.Programs()[index].alone != alone)
            continue;
        while (m_running.size() >= atOnce)
            FinishEnded();
        Start(index);
    }
    while (!m_running.empty())
        FinishEnded();
}

fs::path ProgramRuns::LogOf(std::size_t index) const
{
    return m_kit.Results() / (m_results[index].Name() + ".log");
}

void ProgramRuns::Start(std::size_t index)
{
    const std::string filter = m_results[index].Filter();
    std::error_code none;
    const std::uintmax_t size = fs::file_size(LogOf(index), none);
    m_running.push_back(
        {index,
         std::make_unique<ChildProcess>(m_kit.Bin() / (m_results[index].Name() + ".exe"),
                                        std::wstring(filter.begin(), filter.end()), LogOf(index)),
         none ? 0 : size});
}

void ProgramRuns::WaitForAny() const
{
    std::vector<HANDLE> handles;
    for (const Running& running : m_running)
        if (running.process->Handle())
            handles.push_back(running.process->Handle());
    if (!handles.empty())
        WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE, kBetweenLooks);
}

void ProgramRuns::FinishEnded()
{
    WaitForAny();
    for (std::size_t index = 0; index < m_running.size();)
    {
        ProgramEnd end;
        if (!HasEnded(m_running[index], end))
        {
            ++index;
            continue;
        }
        Running running = std::move(m_running[index]);
        m_running.erase(m_running.begin() + static_cast<std::ptrdiff_t>(index));
        Finish(running, end);
    }
}

bool ProgramRuns::HasEnded(Running& running, ProgramEnd& end) const
{
    if (running.process->StartError() != 0)
        end = {ProgramEnd::Way::NotStarted, running.process->StartError()};
    else if (const std::optional<DWORD> code = running.process->ExitCode())
        end = {ProgramEnd::Way::Exited, *code};
    else if (running.process->SilentFor() >= m_patience)
        end = {ProgramEnd::Way::Silent, 0};
    else
        return false;
    return true;
}

void ProgramRuns::Finish(Running& running, const ProgramEnd& end)
{
    running.process.reset();
    ProgramResult& result = m_results[running.index];
    result.Add(ReadTestLog(ReadKitFile(LogOf(running.index), running.logBegin)), end);
    if (result.NeedsAnotherRun())
    {
        std::ofstream(LogOf(running.index), std::ios::binary | std::ios::app) << "\n" << kAgain << "\n";
        Start(running.index);
    }
    else
        m_done(result);
}
