// Lines written to the user action log beside bare appends to the same file.
#include "LogFolder.h"
#include "ModuleUnderTest.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <benchmark/benchmark.h>

#include <cstdio>

namespace
{
constexpr char kLine[] = "Object ID: $4711 was opened by the planner in the body shop\n";
constexpr wchar_t kWideLine[] = L"Object ID: $4711 was opened by the planner in the body shop\n";

void WriteLine(benchmark::State& state)
{
    const LogFolder folder;
    const ModuleUnderTest module;
    ComPtr<IQPUserActionLog> log;
    module.Create(CLSID_QPUserActionLog, log);
    const XQPComBSTR line(kWideLine);
    for (auto _ : state)
        log->WriteLine(line);
    state.SetItemsProcessed(state.iterations());
    if (folder.Bytes().size() != static_cast<std::size_t>(state.iterations()) * (sizeof kLine - 1))
        state.SkipWithError("lines are missing");
}

/// The file is opened for each line, as it must be where others may rename or delete it at any time.
void AppendOpening(benchmark::State& state)
{
    const LogFolder folder;
    const std::string path = (folder.Path() / "UserActions.log").string();
    for (auto _ : state)
    {
        std::FILE* file = std::fopen(path.c_str(), "ab");
        std::fwrite(kLine, 1, sizeof kLine - 1, file);
        std::fclose(file);
    }
    state.SetItemsProcessed(state.iterations());
}

/// The file stays open, and each line is one write.
void AppendKeptOpen(benchmark::State& state)
{
    const LogFolder folder;
    const std::string path = (folder.Path() / "UserActions.log").string();
    std::FILE* file = std::fopen(path.c_str(), "ab");
    for (auto _ : state)
    {
        std::fwrite(kLine, 1, sizeof kLine - 1, file);
        std::fflush(file);
    }
    std::fclose(file);
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(WriteLine)->Name("WriteLine/service")->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(AppendOpening)
    ->Name("WriteLine/append, opening the file")
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK(AppendKeptOpen)
    ->Name("WriteLine/append, file kept open")
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
} // namespace
