// The bookmark dialog beside its floor: a project with very many bookmarks is listed.
#include "BareBookmarks.h"
#include "MemoryHost.h"
#include "ModuleUnderTest.h"
#include "PostingUser.h"
#include "RegisteredProgId.h"
#include "Require.h"

#include "Resources.h"

#include "qptools.h"

#include <benchmark/benchmark.h>

#include <commctrl.h>

#include <string>

namespace
{
constexpr UINT kDialog = 217;
constexpr int kList = 383;
constexpr std::size_t kBookmarks = 1'000;

/// A host with one project, which has all bookmarks, and with an empty navigator. Nothing is recorded.
class BookmarkHost
{
public:
    BookmarkHost()
    {
        m_host.recording = false;
        m_host.Known(L"$1)", L"Project");
        for (int number = 0; number < static_cast<int>(kBookmarks); ++number)
        {
            const std::wstring id = L"$" + std::to_wstring(10'000 + number) + L")";
            const std::wstring name = L"Bookmark " + std::to_wstring(number);
            m_host.Known(id, name.c_str());
            m_host.Store().Bookmark(L"$1)", number, name.c_str(), MemoryHost::TreeString(id).c_str());
        }
        m_views = m_host.Views({});
    }

    IQPFObjectManager* Manager()
    {
        m_views->Rewind();
        return &m_host.Manager();
    }

    /// That each bookmark cost two reads of the store and one search for its object, and each dialog one for
    /// the project.
    void RequireCalls(std::size_t dialogs)
    {
        Require(m_host.Store().script.Count("GetValue") == dialogs * 2 * kBookmarks,
                "other reads of the store");
        Require(m_host.Query().script.Count("GetObjectById") == dialogs * (1 + kBookmarks), "other searches");
    }

private:
    MemoryHost m_host;
    ComPtr<MemoryRunning> m_views;
    const RegisteredProgId m_viewClass{MemoryView::kProgId, MemoryView::kClass};
};

void Dialog(benchmark::State& state)
{
    BookmarkHost host;
    const ModuleUnderTest module;
    const PostingUser user([](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); }, kList,
                           LVM_GETITEMCOUNT);
    for (auto _ : state)
    {
        ComPtr<IXBookMark> bookmarks;
        Require(module.Create(CLSID_XBookMark, bookmarks) == S_OK, "no component");
        Require(bookmarks->ShowDialog(host.Manager()) == S_OK, "no dialog");
    }
    Require(PostingUser::Items() == kBookmarks, "bookmarks are missing");
    host.RequireCalls(state.iterations());
}

void BareDialogShown(benchmark::State& state)
{
    BookmarkHost host;
    const ModuleUnderTest module;
    const PostingUser sameHook([](HWND) {}, kList, LVM_GETITEMCOUNT);
    const std::string_view dialog = ResourceBytes(module.Handle(), kDialog, MAKEINTRESOURCEW(5));
    for (auto _ : state)
        Require(BookmarkFloor(host.Manager(), MemoryView::kClass, dialog) == kBookmarks,
                "bookmarks are missing");
    host.RequireCalls(state.iterations());
}

BENCHMARK(Dialog)->Name("Bookmarks listed/service")->Arg(kBookmarks)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareDialogShown)->Name("Bookmarks listed/floor")->Arg(kBookmarks)->Unit(benchmark::kMicrosecond);
} // namespace
