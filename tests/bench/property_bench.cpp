// The property dialogs beside their floors: opened and cancelled, and with the first drop-down of a list.
#include "BareProperties.h"
#include "ModuleUnderTest.h"
#include "PostingUser.h"
#include "Require.h"
#include "XQPComBSTR.h"

#include "Resources.h"

#include "qptools.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace
{
constexpr UINT kActionDialog = 213;
constexpr UINT kCommandDialog = 214;

/// A user who opens a list, if `combo` is not 0, and presses Cancel. The items of `counted` are counted.
class DroppingUser : public PostingUser
{
public:
    DroppingUser(int combo, int counted)
        : PostingUser(
              [combo](HWND dialog) {
                  if (combo)
                      PostMessageW(GetDlgItem(dialog, combo), CB_SHOWDROPDOWN, TRUE, 0);
                  PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
              },
              counted, CB_GETCOUNT)
    {
    }
};

PropertyBenchHost& Host(std::size_t entries)
{
    static std::map<std::size_t, std::unique_ptr<PropertyBenchHost>> hosts;
    auto& host = hosts[entries];
    if (!host)
        host = std::make_unique<PropertyBenchHost>(entries);
    return *host;
}

/// The combo box of a list.
int ComboOf(DroppedList list)
{
    switch (list)
    {
    case DroppedList::Scripts:
        return 256;
    case DroppedList::PlanTypes:
        return 266;
    case DroppedList::ConfigTypes:
        return 268;
    case DroppedList::Macros:
        return 308;
    default:
        return 0;
    }
}

/// The entries of a list. The types are the scripts' and commands' own as well.
std::size_t Entries(DroppedList list, std::size_t entries)
{
    if (list == DroppedList::None)
        return PropertyBenchHost::kActionTypes;
    return list == DroppedList::ConfigTypes ? entries + 2 : entries;
}

/// The properties of a script action leave the thread initialised once more each time, on purpose.
void LeaveApartment(benchmark::IterationCount times)
{
    for (; times > 0; --times)
        CoUninitialize();
}

template <DroppedList List>
void Service(benchmark::State& state)
{
    const auto entries = static_cast<std::size_t>(state.range(0));
    PropertyBenchHost& host = Host(entries);
    const ModuleUnderTest module;
    const MemorySettings::Offered settings(host.host.Settings());
    constexpr int kActionTypes = 254;
    const DroppingUser user(ComboOf(List), List == DroppedList::None ? kActionTypes : ComboOf(List));
    ComPtr<IScriptActionAndCommandManager> service;
    Require(module.Create(CLSID_XScriptActionAndCommandManager, service) == S_OK, "no service");
    const bool isCommand = List == DroppedList::Macros;
    const XQPComBSTR type(isCommand ? L"XDOScriptCommand" : L"XDOScriptAction");
    for (auto _ : state)
        Require(service->ShowScriptActionOrCommandDlg(
                    host.Manager(), host.Factory(), host.Query(), host.Project(), host.PlanTypes(),
                    isCommand ? host.Command() : host.Action(), type) == S_FALSE,
                "the dialog was not cancelled");
    if (isCommand)
        host.ReleaseKept(static_cast<std::size_t>(state.iterations()));
    else
        LeaveApartment(state.iterations());
    Require(DroppingUser::Items() == Entries(List, entries), "entries are missing");
}

template <DroppedList List>
void Bare(benchmark::State& state)
{
    const auto entries = static_cast<std::size_t>(state.range(0));
    PropertyBenchHost& host = Host(entries);
    const ModuleUnderTest module;
    const MemorySettings::Offered settings(host.host.Settings());
    const DroppingUser sameHook(0, 0);
    const bool isCommand = List == DroppedList::Macros;
    const std::string_view dialog =
        ResourceBytes(module.Handle(), isCommand ? kCommandDialog : kActionDialog, MAKEINTRESOURCEW(5));
    for (auto _ : state)
        Require((isCommand ? MacrosFloor(host, dialog) : ActionFloor(host, dialog, List)) ==
                    Entries(List, entries),
                "entries are missing");
    if (!isCommand)
        LeaveApartment(state.iterations());
}

#define BESIDE_ITS_FLOOR(list, name, entries)                                                                \
    BENCHMARK(Service<DroppedList::list>)                                                                    \
        ->Name(name "/service")                                                                              \
        ->Arg(entries)                                                                                       \
        ->Unit(benchmark::kMicrosecond);                                                                     \
    BENCHMARK(Bare<DroppedList::list>)->Name(name "/floor")->Arg(entries)->Unit(benchmark::kMicrosecond)

BESIDE_ITS_FLOOR(None, "Script action opened", 30);
BESIDE_ITS_FLOOR(Scripts, "List of scripts", 10000);
BESIDE_ITS_FLOOR(PlanTypes, "List of plan types", 10000);
BESIDE_ITS_FLOOR(ConfigTypes, "List of configured types", 10000);
BESIDE_ITS_FLOOR(Macros, "List of macros", 1000);
} // namespace
