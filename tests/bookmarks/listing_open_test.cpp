// The bookmarks of a project in the dialog: which calls list them, where they stand, and which are deleted
// because their objects are gone.
#include "ListingFixture.h"

namespace
{
using namespace bookmark_dialog;

class BookmarkListing : public ListingFixture
{
protected:
    /// A bookmark of North in place of the fixture's.
    void Only(std::initializer_list<std::pair<const wchar_t*, std::wstring>> entries)
    {
        host.Store().Clear();
        int number = 0;
        for (const auto& [name, tree] : entries)
            host.Store().Bookmark(L"$7)", number++, name, tree.c_str());
    }
    static std::wstring At(const wchar_t* id) { return MemoryHost::TreeString(id); }
};

TEST_F(BookmarkListing, MakesTheseCallsAndNoOthers)
{
    Show({Presses(IDCANCEL)});
    EXPECT_EQ(Called(), BothProjects() + Calls{"views.RemNext(1)"} + ListedNorth());
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkListing, OfAThousandMakesFourCallsForEach)
{
    constexpr int kCount = 1'000;
    host.Store().Clear();
    for (int number = 0; number < kCount; ++number)
        host.Store().Bookmark(L"$7)", number, (L"Weld " + std::to_wstring(number)).c_str(),
                              (At(L"$71)") + std::to_wstring(number)).c_str());
    Show({Sees(RowCount(kCount)), Presses(IDCANCEL)});
    const Calls once =
        Projects() + Found("$7)", "North") + Calls{"views.RemNext(1)"} + Fresh() + Read("$7)", 0);
    EXPECT_EQ(host.calls.size(), once.size() + 4 * kCount);
}

TEST_F(BookmarkListing, OfAnotherProjectMakesTheseCalls)
{
    EXPECT_EQ(During({Chooses(kProject, L"South"), Sees(InColumn(0, {L"Paint"})),
                      Sees(InColumn(1, {L"Paint cell"}))}),
              ListedSouth());
}

TEST_F(BookmarkListing, AsksInTheOrderOfTreeStringsAndShowsInThatOfNames)
{
    Only({{L"b", At(L"$72)")}, {L"a", At(L"$81)")}, {L"c", At(L"$71)")}});
    Show({Sees(InColumn(0, {L"a", L"b", L"c"})),
          Sees(InColumn(1, {L"Paint cell", L"Drill cell", L"Weld cell"})), Presses(IDCANCEL)});
    EXPECT_EQ(Called(), Projects() + Found("$7)", "North") + Calls{"views.RemNext(1)"} + Fresh() +
                            Read("$7)", 3) + Found("$71)", "Weld cell") + Found("$72)", "Drill cell") +
                            Found("$81)", "Paint cell"));
}

TEST_F(BookmarkListing, ShowsOneOfEqualTreeStrings)
{
    Only({{L"first", At(L"$71)")}, {L"second", At(L"$71)")}});
    Show({Sees(InColumn(0, {L"second"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkListing, CutsTheIdentifierAtTheFirstBracket)
{
    Only({{L"Weld", L"BrowserTree:$71)and;more);"}});
    EXPECT_EQ(During({Sees(InRow(0, {L"Weld", L"Weld cell"}))}), Calls{});
    EXPECT_EQ(Called().at(Called().size() - 2), "GetObjectById($71))");
}

TEST_F(BookmarkListing, ABracketBeforeTheIdentifierGivesAnEmptyOne)
{
    Only({{L"Weld", L"Browser)ree:$71);"}, {L"Drill", At(L"$72)")}});
    Show({Sees(InColumn(0, {L"Drill"})), Presses(IDCANCEL)});
    EXPECT_EQ(Content(),
              (Calls{"~/gotoitemname/$7): gotoitemname0=Drill", "~/gotoitemtree/$7): 0=BrowserTree:$72);"}));
}

TEST_F(BookmarkListing, DeletesOneWithoutABracket)
{
    Only({{L"Weld", L"BrowserTree:$71"}, {L"Drill", At(L"$72)")}});
    Show({Sees(InColumn(0, {L"Drill"})), Presses(IDCANCEL)});
    EXPECT_EQ(Called().at(Called().size() - 9), "GetObjectById()");
}

TEST_F(BookmarkListing, DeletesOneWhoseObjectIsUnknown)
{
    host.Query().Set(L"$71)", nullptr, S_FALSE);
    Show({Sees(InColumn(0, {L"Drill"})), Sees(InColumn(1, {L"Drill cell"})), Presses(IDCANCEL)});
    EXPECT_EQ(Called(), BothProjects() + Calls{"views.RemNext(1)"} + Fresh() + Read("$7)", 2) +
                            Calls{"GetObjectById($71))"} +
                            DeleteCalls("$7)", 1, "{gotoitemname0 = Drill}", "{0 = BrowserTree:$72);}") +
                            Found("$72)", "Drill cell"));
    EXPECT_EQ(Content(),
              (Calls{"~/gotoitemname/$7): gotoitemname0=Drill", "~/gotoitemname/$8): gotoitemname0=Paint",
                     "~/gotoitemtree/$7): 0=BrowserTree:$72);", "~/gotoitemtree/$8): 0=BrowserTree:$81);"}));
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkListing, DeletesOneWhoseObjectIsNull)
{
    host.Query().Set(L"$71)", nullptr, S_OK);
    Show({Sees(InColumn(0, {L"Drill"})), Presses(IDCANCEL)});
    EXPECT_EQ(Content().front(), "~/gotoitemname/$7): gotoitemname0=Drill");
}

TEST_F(BookmarkListing, DeletesOneWhoseObjectComesWithAnotherStatus)
{
    host.Query().Set(L"$71)", weld, S_FALSE);
    Show({Sees(InColumn(0, {L"Drill"})), Presses(IDCANCEL)});
    EXPECT_EQ(Content().front(), "~/gotoitemname/$7): gotoitemname0=Drill");
}

TEST_F(BookmarkListing, DeletesSeveralOneAfterTheOther)
{
    Only({{L"a", At(L"$1)")}, {L"b", At(L"$71)")}, {L"c", At(L"$2)")}, {L"d", At(L"$3)")}});
    Show({Sees(InColumn(0, {L"b"})), Sees(InColumn(1, {L"Weld cell"})), Presses(IDCANCEL)});
    EXPECT_EQ(Content(),
              (Calls{"~/gotoitemname/$7): gotoitemname0=b", "~/gotoitemtree/$7): 0=BrowserTree:$71);"}));
}

TEST_F(BookmarkListing, OfObjectsThatAreAllGoneKeepsTheProject)
{
    Only({{L"a", At(L"$1)")}, {L"b", At(L"$2)")}});
    Show({Sees(RowCount(0)), Sees(Chosen(kProject, L"North")), Sees(Enabled(kDeleteAll)),
          Sees(Disabled(kOpen)), Sees(Disabled(kDelete)), Presses(IDCANCEL)});
    EXPECT_EQ(Content(), (Calls{"~/gotoitemname/$7):", "~/gotoitemtree/$7):"}));
}

TEST_F(BookmarkListing, OfAProjectWithEmptyListsKeepsIt)
{
    Only({{L"a", At(L"$1)")}});
    Show({Presses(IDCANCEL)});
    Show({Sees(RowCount(0)), Sees(Offers(kProject, {L"North"})), Presses(IDCANCEL)});
    EXPECT_EQ(Called(),
              Projects() + Found("$7)", "North") + Calls{"views.RemNext(1)"} + Fresh() + Read("$7)", 0));
}

TEST_F(BookmarkListing, ShowsAnObjectWithoutAttributesWithoutAName)
{
    weld->offersData = false;
    Show(
        {Sees(InColumn(0, {L"Drill", L"Weld"})), Sees(InColumn(1, {L"Drill cell", L""})), Presses(IDCANCEL)});
    EXPECT_EQ(Content().size(), 6u);
}

TEST_F(BookmarkListing, ShowsAnObjectWhoseNameFailsWithoutAName)
{
    weld->Fail(L"configured_name", E_FAIL);
    Show(
        {Sees(InColumn(0, {L"Drill", L"Weld"})), Sees(InColumn(1, {L"Drill cell", L""})), Presses(IDCANCEL)});
}

TEST_F(BookmarkListing, ShowsTheNameWhateverItsStatus)
{
    weld->Answer(L"configured_name", E_FAIL, XQPComVariant(L"Cell 1").Value());
    Show({Sees(InColumn(1, {L"Drill cell", L"Cell 1"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkListing, ShowsABookmarkWithoutAName)
{
    host.Store().script.Set("GetValue", 1, Failed());
    Show({Sees(InColumn(0, {L"", L"Drill"})), Sees(InColumn(1, {L"Weld cell", L"Drill cell"})),
          Presses(IDCANCEL)});
}

TEST_F(BookmarkListing, OfAnotherProjectClearsTheRowsOfTheFirst)
{
    host.Store().Clear();
    Bookmark(L"$7)", 0, L"Weld", L"$71)");
    Bookmark(L"$8)", 0, L"Paint", L"$81)");
    Show({Sees(InColumn(0, {L"Weld"})), [&](DialogView&) { host.Query().Set(L"$81)", nullptr); },
          Chooses(kProject, L"South"), Sees(RowCount(0)), Chooses(kProject, L"North"),
          Sees(InColumn(0, {L"Weld"})), Presses(IDCANCEL)});
}

TEST_F(BookmarkListing, OfAnotherProjectAsksTheNewQuery)
{
    MemoryHost other;
    const ComPtr<MemoryObject> cell = other.Known(L"$81)", L"Other cell");
    During({[&](DialogView&) { host.Gateway().object = ComPtr<IUnknown>(&other.Query()); },
            Chooses(kProject, L"South"), Sees(InRow(0, {L"Paint", L"Other cell"}))});
    EXPECT_EQ(other.calls, Found("$81)", "Other cell"));
    host.Gateway().object.reset();
}

TEST_F(BookmarkListing, WithoutANewQueryAsksTheOneBefore)
{
    host.Gateway().script.Set("GetServerCOMObject", 3, Failed());
    EXPECT_EQ(During({Chooses(kProject, L"South"), Sees(InColumn(0, {L"Paint"}))}), ListedSouth());
    EXPECT_EQ(Content().size(), 6u);
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(BookmarkListing, WithANullQueryAsksTheOneBefore)
{
    host.Gateway().script.Set("GetServerCOMObject", 3, {.givesNull = true});
    host.Gateway().script.Set("GetClientIdByName", 3, Failed());
    Calls calls = ListedSouth();
    calls[1] = GetQuery(0);
    EXPECT_EQ(During({Chooses(kProject, L"South"), Sees(InColumn(0, {L"Paint"}))}), calls);
    EXPECT_EQ(Content().size(), 6u);
}

TEST_F(BookmarkListing, OfAProjectWhoseCountFailsShowsAndDeletesNothing)
{
    host.Store().script.Set("GetStringList", 0, Failed());
    Show({Sees(RowCount(0)), Sees(Enabled(kDeleteAll)), Presses(IDCANCEL)});
    EXPECT_EQ(Content().size(), 6u);
}
} // namespace
