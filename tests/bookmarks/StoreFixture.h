// The layer over the host's key store, linked in: no window comes up.
#pragma once

#include "StoreWords.h"

#include "LogBook.h"
#include "MemoryHost.h"

#include "XBookmarkManager.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class StoreFixture : public testing::Test
{
protected:
    using Manager = qptools::XBookmarkManager;

    ~StoreFixture() override { Manager::Release(); }

    /// Gets the services and forgets the calls for it.
    void Initialize()
    {
        EXPECT_EQ(Manager::Initialize(&host.Manager()), S_OK);
        host.calls.clear();
    }

    void Bookmark(int number, const wchar_t* name, const wchar_t* tree)
    {
        host.Store().Bookmark(kProject, number, name, tree);
    }

    /// Three bookmarks of the project.
    void WeldDrillPaint()
    {
        Bookmark(0, L"Weld", L"tree a");
        Bookmark(1, L"Drill", L"tree b");
        Bookmark(2, L"Paint", L"tree c");
    }

    static std::string Report(int line, const std::string& status, const std::string& text)
    {
        return StoreReport("XBookmarkManager", line, status, text);
    }

    Calls Called() const { return ShortKeys(host.calls); }
    std::vector<std::string> Content() { return ShortKeys(host.Store().Content()); }

    static constexpr const wchar_t* kProject = L"$7)";

    LogBook logBook;
    MemoryHost host;
};
