// What deletes bookmarks in the key store: one bookmark, by writing both lists anew, or all of a project.
#include "StoreFixture.h"

namespace
{
constexpr const char* kNoList =
    "XBookmarkmanager::Deletebokmark      m_pSessionDataMng->GetStringList failed";
constexpr const char* kNotDeleted = "XBookmarkmanager::Deletebokmark   m_pSessionDataMng->DeleteKey failed";
constexpr const char* kNotWritten =
    "XBookmarkmanager::Deletebokmark            m_pSessionDataMng->WriteStringList failed";
constexpr const char* kNotAllDeleted =
    "XBookmarkmanager: DeleteAllBookmarks                 m_ptrSessionDataMng->DeleteKey failed";

class BookmarkDeleted : public StoreFixture
{
protected:
    BookmarkDeleted()
    {
        WeldDrillPaint();
        host.Store().Bookmark(L"$8)", 0, L"Other", L"tree b");
        Initialize();
    }

    void Delete(const wchar_t* tree) { EXPECT_EQ(Manager::Deletebokmark(kProject, tree), S_OK); }

    /// The content: both lists of the project, and the other project as it was.
    static Calls Left(const Calls& names, const Calls& trees)
    {
        return names + Calls{"~/gotoitemname/$8): gotoitemname0=Other"} + trees +
               Calls{"~/gotoitemtree/$8): 0=tree b"};
    }
    static std::string Name(const std::string& entry) { return "~/gotoitemname/$7):" + entry; }
    static std::string Tree(const std::string& entry) { return "~/gotoitemtree/$7):" + entry; }

    Calls All() const
    {
        return Left({Name(" gotoitemname0=Weld"), Name(" gotoitemname1=Drill"), Name(" gotoitemname2=Paint")},
                    {Tree(" 0=tree a"), Tree(" 1=tree b"), Tree(" 2=tree c")});
    }

    const Calls whole = DeleteCalls("$7)", 0, "", "");
};

TEST_F(BookmarkDeleted, FromTheMiddleTheNumbersCloseUp)
{
    Delete(L"tree b");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 2, "{gotoitemname0 = Weld, gotoitemname1 = Paint}",
                                    "{0 = tree a, 1 = tree c}"));
    EXPECT_EQ(Content(), Left({Name(" gotoitemname0=Weld"), Name(" gotoitemname1=Paint")},
                              {Tree(" 0=tree a"), Tree(" 1=tree c")}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, TheFirstAndTheLast)
{
    Delete(L"tree a");
    EXPECT_EQ(Content(), Left({Name(" gotoitemname0=Drill"), Name(" gotoitemname1=Paint")},
                              {Tree(" 0=tree b"), Tree(" 1=tree c")}));
    Delete(L"tree c");
    EXPECT_EQ(Content(), Left({Name(" gotoitemname0=Drill")}, {Tree(" 0=tree b")}));
}

TEST_F(BookmarkDeleted, TheOnlyOneLeavesBothListsWithoutEntries)
{
    host.Store().Clear();
    Bookmark(0, L"Weld", L"tree a");
    Delete(L"tree a");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 0, "{}", "{}"));
    EXPECT_EQ(Content(), (Calls{"~/gotoitemname/$7):", "~/gotoitemtree/$7):"}));
}

TEST_F(BookmarkDeleted, WithoutAMatchTheLastIsLost)
{
    Delete(L"tree B");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 2, "{gotoitemname0 = Weld, gotoitemname1 = Drill}",
                                    "{0 = tree a, 1 = tree b}"));
    EXPECT_EQ(logBook.Entries(), Entries{}) << "case counts";
}

TEST_F(BookmarkDeleted, TwiceAmongFourTheThirdIsWhatStoodThere)
{
    Bookmark(3, L"Saw", L"tree b");
    Delete(L"tree b");
    EXPECT_EQ(Called(),
              DeleteCalls("$7)", 3, "{gotoitemname0 = Weld, gotoitemname1 = Paint, gotoitemname2 = Paint}",
                          "{0 = tree a, 1 = tree c, 2 = tree c}"));
}

TEST_F(BookmarkDeleted, TwiceAtTheEndADeletedOneStays)
{
    Bookmark(3, L"Saw", L"tree c");
    Delete(L"tree c");
    EXPECT_EQ(Called(),
              DeleteCalls("$7)", 3, "{gotoitemname0 = Weld, gotoitemname1 = Drill, gotoitemname2 = Paint}",
                          "{0 = tree a, 1 = tree b, 2 = tree c}"));
}

TEST_F(BookmarkDeleted, WithGapsTheFirstNumbersAreKept)
{
    host.Store().Clear();
    for (const int number : {0, 1, 3})
        Bookmark(number, L"name", (L"tree " + std::to_wstring(number)).c_str());
    Delete(L"tree 0");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 2, "{gotoitemname0 = name, gotoitemname1 = name}",
                                    "{0 = tree 1, 1 = tree 3}"));
}

TEST_F(BookmarkDeleted, WithFewerTreeStringsTheRestIsWrittenAsNull)
{
    host.Store().script.Set("GetStringList", 0, {.count = 5});
    Delete(L"tree b");
    EXPECT_EQ(Called(),
              DeleteCalls("$7)", 4,
                          "{gotoitemname0 = Weld, gotoitemname1 = Paint, gotoitemname2 = null, null = null}",
                          "{0 = tree a, 1 = tree c, 2 = null, null = null}"));
}

TEST_F(BookmarkDeleted, WithMoreTreeStringsTheyAreLost)
{
    host.Store().script.Set("GetStringList", 0, {.count = 2});
    Delete(L"tree c");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 1, "{gotoitemname0 = Weld}", "{0 = tree a}"));
}

TEST_F(BookmarkDeleted, ANullTreeStringIsTheEmptyOne)
{
    const std::wstring names = L"QPR-Navigator/BrowserConfiguration1/gotoitemname/$7)";
    host.Store().Set(2, names, L"gotoitemname3", L"Saw")->Set(2, names, L"gotoitemname4", L"Mill");
    host.Store().script.Set("GetStringList", 1, {.count = 4});
    Delete(L"");
    EXPECT_EQ(ShortKeys(host.calls)[4],
              DeleteCalls("$7)", 4,
                          "{gotoitemname0 = Weld, gotoitemname1 = Drill, gotoitemname2 = Paint, "
                          "gotoitemname3 = Mill}",
                          "")[4]);
}

TEST_F(BookmarkDeleted, AMissingTreeStringIsNotTheEmptyOne)
{
    host.Store().script.Set("GetStringList", 1, {.count = 1});
    Delete(L"");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 2, "{gotoitemname0 = Weld, gotoitemname1 = Drill}",
                                    "{0 = tree a, null = null}"))
        << "no match, so the last is lost";
}

TEST_F(BookmarkDeleted, ANullListOfNamesDeletesNothing)
{
    host.Store().script.Set("GetStringList", 0, {.givesNull = true});
    Delete(L"tree b");
    EXPECT_EQ(Called(), Calls(whole.begin(), whole.begin() + 2));
    EXPECT_EQ(Content(), All());
    EXPECT_EQ(logBook.Entries(), Entries{Report(231, kOk, kNoList)});
}

TEST_F(BookmarkDeleted, ANullListOfTreeStringsDeletesNothing)
{
    host.Store().script.Set("GetStringList", 1, {.givesNull = true});
    Delete(L"tree b");
    EXPECT_EQ(Called(), Calls(whole.begin(), whole.begin() + 2));
    EXPECT_EQ(Content(), All());
    EXPECT_EQ(logBook.Entries(), Entries{Report(231, kOk, kNoList)});
}

TEST_F(BookmarkDeleted, AFailedReadOfTheNamesDeletesAll)
{
    host.Store().script.Set("GetStringList", 0, Failed());
    Delete(L"tree b");
    const Calls calls = DeleteCalls("$7)", 0, "null", "null");
    EXPECT_EQ(Called(), (Calls{calls[0], calls[2], calls[3], calls[4], calls[5]}));
    EXPECT_EQ(Content(), Left({Name("")}, {Tree("")}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, AFailedReadOfTheTreeStringsLosesThem)
{
    host.Store().script.Set("GetStringList", 1, Failed());
    Delete(L"tree b");
    Calls calls = DeleteCalls("$7)", 2, "{gotoitemname0 = Weld, gotoitemname1 = Drill}", "");
    calls.back() = DeleteCalls("$7)", 0, "", "null").back();
    EXPECT_EQ(Called(), calls);
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, APositiveReadWritesTheListThatItGave)
{
    host.Store().script.Set("GetStringList", 0, {.status = S_FALSE});
    Delete(L"tree b");
    const Calls names = DeleteCalls("$7)", 2, "{gotoitemname0 = Weld, gotoitemname1 = Drill}", "");
    const Calls trees = DeleteCalls("$7)", 0, "", "null");
    EXPECT_EQ(Called(), (Calls{names[0], names[2], names[3], names[4], trees[5]}));
}

TEST_F(BookmarkDeleted, AFailedReadThatGaveAListWritesIt)
{
    host.Store().script.Set("GetStringList", 1, {.status = E_FAIL});
    Delete(L"tree b");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 2, "{gotoitemname0 = Weld, gotoitemname1 = Drill}",
                                    "{0 = tree a, 1 = tree b}"))
        << "the lists are not compared";
}

TEST_F(BookmarkDeleted, OfNoProjectAllIsWrittenEmpty)
{
    EXPECT_EQ(Manager::Deletebokmark(L"$9)", L"tree a"), S_OK);
    const Calls calls = DeleteCalls("$9)", 0, "null", "null");
    EXPECT_EQ(Called(), (Calls{calls[0], calls[2], calls[3], calls[4], calls[5]}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, AListWithoutEntriesIsWrittenSo)
{
    host.Store().script.Set("GetStringList", 0, {.count = 0});
    Delete(L"tree b");
    EXPECT_EQ(Called(), DeleteCalls("$7)", 0, "null", "null"));
}

TEST_F(BookmarkDeleted, AKeyThatIsNotDeletedIsReportedAndNotWritten)
{
    host.Store().script.Set("DeleteKey", 1, Failed());
    Delete(L"tree b");
    EXPECT_EQ(Called(), Calls(whole.begin(), whole.begin() + 4));
    EXPECT_EQ(logBook.Entries(), Entries{Report(242, kFailed, kNotDeleted)});
}

TEST_F(BookmarkDeleted, TheFirstKeyThatIsNotDeletedDoesNotCount)
{
    host.Store().script.Set("DeleteKey", 0, Failed());
    Delete(L"tree b");
    EXPECT_EQ(Content(), Left({Name(" gotoitemname0=Weld"), Name(" gotoitemname1=Paint")},
                              {Tree(" 0=tree a"), Tree(" 1=tree c")}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, AListThatIsNotWrittenIsReported)
{
    host.Store().script.Set("WriteStringList", 1, Failed());
    Delete(L"tree b");
    EXPECT_EQ(Called().size(), whole.size());
    EXPECT_EQ(Content(), Left({Name(" gotoitemname0=Weld"), Name(" gotoitemname1=Paint")}, {}));
    EXPECT_EQ(logBook.Entries(), Entries{Report(252, kFailed, kNotWritten)});
}

TEST_F(BookmarkDeleted, TheFirstListThatIsNotWrittenDoesNotCount)
{
    host.Store().script.Set("WriteStringList", 0, Failed());
    Delete(L"tree b");
    EXPECT_EQ(Called().size(), whole.size());
    EXPECT_EQ(Content(), Left({}, {Tree(" 0=tree a"), Tree(" 1=tree c")}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, PositiveStatusesOfWritesAreNoFailures)
{
    host.Store().script.Set("DeleteKey", 1, {.status = S_FALSE});
    host.Store().script.Set("WriteStringList", 1, {.status = S_FALSE});
    Delete(L"tree b");
    EXPECT_EQ(Called().size(), whole.size());
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, AllOfAProjectAreGone)
{
    EXPECT_EQ(Manager::DeleteAllBookmarks(kProject), S_OK);
    EXPECT_EQ(Called(), (Calls{"store.PrepareScope(2)", whole[2], whole[3]}));
    EXPECT_EQ(Content(), Left({}, {}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, AllOfAProjectWithoutAnyIsNoFailure)
{
    EXPECT_EQ(Manager::DeleteAllBookmarks(L"$9)"), S_OK);
    EXPECT_EQ(Content(), All());
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, AllDespiteAScopeThatIsNotPreparedAndAFirstKeyThatFails)
{
    host.Store().script.Set("PrepareScope", 0, Failed());
    host.Store().script.Set("DeleteKey", 0, {.status = E_FAIL});
    EXPECT_EQ(Manager::DeleteAllBookmarks(kProject), S_OK);
    EXPECT_EQ(Called(), (Calls{"store.PrepareScope(2)", whole[2], whole[3]}));
    EXPECT_EQ(Content(), Left({}, {}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkDeleted, AllReportsTheSecondKeyThatFails)
{
    host.Store().script.Set("DeleteKey", 1, Failed());
    EXPECT_EQ(Manager::DeleteAllBookmarks(kProject), S_OK);
    EXPECT_EQ(Called(), (Calls{"store.PrepareScope(2)", whole[2], whole[3]}));
    EXPECT_EQ(logBook.Entries(), Entries{Report(300, kFailed, kNotAllDeleted)});
}
} // namespace
