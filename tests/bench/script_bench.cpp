// The script service beside its floors. Names are subject/contender/rows, which the table of results is made
// from.
#include "ArrayText.h"
#include "BenchData.h"
#include "Floors.h"
#include "ModuleUnderTest.h"
#include "XQPComBSTR.h"

#include "qptools.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <vector>

namespace
{
/// Fails the run rather than measure something else than was meant.
void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "qp_bench: %s\n", what);
    std::abort();
}

BenchHost& CommandsHost(std::size_t rows, Prompts prompts)
{
    static std::map<std::pair<std::size_t, Prompts>, std::unique_ptr<BenchHost>> hosts;
    auto& host = hosts[{rows, prompts}];
    if (!host)
        host = std::make_unique<BenchHost>(rows, prompts);
    return *host;
}

BenchHost& ActionsHost(std::size_t rows)
{
    static std::map<std::size_t, std::unique_ptr<BenchHost>> hosts;
    auto& host = hosts[rows];
    if (!host)
        host = std::make_unique<BenchHost>(rows);
    return *host;
}

std::size_t RowsIn(const VARIANT& result)
{
    LONG last = -1;
    SafeArrayGetUBound(result.parray, 1, &last);
    return static_cast<std::size_t>(last) + 1;
}

/// One call on a new manager each time. Freeing the manager with the pairs that it keeps is measured, as the
/// floor's are; creating it is not.
template <class Call>
void MeasureService(benchmark::State& state, std::size_t rows, Call&& call)
{
    const ModuleUnderTest module;
    std::vector<ComPtr<IScriptActionAndCommandManager>> managers(std::max<std::size_t>(1, 10000 / rows));
    while (state.KeepRunningBatch(static_cast<benchmark::IterationCount>(managers.size())))
    {
        state.PauseTiming();
        for (auto& manager : managers)
            module.Create(CLSID_XScriptActionAndCommandManager, manager);
        state.ResumeTiming();
        for (auto& manager : managers)
        {
            XQPComVariant result;
            Require(call(manager.get(), &result) == S_OK, "the service did not answer");
            Require(RowsIn(result.Value()) == rows, "rows are missing");
            manager.reset();
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows));
}

template <class Call>
void MeasureFloor(benchmark::State& state, std::size_t rows, Call&& call)
{
    for (auto _ : state)
    {
        XQPComVariant result;
        call(&result);
        Require(RowsIn(result.Value()) == rows, "rows are missing");
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(rows));
}

void CommandsService(benchmark::State& state, Prompts prompts)
{
    const auto rows = static_cast<std::size_t>(state.range(0));
    BenchHost& host = CommandsHost(rows, prompts);
    const XQPComBSTR type(L"machine");
    MeasureService(state, rows, [&](IScriptActionAndCommandManager* manager, VARIANT* result) {
        return manager->GetScriptCommands(host.Query(), host.Set(), type, nullptr, 1, nullptr, result);
    });
}

void CommandsBare(benchmark::State& state)
{
    const auto rows = static_cast<std::size_t>(state.range(0));
    BenchHost& host = CommandsHost(rows, Prompts::AllDifferent);
    const XQPComBSTR type(L"machine");
    MeasureFloor(state, rows,
                 [&](VARIANT* result) { CommandsFloor(host.Query(), host.Set(), type, result); });
}

void ActionsService(benchmark::State& state)
{
    const auto rows = static_cast<std::size_t>(state.range(0));
    BenchHost& host = ActionsHost(rows);
    const XQPComBSTR type(L"machine");
    MeasureService(state, rows, [&](IScriptActionAndCommandManager* manager, VARIANT* result) {
        return manager->GetScriptsForAction(host.Query(), host.Set(), type, nullptr, 7, 1, result);
    });
}

void ActionsBare(benchmark::State& state)
{
    const auto rows = static_cast<std::size_t>(state.range(0));
    BenchHost& host = ActionsHost(rows);
    const XQPComBSTR type(L"machine");
    MeasureFloor(state, rows, [&](VARIANT* result) { ScriptsFloor(host.Query(), host.Set(), type, result); });
}

#define AT_ALL_SIZES Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)

BENCHMARK(ActionsService)->Name("GetScriptsForAction/service")->AT_ALL_SIZES;
BENCHMARK(ActionsBare)->Name("GetScriptsForAction/floor")->AT_ALL_SIZES;
BENCHMARK_CAPTURE(CommandsService, different, Prompts::AllDifferent)
    ->Name("GetScriptCommands/service")
    ->AT_ALL_SIZES;
BENCHMARK(CommandsBare)->Name("GetScriptCommands/floor")->AT_ALL_SIZES;
BENCHMARK_CAPTURE(CommandsService, same, Prompts::AllTheSame)
    ->Name("GetScriptCommands/one prompt")
    ->AT_ALL_SIZES;
} // namespace
