// The bookmark component with its dialog, over two projects and their bookmarks.
#pragma once

#include "BookmarkPlant.h"
#include "BookmarkWords.h"
#include "DialogFixture.h"

class BookmarkFixture : public DialogFixture, protected BookmarkPlant
{
protected:
    BookmarkFixture() : BookmarkPlant(host) { EXPECT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK); }

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

    IQPFObjectManager* manager = &host.Manager();
    ComPtr<IXBookMark> bookmarks;
};
