// The bookmark dialog out of memory: each of the module's own allocations fails once, while it opens, lists,
// renames, deletes, opens a bookmark and closes. Natively only: the system's own allocators on Windows do not
// fail on request.
#include "AllocationSweep.h"
#include "BookmarkUser.h"
#include "FaultyMemory.h"
#include "LogFolder.h"
#include "MemoryHost.h"
#include "ModuleAllocations.h"
#include "ModuleUnderTest.h"
#include "RegisteredProgId.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
using namespace bookmark_user;

class BookmarkMemory : public testing::Test
{
protected:
    struct Result
    {
        HRESULT status = S_OK;
        bool struck = false;
    };

    BookmarkMemory()
    {
        EXPECT_EQ(module.Create(CLSID_XBookMark, bookmarks), S_OK);
        view->Show(L"$7)");
        host.Views({view});
    }

    void Fill()
    {
        host.Store().Clear();
        const std::vector<const wchar_t*> ids = {L"$71)", L"$72)", L"$79)"}; // the last one is not found
        for (const wchar_t* project : projects)
            for (std::size_t number = 0; number < (hasGoneObjects ? 3u : 2u); ++number)
                host.Store().Bookmark(project, static_cast<int>(number),
                                      (L"b" + std::to_wstring(number)).c_str(),
                                      MemoryHost::TreeString(ids[number]).c_str());
    }

    ULONG Held()
    {
        return host.Manager().References() + host.Gateway().References() + host.Query().References() +
               host.Store().References() + host.Expander().References();
    }

    /// Lines of the store that have this text.
    long LinesOf(const char* text)
    {
        const std::vector<std::string> content = host.Store().Content();
        return std::count_if(content.begin(), content.end(),
                             [&](const std::string& line) { return line.find(text) != std::string::npos; });
    }

    /// One dialog. The n-th allocation fails; none for 0.
    Result Run(long n, const PatientUser::Steps& steps)
    {
        Fill();
        Result run;
        const PatientUser user(steps);
        const FaultyMemory memory(n, FaultyMemory::Failing::Once, &IsNotOfModule);
        run.status = bookmarks->ShowDialog(&host.Manager());
        run.struck = memory.Struck();
        return run;
    }

    /// Fails every allocation in turn, of which there are `least` or more: none passes unnoticed, and after
    /// each the next dialog works.
    void Sweep(const PatientUser::Steps& steps, long least, bool deletes = false)
    {
        host.recording = false;
        EXPECT_EQ(Run(0, steps).status, S_OK); // what is allocated once and kept
        const int objects = host.LiveObjects();
        const long others = LinesOf("$8)");
        const auto run = [&](long n) {
            return Run(n, steps);
        };
        FailEachAllocation(least, run, [&](const Result& failed) {
            EXPECT_EQ(failed.status, E_OUTOFMEMORY);
            EXPECT_LE(Held(), 5u);
            EXPECT_EQ(host.LiveObjects(), objects);
            EXPECT_EQ(LinesOf("$8)"), others) << "no action is on this project";
            for (const std::string project : {"$7)", "$9)"})
                EXPECT_EQ(LinesOf(("gotoitemname/" + project).c_str()),
                          LinesOf(("gotoitemtree/" + project).c_str()))
                    << "half is lost";
            EXPECT_TRUE(deletes || LinesOf("$7)") == 4);
        });
        EXPECT_EQ(Run(0, steps).status, S_OK);
        EXPECT_EQ(Held(), 5u);
    }

    /// That have bookmarks.
    std::vector<const wchar_t*> projects = {L"$7)", L"$8)"};
    /// Each of them has one on an object that is not found.
    bool hasGoneObjects = false;

    LogFolder folder;
    MemoryHost host;
    ModuleUnderTest module;
    const RegisteredProgId viewClass{MemoryView::kProgId, MemoryView::kClass};
    const RegisteredProgId expanderClass{MemoryExpander::kProgId, MemoryExpander::kClass};
    const ComPtr<MemoryObject> objects[4] = {host.Known(L"$7)", L"North"), host.Known(L"$8)", L"South"),
                                             host.Known(L"$71)", L"a"), host.Known(L"$72)", L"b")};
    const ComPtr<MemoryView> view = host.View("view");
    ComPtr<IXBookMark> bookmarks;
};

TEST_F(BookmarkMemory, EndsTheDialogThatOpens)
{
    Sweep({&Leave}, 20);
}

TEST_F(BookmarkMemory, EndsTheDialogThatDeletesWhatIsGone)
{
    projects.push_back(L"$9)");
    hasGoneObjects = true;
    Sweep({&Leave}, 40, true);
    EXPECT_EQ(LinesOf("$7)"), 4);
    EXPECT_EQ(LinesOf("$9)"), 0);
}

TEST_F(BookmarkMemory, EndsTheDialogThatHasNoProject)
{
    projects = {L"$9)"};
    Sweep({&Leave}, 10, true);
    EXPECT_EQ(host.Store().Content().size(), 0u);
}

TEST_F(BookmarkMemory, EndsTheDialogThatSorts)
{
    Sweep({&SelectFirst, &Wait, &SortByNames, &Wait, &Leave}, 20);
}

TEST_F(BookmarkMemory, EndsTheDialogThatListsAnotherProject)
{
    Sweep({&Choose<1>, &Wait, &Leave}, 30);
}

TEST_F(BookmarkMemory, EndsTheDialogThatRenames)
{
    Sweep({&SelectFirst, &Wait, &Rename, &Wait, &Leave}, 30);
}

TEST_F(BookmarkMemory, EndsTheDialogThatDeletes)
{
    Sweep({&SelectFirst, &Wait, &Press<kDelete>, &Wait, &Press<kDeleteAll>, &Wait, &Leave}, 30, true);
}

TEST_F(BookmarkMemory, EndsTheDialogThatOpensABookmark)
{
    Sweep({&SelectFirst, &Wait, &Press<kOpen>, &Wait, &Leave}, 30);
}
} // namespace
