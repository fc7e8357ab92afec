// The choosers beside their floors: the same host calls and the same list with bare loops; and the list
// alone.
#include "BareChoosers.h"
#include "ClosedDialogs.h"
#include "ModuleUnderTest.h"
#include "Require.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

namespace
{
ScriptBenchHost& ScriptHost(std::size_t scripts)
{
    static std::map<std::size_t, std::unique_ptr<ScriptBenchHost>> hosts;
    auto& host = hosts[scripts];
    if (!host)
        host = std::make_unique<ScriptBenchHost>(scripts);
    return *host;
}

XQPComVariant ObjectValue(IUnknown* object)
{
    VARIANT value{};
    value.vt = VT_UNKNOWN;
    value.punkVal = object;
    return XQPComVariant(value);
}

void PickerService(benchmark::State& state)
{
    const auto scripts = static_cast<std::size_t>(state.range(0));
    ScriptBenchHost& host = ScriptHost(scripts);
    const ModuleUnderTest module;
    const ClosedDialogs closed;
    ComPtr<IQPSelectOrvoItem> item;
    Require(module.Create(CLSID_QPSelectOrvoItem, item) == S_OK, "no picker");
    XQPComVariant query = ObjectValue(host.Query());
    item->Initialize(&query.Value());
    const XQPComBSTR kind(L"script");
    for (auto _ : state)
    {
        ComPtr<IQP_BaseDataObject> selected;
        Require(item->ShowDialog(host.Project(), kind, selected.put()) == S_FALSE,
                "the picker was not closed");
    }
    Require(closed.Rows() == scripts, "rows are missing");
}

void PickerBare(benchmark::State& state)
{
    const auto scripts = static_cast<std::size_t>(state.range(0));
    ScriptBenchHost& host = ScriptHost(scripts);
    for (auto _ : state)
        Require(PickerFloor(host.Query(), host.Project()) == scripts, "rows are missing");
}

/// A list of as many text columns as the chooser shows, without anything to be read for it.
template <int Columns>
void ChooserList(benchmark::State& state)
{
    const auto rows = static_cast<std::size_t>(state.range(0));
    for (auto _ : state)
        Require(ListAlone(rows, Columns) == rows, "rows are missing");
}

/// Prompts and objects as a host passes them.
class SelectParameters
{
public:
    explicit SelectParameters(std::size_t entries)
    {
        for (std::size_t entry = 0; entry < entries; ++entry)
        {
            const std::wstring number = std::to_wstring(entry);
            Add(L"Prompt" + number, XQPComVariant((L"Entry " + number).c_str()));
            Add(L"Object" + number,
                ObjectValue(static_cast<IQP_BaseDataObject*>(m_host.Object("entry").get())));
        }
    }

    ULONG Count() const { return static_cast<ULONG>(m_records.size()); }
    tagINITVALUE* Records() { return m_records.data(); }

private:
    void Add(const std::wstring& name, XQPComVariant value)
    {
        m_names.emplace_back(name.c_str());
        m_values.push_back(std::move(value));
        m_records.push_back({m_names.back(), m_values.back().Value()});
    }

    MemoryHost m_host;
    std::vector<XQPComBSTR> m_names;
    std::vector<XQPComVariant> m_values;
    std::vector<tagINITVALUE> m_records;
};

SelectParameters& Parameters(std::size_t entries)
{
    static std::map<std::size_t, std::unique_ptr<SelectParameters>> all;
    auto& parameters = all[entries];
    if (!parameters)
        parameters = std::make_unique<SelectParameters>(entries);
    return *parameters;
}

void SelectService(benchmark::State& state)
{
    const auto entries = static_cast<std::size_t>(state.range(0));
    SelectParameters& parameters = Parameters(entries);
    const ModuleUnderTest module;
    const ClosedDialogs closed;
    ComPtr<IQPSelectDlg> dialog;
    Require(module.Create(CLSID_QPSelectDlg, dialog) == S_OK, "no dialog");
    for (auto _ : state)
    {
        ComPtr<IUnknown> selected;
        Require(dialog->ShowDialog(parameters.Count(), parameters.Records(), selected.put()) == S_OK &&
                    !selected,
                "the dialog was not closed");
    }
    Require(closed.Rows() == entries, "rows are missing");
}

void SelectBare(benchmark::State& state)
{
    const auto entries = static_cast<std::size_t>(state.range(0));
    SelectParameters& parameters = Parameters(entries);
    for (auto _ : state)
        Require(SelectFloor(parameters.Count(), parameters.Records()) == entries, "rows are missing");
}

/// An item, whose project is found by six questions and one read.
class ItemHost
{
public:
    ItemHost()
    {
        m_host.recording = false;
        item = m_host.Object("item");
        item->Is(L"XDOSubCompItem");
        item->Set(L"orvoproject", m_host.Object("project"));
    }

private:
    MemoryHost m_host;

public:
    ComPtr<MemoryObject> item;
};

void ProjectService(benchmark::State& state)
{
    const ItemHost host;
    const ModuleUnderTest module;
    ComPtr<IQPSelectOrvoItem> lookup;
    Require(module.Create(CLSID_QPSelectOrvoItem, lookup) == S_OK, "no look-up");
    for (auto _ : state)
    {
        ComPtr<IQP_BaseDataObject> project;
        Require(lookup->GetProject(host.item.get(), project.put()) == S_OK && project, "no project");
    }
}

void ProjectBare(benchmark::State& state)
{
    const ItemHost host;
    for (auto _ : state)
    {
        const ComPtr<IQP_BaseDataObject> project = ProjectFloor(host.item.get());
        Require(static_cast<bool>(project), "no project");
    }
}

#define AT_TEN_THOUSAND Arg(10000)->Unit(benchmark::kMicrosecond)

BENCHMARK(PickerService)->Name("Script picker/service")->AT_TEN_THOUSAND;
BENCHMARK(PickerBare)->Name("Script picker/floor")->AT_TEN_THOUSAND;
BENCHMARK(ChooserList<5>)->Name("Script picker/list")->AT_TEN_THOUSAND;
BENCHMARK(SelectService)->Name("QPSelectDlg/service")->AT_TEN_THOUSAND;
BENCHMARK(SelectBare)->Name("QPSelectDlg/floor")->AT_TEN_THOUSAND;
BENCHMARK(ChooserList<1>)->Name("QPSelectDlg/list")->AT_TEN_THOUSAND;
BENCHMARK(ProjectService)->Name("GetProject/service");
BENCHMARK(ProjectBare)->Name("GetProject/floor");
} // namespace
