// The enhanced copy beside its floors: the deep walk, the values applied to very many copies, and the dialog
// opened with a plan type chosen.
#include "BareCopies.h"
#include "ModuleUnderTest.h"
#include "PostingUser.h"
#include "Require.h"

#include "CopyCandidates.h"
#include "Resources.h"

#include "qptools.h"

#include <benchmark/benchmark.h>

#include <commctrl.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace
{
constexpr UINT kCopyDialog = 379;
constexpr int kDeepButton = 368;
constexpr int kAdvanced = 371;
constexpr int kGrid = 373;
constexpr int kPlanTypes = 374;

/// Values that are applied.
constexpr std::size_t kValues = 20;
/// Rows of the grid.
constexpr std::size_t kAttributes = 30;

/// A host for all benchmarks that ask for such objects.
TreeHost& Host(const TreeHost::Shape& shape)
{
    using Key = std::array<std::size_t, 4>;
    static std::map<Key, std::unique_ptr<TreeHost>> hosts;
    auto& host = hosts[{shape.objects, shape.depth, shape.types, shape.attributes}];
    if (!host)
        host = std::make_unique<TreeHost>(shape);
    return *host;
}

/// A selection of ten objects of as many plan types.
TreeHost& Selection(std::size_t attributes)
{
    return Host({.objects = 10, .types = 10, .attributes = attributes});
}

// The walk.

template <std::size_t Depth>
void Walk(benchmark::State& state)
{
    const auto objects = static_cast<std::size_t>(state.range(0));
    TreeHost& host = Host({.objects = objects, .depth = Depth, .types = 10});
    for (auto _ : state)
    {
        qptools::CopyCandidates candidates;
        const ComPtr<IEnumBaseDataObject> tops = host.Tops();
        qptools::CollectCandidates(tops.get(), qptools::CopyRoute::ParentsAndChildren, candidates);
        tops->Reset();
        std::size_t count = 0;
        for (const auto& [type, record] : candidates)
            count += record.objects.size();
        Require(count == objects, "objects are missing");
    }
}

template <std::size_t Depth>
void BareWalk(benchmark::State& state)
{
    const auto objects = static_cast<std::size_t>(state.range(0));
    TreeHost& host = Host({.objects = objects, .depth = Depth, .types = 10});
    for (auto _ : state)
        Require(DeepWalkFloor(host) == objects, "objects are missing");
}

// The dialog.

/// Expands the dialog and chooses the first plan type.
void PostChoice(HWND dialog)
{
    const HWND combo = GetDlgItem(dialog, kPlanTypes);
    PostMessageW(dialog, WM_COMMAND, kAdvanced, 0);
    PostMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    PostMessageW(combo, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageW(combo, WM_KEYDOWN, VK_RETURN, 0);
}

ComPtr<IQPCopyOptDlg> NewComponent(const ModuleUnderTest& module)
{
    ComPtr<IQPCopyOptDlg> copy;
    Require(module.Create(CLSID_QPCopyOptDlg, copy) == S_OK, "no component");
    return copy;
}

void Dialog(benchmark::State& state)
{
    TreeHost& host = Selection(static_cast<std::size_t>(state.range(0)));
    const ModuleUnderTest module;
    const PostingUser user(
        [](HWND dialog) {
            PostChoice(dialog);
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        },
        kGrid, LVM_GETITEMCOUNT);
    const ComPtr<IQPCopyOptDlg> copy = NewComponent(module);
    for (auto _ : state)
    {
        copy->Initialize(host.Tops().get(), nullptr);
        Require(copy->ShowDialog() == S_OK, "no dialog");
        copy->DeleteObjects();
    }
    Require(PostingUser::Items() == kAttributes, "rows are missing");
}

void BareDialogShown(benchmark::State& state)
{
    TreeHost& host = Selection(static_cast<std::size_t>(state.range(0)));
    const ModuleUnderTest module;
    const PostingUser sameHook([](HWND) {}, kGrid, LVM_GETITEMCOUNT);
    const std::string_view dialog = ResourceBytes(module.Handle(), kCopyDialog, MAKEINTRESOURCEW(5));
    for (auto _ : state)
        Require(CopyDialogFloor(host, dialog) == kAttributes, "rows are missing");
}

// The values.

/// What the editors of the cells report: a value for each row of the grid, whose attributes stand in reverse
/// order.
class TypedValues
{
public:
    TypedValues()
    {
        for (std::size_t row = 0; row < kValues; ++row)
            m_texts[row] = L"Value " + std::to_wstring(kValues - row);
    }

    /// They are valid as long as the object.
    void Post(HWND dialog)
    {
        for (std::size_t row = 0; row < kValues; ++row)
        {
            NMLVDISPINFOW& edited = m_edits[row];
            edited.hdr.hwndFrom = GetDlgItem(dialog, kGrid);
            edited.hdr.code = LVN_ENDLABELEDITW;
            edited.item.iItem = static_cast<int>(row);
            edited.item.iSubItem = 1;
            edited.item.pszText = m_texts[row].data();
            PostMessageW(dialog, WM_NOTIFY, kGrid, reinterpret_cast<LPARAM>(&edited));
        }
    }

private:
    std::array<std::wstring, kValues> m_texts;
    std::array<NMLVDISPINFOW, kValues> m_edits{};
};

/// A component in whose dialog the values were typed for a deep copy.
ComPtr<IQPCopyOptDlg> WithValues(const ModuleUnderTest& module)
{
    TypedValues values;
    const PostingUser user(
        [&](HWND dialog) {
            PostChoice(dialog);
            values.Post(dialog);
            PostMessageW(dialog, WM_COMMAND, kDeepButton, 0);
        },
        kGrid, LVM_GETITEMCOUNT);
    ComPtr<IQPCopyOptDlg> copy = NewComponent(module);
    copy->Initialize(Selection(kValues).Tops().get(), nullptr);
    Require(copy->ShowDialog() == S_OK && PostingUser::Items() == kValues, "no dialog");
    return copy;
}

/// That both contenders write the same: the last array.
std::string Written(TreeHost& host, const std::function<void()>& apply)
{
    host.keepsWritten = true;
    apply();
    host.keepsWritten = false;
    return host.written;
}

void Apply(benchmark::State& state)
{
    const auto objects = static_cast<std::size_t>(state.range(0));
    TreeHost& host = Host({.objects = objects, .depth = 10});
    const ModuleUnderTest module;
    const ComPtr<IQPCopyOptDlg> copy = WithValues(module);
    Require(Written(host, [&] { copy->ApplyEnhanceCopy(host.Tops().get()); }) ==
                Written(host, [&] { ApplyFloor(host, kValues); }),
            "other values were written");
    host.calls = {};
    for (auto _ : state)
        copy->ApplyEnhanceCopy(host.Tops().get());
    Require(host.calls.setAttributes == state.iterations() * state.range(0), "copies are missing");
    copy->DeleteObjects();
}

void BareApply(benchmark::State& state)
{
    const auto objects = static_cast<std::size_t>(state.range(0));
    TreeHost& host = Host({.objects = objects, .depth = 10});
    for (auto _ : state)
        Require(ApplyFloor(host, kValues) == objects, "copies are missing");
}

#define BESIDE_ITS_FLOOR(service, floor, name)                                                               \
    BENCHMARK(service)->Name(name "/service")->Apply(Sizes);                                                 \
    BENCHMARK(floor)->Name(name "/floor")->Apply(Sizes)

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
}

BESIDE_ITS_FLOOR(Walk<10>, BareWalk<10>, "Deep walk in trees 10 deep");
BESIDE_ITS_FLOOR(Walk<10'000>, BareWalk<10'000>, "Deep walk in trees 10000 deep");
BESIDE_ITS_FLOOR(Apply, BareApply, "ApplyEnhanceCopy");
BENCHMARK(Dialog)->Name("Copy dialog opened/service")->Arg(kAttributes)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareDialogShown)->Name("Copy dialog opened/floor")->Arg(kAttributes)->Unit(benchmark::kMicrosecond);
} // namespace
