// What the tests of the bookmark dialog show: two projects with bookmarks on three objects.
#pragma once

#include "MemoryHost.h"
#include "RegisteredProgId.h"

#include <optional>

/// The bookmarks of a host, which outlives them. Its navigator has no view.
class BookmarkPlant
{
public:
    explicit BookmarkPlant(MemoryHost& host)
        : north(host.Known(L"$7)", L"North")), south(host.Known(L"$8)", L"South")),
          weld(host.Known(L"$71)", L"Weld cell")), drill(host.Known(L"$72)", L"Drill cell")),
          paint(host.Known(L"$81)", L"Paint cell")), m_store(host.Store())
    {
        host.Views({});
        Bookmark(L"$7)", 0, L"Weld", L"$71)");
        Bookmark(L"$7)", 1, L"Drill", L"$72)");
        Bookmark(L"$8)", 0, L"Paint", L"$81)");
    }

    /// A bookmark of a project on an object of the host.
    void Bookmark(const wchar_t* project, int number, const wchar_t* name, const wchar_t* object)
    {
        m_store.Bookmark(project, number, name, MemoryHost::TreeString(object).c_str());
    }

    std::optional<RegisteredProgId> viewClass{std::in_place, MemoryView::kProgId, MemoryView::kClass};
    const RegisteredProgId expanderClass{MemoryExpander::kProgId, MemoryExpander::kClass};
    const ComPtr<MemoryObject> north;
    const ComPtr<MemoryObject> south;
    const ComPtr<MemoryObject> weld;
    const ComPtr<MemoryObject> drill;
    const ComPtr<MemoryObject> paint;

private:
    MemoryStore& m_store;
};
