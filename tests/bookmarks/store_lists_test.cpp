// What is read from the key store: the projects that have bookmarks, and the bookmarks of one.
#include "StoreFixture.h"

namespace
{
constexpr const wchar_t* kNamesKey = L"QPR-Navigator/BrowserConfiguration1/gotoitemname/";
constexpr const char* kGetSubKeys = "store.GetSubKeys(~/gotoitemname, 1, 2)";
constexpr const char* kNoSubKeys =
    "XBookmarkManager::GetBookmarkprojectId              m_ptrSessionDataMng->GetSubKeys failed";

using Texts = std::vector<std::wstring>;

class BookmarkProjects : public StoreFixture
{
protected:
    BookmarkProjects() { Initialize(); }

    void SubKey(const wchar_t* text)
    {
        host.Store().Set(2, std::wstring(kNamesKey) + text, L"gotoitemname0", L"x");
    }

    Texts Read()
    {
        std::vector<XQPComBSTR> projects{L"before"};
        EXPECT_EQ(Manager::GetBookmarkprojectId(projects, wereRead), S_OK);
        EXPECT_EQ(Called(), Calls{kGetSubKeys});
        Texts texts;
        for (const XQPComBSTR& project : projects)
            texts.emplace_back(project.View());
        return texts;
    }

    bool wereRead = false;
};

TEST_F(BookmarkProjects, AreAppendedInTheOrderOfTheSubKeys)
{
    for (const wchar_t* key : {L"$8)", L"$7)", L"$9)"})
        SubKey(key);
    EXPECT_EQ(Read(), (Texts{L"before", L"$8)", L"$7)", L"$9)"}));
    EXPECT_TRUE(wereRead);
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkProjects, AreCutOutOfTheTextOfTheSubKey)
{
    SubKey(L"a project ($12) of ($13)");
    EXPECT_EQ(Read(), (Texts{L"before", L"$12)"}));
}

TEST_F(BookmarkProjects, ABracketBeforeTheDollarDoesNotEndThem)
{
    SubKey(L"a) $12)");
    EXPECT_EQ(Read(), (Texts{L"before", L"$12)"}));
}

TEST_F(BookmarkProjects, WithoutADollarTheyBeginWithTheText)
{
    SubKey(L"12) and more");
    EXPECT_EQ(Read(), (Texts{L"before", L"12)"}));
}

TEST_F(BookmarkProjects, WithoutABracketTheyAreEmpty)
{
    SubKey(L"$12");
    SubKey(L"text");
    EXPECT_EQ(Read(), (Texts{L"before", L"", L""}));
}

TEST_F(BookmarkProjects, AreNoneInAnEmptyStore)
{
    EXPECT_EQ(Read(), Texts{L"before"});
    EXPECT_TRUE(wereRead) << "S_FALSE is no failure";
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkProjects, AreReadDespiteAPositiveStatus)
{
    SubKey(L"$7)");
    host.Store().script.Set("GetSubKeys", 0, {.status = S_FALSE});
    EXPECT_EQ(Read(), (Texts{L"before", L"$7)"}));
    EXPECT_TRUE(wereRead);
}

TEST_F(BookmarkProjects, AreNoneInANullArrayWhateverItsCount)
{
    SubKey(L"$7)");
    host.Store().script.Set("GetSubKeys", 0, {.givesNull = true, .count = 3});
    EXPECT_EQ(Read(), Texts{L"before"});
    EXPECT_TRUE(wereRead);
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkProjects, ANullTextGivesAnEmptyOne)
{
    SubKey(L"$7)");
    host.Store().script.Set("GetSubKeys", 0, {.count = 2});
    EXPECT_EQ(Read(), (Texts{L"before", L"$7)", L""}));
}

TEST_F(BookmarkProjects, AFailureIsReportedAndLeavesTheList)
{
    SubKey(L"$7)");
    host.Store().script.Set("GetSubKeys", 0, {.status = E_FAIL});
    EXPECT_EQ(Read(), Texts{L"before"}) << "although the store gave a list";
    EXPECT_FALSE(wereRead);
    EXPECT_EQ(logBook.Entries(), Entries{Report(139, kFailed, kNoSubKeys)});
}

class BookmarksOfAProject : public StoreFixture
{
protected:
    BookmarksOfAProject() { Initialize(); }

    /// Each bookmark as "tree = name".
    Texts Read()
    {
        Manager::Bookmarks bookmarks;
        EXPECT_EQ(Manager::GetBookmarks(kProject, bookmarks), S_OK);
        EXPECT_EQ(logBook.Entries(), Entries{});
        Texts texts;
        for (auto& [tree, name] : bookmarks)
            texts.push_back(std::wstring(tree.View()) + L" = " + name.GetString());
        return texts;
    }

    static std::string Tree(int number)
    {
        return "store.GetValue(~/gotoitemtree/$7), " + std::to_string(number) + ", 8, 2)";
    }
    static std::string Name(int number)
    {
        return "store.GetValue(~/gotoitemname/$7), gotoitemname" + std::to_string(number) + ", 8, 2)";
    }

    const std::string count = "store.GetStringList(~/gotoitemname/$7), 2)";
};

TEST_F(BookmarksOfAProject, AreReadNumberByNumber)
{
    WeldDrillPaint();
    EXPECT_EQ(Read(), (Texts{L"tree a = Weld", L"tree b = Drill", L"tree c = Paint"}));
    EXPECT_EQ(Called(), (Calls{count, Tree(0), Name(0), Tree(1), Name(1), Tree(2), Name(2)}));
}

TEST_F(BookmarksOfAProject, AreInTheOrderOfTheirTreeStrings)
{
    Bookmark(0, L"last", L"tree b");
    Bookmark(1, L"first", L"tree B");
    Bookmark(2, L"middle", L"tree a");
    EXPECT_EQ(Read(), (Texts{L"tree B = first", L"tree a = middle", L"tree b = last"}));
}

TEST_F(BookmarksOfAProject, MayHaveGapsInTheirNumbers)
{
    Bookmark(0, L"Weld", L"tree a");
    Bookmark(1, L"Drill", L"tree b");
    Bookmark(3, L"Paint", L"tree c");
    EXPECT_EQ(Read(), (Texts{L"tree a = Weld", L"tree b = Drill", L"tree c = Paint"}));
    EXPECT_EQ(Called(), (Calls{count, Tree(0), Name(0), Tree(1), Name(1), Tree(2), Tree(3), Name(3)}));
}

TEST_F(BookmarksOfAProject, AreAsManyAsTheListOfNamesHas)
{
    WeldDrillPaint();
    host.Store().script.Set("GetStringList", 0, {.count = 2});
    EXPECT_EQ(Read(), (Texts{L"tree a = Weld", L"tree b = Drill"}));
    EXPECT_EQ(Called(), (Calls{count, Tree(0), Name(0), Tree(1), Name(1)}));
}

TEST_F(BookmarksOfAProject, AreCountedInANullListAndDespiteAFailure)
{
    WeldDrillPaint();
    host.Store().script.Set("GetStringList", 0, {.status = E_FAIL, .givesNull = true});
    EXPECT_EQ(Read(), (Texts{L"tree a = Weld", L"tree b = Drill", L"tree c = Paint"}));
}

TEST_F(BookmarksOfAProject, AreNoneWhereTheCountIsNotRead)
{
    WeldDrillPaint();
    host.Store().script.Set("GetStringList", 0, Failed());
    EXPECT_EQ(Read(), Texts{});
    EXPECT_EQ(Called(), Calls{count});
}

TEST_F(BookmarksOfAProject, AreNoneWithoutAKey)
{
    EXPECT_EQ(Read(), Texts{});
    EXPECT_EQ(Called(), Calls{count});
}

TEST_F(BookmarksOfAProject, MayLackAName)
{
    WeldDrillPaint();
    host.Store().script.Set("GetValue", 3, Failed());
    EXPECT_EQ(Read(), (Texts{L"tree a = Weld", L"tree b = ", L"tree c = Paint"}));
}

TEST_F(BookmarksOfAProject, WithEqualTreeStringsAreOneOfTheLastName)
{
    Bookmark(0, L"Weld", L"tree a");
    Bookmark(1, L"Drill", L"tree a");
    EXPECT_EQ(Read(), Texts{L"tree a = Drill"});
    EXPECT_EQ(Called(), (Calls{count, Tree(0), Name(0), Tree(1), Name(1)})) << "each counts as found";
}

TEST_F(BookmarksOfAProject, ThatFailOnceAreSkippedAndLookedForBehind)
{
    WeldDrillPaint();
    Bookmark(4, L"Saw", L"tree d");
    host.Store().script.Set("GetStringList", 0, {.count = 3});
    host.Store().script.Set("GetValue", 2, {.status = S_FALSE}); // although it gives a value
    EXPECT_EQ(Read(), (Texts{L"tree a = Weld", L"tree c = Paint", L"tree d = Saw"}));
    EXPECT_EQ(Called(),
              (Calls{count, Tree(0), Name(0), Tree(1), Tree(2), Name(2), Tree(3), Tree(4), Name(4)}));
}

TEST_F(BookmarksOfAProject, OfListsThatContradictEndAfterAMillionMisses)
{
    WeldDrillPaint();
    host.recording = false;
    host.Store().script.Set("GetStringList", 0, {.count = 4});
    EXPECT_EQ(Read(), (Texts{L"tree a = Weld", L"tree b = Drill", L"tree c = Paint"}));
    EXPECT_EQ(host.Store().script.Count("GetValue"), 1'000'006u);
}
} // namespace
