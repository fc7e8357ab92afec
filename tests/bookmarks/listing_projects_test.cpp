// The projects in the bookmark dialog: those that are gone, those that cannot be read, and the end of the
// dialog that has none.
#include "ListingFixture.h"

namespace
{
using namespace bookmark_dialog;

constexpr const char* kBox = "box Goto: No more Bookmarked project exist.";
constexpr const char* kBrowserDeleted = "store.DeleteKey(~/, 2)";

class BookmarkedProjects : public ListingFixture
{
protected:
    void Remains()
    {
        EXPECT_EQ(
            Content(),
            (Calls{"~/gotoitemname/$7): gotoitemname0=Weld", "~/gotoitemname/$7): gotoitemname1=Drill",
                   "~/gotoitemname/$8): gotoitemname0=Paint", "~/gotoitemtree/$7): 0=BrowserTree:$71);",
                   "~/gotoitemtree/$7): 1=BrowserTree:$72);", "~/gotoitemtree/$8): 0=BrowserTree:$81);"}));
    }

    /// A value of the browser that is no bookmark.
    void OtherValue() { host.Store().Set(2, L"QPR-Navigator/BrowserConfiguration1/other", L"a", L"b"); }
};

TEST_F(BookmarkedProjects, ThatAreGoneLoseTheirBookmarks)
{
    host.Query().Set(L"$7)", nullptr, S_FALSE);
    Show({Sees(Offers(kProject, {L"South"})), Sees(InColumn(0, {L"Paint"})), Presses(IDCANCEL)});
    ExpectCalls(Projects() + Purged("$7)") + Found("$8)", "South") + Calls{"views.RemNext(1)"} +
                ListedSouth());
    EXPECT_EQ(Content(),
              (Calls{"~/gotoitemname/$8): gotoitemname0=Paint", "~/gotoitemtree/$8): 0=BrowserTree:$81);"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkedProjects, AreGoneIfTheirObjectIsNull)
{
    host.Query().Set(L"$8)", nullptr, S_OK);
    Show({Sees(Offers(kProject, {L"North"})), Presses(IDCANCEL)});
    ExpectCalls(Projects() + Found("$7)", "North") + Purged("$8)") + Calls{"views.RemNext(1)"} +
                ListedNorth());
}

TEST_F(BookmarkedProjects, AreGoneAtAnyStatusButZero)
{
    host.Query().Set(L"$7)", north, S_FALSE);
    host.Query().Set(L"$8)", south, E_FAIL);
    OtherValue();
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    ExpectCalls(Projects() + Purged("$7)") + Purged("$8)") +
                Calls{"views.RemNext(1)", kBrowserDeleted, kBox});
    EXPECT_EQ(Content(), Calls{});
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkedProjects, AreNoneAndTheDialogEnds)
{
    host.Store().Clear();
    OtherValue();
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    ExpectCalls(Projects() + Calls{"views.RemNext(1)", kBrowserDeleted, kBox});
    EXPECT_EQ(Content(), Calls{});
}

TEST_F(BookmarkedProjects, ThatCannotBeReadAreNotDeleted)
{
    host.Store().script.Set("GetSubKeys", 0, Failed());
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    ExpectCalls(Projects() + Calls{"views.RemNext(1)", kBox});
    Remains();
    EXPECT_EQ(logBook.Entries(), Entries{StoreOf(139, kFailed,
                                                 "XBookmarkManager::GetBookmarkprojectId              "
                                                 "m_ptrSessionDataMng->GetSubKeys failed")});
}

TEST_F(BookmarkedProjects, WithoutAttributesAreLeftOut)
{
    north->offersData = false;
    Show({Sees(Offers(kProject, {L"South"})), Presses(IDCANCEL)});
    ExpectCalls(Projects() + Calls{"GetObjectById($7))"} + Found("$8)", "South") + Calls{"views.RemNext(1)"} +
                ListedSouth());
    Remains();
}

TEST_F(BookmarkedProjects, ThatAreAllWithoutAttributesAreNotDeleted)
{
    north->offersData = false;
    south->offersData = false;
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    ExpectCalls(Projects() + Calls{"GetObjectById($7))", "GetObjectById($8))", "views.RemNext(1)", kBox});
    Remains();
}

TEST_F(BookmarkedProjects, OneWithoutAttributesKeepsTheBrowsersKey)
{
    host.Query().Set(L"$7)", nullptr, S_FALSE);
    south->offersData = false;
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    ExpectCalls(Projects() + Purged("$7)") + Calls{"GetObjectById($8))", "views.RemNext(1)", kBox});
}

TEST_F(BookmarkedProjects, WithoutAnIdentifierAreLeftAlone)
{
    host.Store().Bookmark(L"$9", 0, L"Lost", L"tree");
    Show({Sees(Offers(kProject, {L"North", L"South"})), Presses(IDCANCEL)});
    ExpectCalls(BothProjects() + Calls{"GetObjectById()", "views.RemNext(1)"} + ListedNorth());
    EXPECT_EQ(Content().size(), 8u);
}

TEST_F(BookmarkedProjects, WithoutAnIdentifierGoWithTheLastProject)
{
    host.Store().Clear();
    host.Store().Bookmark(L"$9", 0, L"Lost", L"tree");
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    ExpectCalls(Projects() + Calls{"GetObjectById()", "views.RemNext(1)", kBrowserDeleted, kBox});
}

TEST_F(BookmarkedProjects, WhoseNameFailsAreListedWithoutOne)
{
    north->Fail(L"configured_name", E_FAIL);
    Show(
        {Sees(Offers(kProject, {L"", L"South"})), Sees(InColumn(0, {L"Drill", L"Weld"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkedProjects, AreNamedWhateverTheStatusOfTheName)
{
    north->Answer(L"configured_name", E_FAIL, XQPComVariant(L"Hall 1").Value());
    Show({Sees(Offers(kProject, {L"Hall 1", L"South"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkedProjects, OfTwoKeysAreTwoEntries)
{
    host.Store().Bookmark(L"North $7)", 0, L"Lost", L"tree");
    Show({Sees(Offers(kProject, {L"North", L"North", L"South"})), Sees(InColumn(0, {L"Drill", L"Weld"})),
          Chooses(kProject, 1), Sees(InColumn(0, {L"Drill", L"Weld"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkedProjects, AreNoneInAMessageOfNoWindow)
{
    host.Store().Clear();
    ExpectBox(kGoto, kNoProject);
    ShowNone();
    ASSERT_EQ(boxes.Shown().size(), 1u);
    const ShownBox& box = boxes.Shown().front();
    EXPECT_EQ(box.owner, nullptr) << "the dialog is not shown yet";
    EXPECT_EQ(box.buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONINFORMATION));
}

TEST_F(BookmarkedProjects, OfOneNameAreTwoEntries)
{
    south->Set(L"configured_name", L"North");
    Show({Sees(Offers(kProject, {L"North", L"North"})), Sees(InColumn(0, {L"Paint"})), Chooses(kProject, 1),
          Sees(InColumn(0, {L"Drill", L"Weld"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkedProjects, AreSortedByTheirNames)
{
    north->Set(L"configured_name", L"Zone");
    Show({Sees(Offers(kProject, {L"South", L"Zone"})), Sees(Chosen(kProject, L"South")),
          Sees(InColumn(0, {L"Paint"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkedProjects, ThatAreNotDeletedInTheStoreAreReported)
{
    host.Query().Set(L"$7)", nullptr, S_FALSE);
    host.Store().script.Set("DeleteKey", 1, Failed());
    Show({Sees(Offers(kProject, {L"South"})), Presses(IDCANCEL)});
    EXPECT_EQ(logBook.Entries(), Entries{StoreOf(300, kFailed,
                                                 "XBookmarkmanager: DeleteAllBookmarks                 "
                                                 "m_ptrSessionDataMng->DeleteKey failed")});
}
} // namespace
