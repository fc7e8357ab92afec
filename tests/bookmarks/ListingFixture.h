// What the bookmark dialog calls and reports while it opens, lists and deletes, in short words.
#pragma once

#include "BookmarkFixture.h"
#include "StoreWords.h"

class ListingFixture : public BookmarkFixture
{
protected:
    /// Shows a dialog that ends before a user sees it.
    void ShowNone()
    {
        host.calls.clear();
        EXPECT_EQ(bookmarks->ShowDialog(manager), S_OK);
    }

    /// Shows the dialog, runs the steps, and closes it. Returns the calls that the steps lead to.
    Calls During(Steps steps)
    {
        Show(Steps{[this](DialogView&) {
                 m_opened = host.calls.size();
             }} +
             std::move(steps) + Steps{Presses(IDCANCEL)});
        return ShortKeys({host.calls.begin() + static_cast<std::ptrdiff_t>(m_opened), host.calls.end()});
    }

    Calls Called() const { return ShortKeys(host.calls); }
    void ExpectCalls(const Calls& calls) const { EXPECT_EQ(Called(), calls); }
    Calls Content() { return ShortKeys(host.Store().Content()); }

    static std::string Report(int line, const std::string& status, const std::string& text)
    {
        return StoreReport("OpenBookmarkDlg", line, status, text);
    }
    static std::string StoreOf(int line, const std::string& status, const std::string& text)
    {
        return StoreReport("XBookmarkManager", line, status, text);
    }

    // The calls of the parts of the dialog.

    static Calls Services()
    {
        Calls calls;
        for (const char* client : {"XBookmarkManager", "XOpenBookmarkDlg"})
            calls = calls + Calls{kGetGateway, GetClient(client), GetQuery(1), kGetStore};
        return calls;
    }
    static Calls Projects()
    {
        return Services() + Calls{"store.GetSubKeys(~/gotoitemname, 1, 2)",
                                  "manager.GetRunningObjects({6C2B9A50-1D4E-4F83-B705-93E15AC8267F})"};
    }
    static Calls Found(const std::string& id, const std::string& name)
    {
        return {"GetObjectById(" + id + ")", name + ".GetAttribute(configured_name)"};
    }
    static Calls Purged(const std::string& project)
    {
        return {"GetObjectById(" + project + ")", "store.PrepareScope(2)",
                "store.DeleteKey(~/gotoitemname/" + project + ", 2)",
                "store.DeleteKey(~/GotoItemTree/" + project + ", 2)"};
    }
    static Calls Fresh() { return {GetClient("XOpenBookmarkDlg"), GetQuery(1)}; }
    /// The reading of a project's bookmarks with the numbers from 0.
    static Calls Read(const std::string& project, int count)
    {
        Calls calls = {"store.GetStringList(~/gotoitemname/" + project + ", 2)"};
        for (int number = 0; number < count; ++number)
        {
            const std::string digits = std::to_string(number);
            calls.push_back("store.GetValue(~/gotoitemtree/" + project + ", " + digits + ", 8, 2)");
            calls.push_back("store.GetValue(~/gotoitemname/" + project + ", gotoitemname" + digits +
                            ", 8, 2)");
        }
        return calls;
    }
    static Calls BothProjects() { return Projects() + Found("$7)", "North") + Found("$8)", "South"); }
    static Calls ListedNorth()
    {
        return Fresh() + Read("$7)", 2) + Found("$71)", "Weld cell") + Found("$72)", "Drill cell");
    }
    static Calls ListedSouth() { return Fresh() + Read("$8)", 1) + Found("$81)", "Paint cell"); }

private:
    std::size_t m_opened = 0;
};
