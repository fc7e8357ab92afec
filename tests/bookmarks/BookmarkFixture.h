// The bookmark component with its dialog, over a host with two projects and their bookmarks.
#pragma once

#include "BookmarkWords.h"
#include "DialogFixture.h"
#include "RegisteredProgId.h"

#include <optional>

class BookmarkFixture : public DialogFixture
{
protected:
    BookmarkFixture()
    {
        EXPECT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
        host.Manager().Running(MemoryView::kClass, host.Views({}));
        Bookmark(L"$7)", 0, L"Weld", L"$71)");
        Bookmark(L"$7)", 1, L"Drill", L"$72)");
        Bookmark(L"$8)", 0, L"Paint", L"$81)");
    }

    /// A bookmark of a project on an object of the host.
    void Bookmark(const wchar_t* project, int number, const wchar_t* name, const wchar_t* object)
    {
        host.Store().Bookmark(project, number, name, MemoryHost::TreeString(object).c_str());
    }

    /// Shows the dialog and runs the steps in it; without steps no dialog may be left open.
    HRESULT Show(Steps steps)
    {
        dialogs.OnDialog(std::move(steps));
        host.calls.clear();
        const HRESULT status = bookmarks->ShowDialog(manager);
        EXPECT_TRUE(dialogs.AllShown()) << "no dialog came up";
        std::ostringstream result;
        result << std::hex << status;
        Ended(result.str());
        return status;
    }

    /// The trace begins here: what the host was asked for before is left out.
    DialogStep TraceBegins()
    {
        return {"begins the trace", [this](DialogView&) {
                    host.calls.clear();
                }};
    }

    /// What the store holds, as host.Store().Content() tells it; only the lines with `part` in them.
    std::vector<std::string> Stored(const std::string& part)
    {
        std::vector<std::string> lines;
        for (const std::string& line : host.Store().Content())
            if (line.find(part) != std::string::npos)
                lines.push_back(line);
        return lines;
    }

    std::optional<RegisteredProgId> viewClass{std::in_place, MemoryView::kProgId, MemoryView::kClass};
    const RegisteredProgId expanderClass{MemoryExpander::kProgId, MemoryExpander::kClass};
    const ComPtr<MemoryObject> north = host.Known(L"$7)", L"North");
    const ComPtr<MemoryObject> south = host.Known(L"$8)", L"South");
    const ComPtr<MemoryObject> weld = host.Known(L"$71)", L"Weld cell");
    const ComPtr<MemoryObject> drill = host.Known(L"$72)", L"Drill cell");
    const ComPtr<MemoryObject> paint = host.Known(L"$81)", L"Paint cell");
    IQPFObjectManager* manager = &host.Manager();
    ComPtr<IXBookMark> bookmarks;
};
