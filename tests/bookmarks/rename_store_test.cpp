// Renaming a bookmark where the key store has other entries than the list shows, or does not answer.
#include "BookmarkFixture.h"
#include "BookmarkSteps.h"

namespace
{
using namespace bookmark_dialog;

const std::string kNames = "gotoitemname/$7):";
constexpr char kKey[] = "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): ";

class RenameInStore : public BookmarkFixture
{
protected:
    /// Renames "Weld" to "Assembly" after `change`, which happens when the list is filled. The list shows the
    /// new name in any case. `stored` tells whether it was written: the buttons are off then.
    void RenameAfter(std::function<void()> change, bool stored = true)
    {
        const auto state = stored ? &Disabled : &Enabled;
        EXPECT_EQ(Show(Steps{Selects(L"Weld"), TraceBegins(), [change](DialogView&) { change(); },
                             EditsLabel(1, L"Assembly"), Types("Return", NoLabelEdited())} +
                       SeesRows({L"Assembly", L"Drill"}, {L"Weld cell", L"Drill cell"}) +
                       Steps{Sees(state(kOpen)), Sees(state(kDelete)), Sees(Enabled(kDeleteAll)),
                             Presses(IDCANCEL)}),
                  S_OK);
    }

    /// A call of GetStringList by the rename: the first asks for the tree strings, the second for the names.
    void ScriptList(std::size_t call, const ScriptedCall& scripted)
    {
        host.Store().script.Clear();
        host.Store().script.Set("GetStringList", call, scripted);
    }

    /// The values of the project's names.
    using Lines = std::vector<std::string>;
    Lines Names(const Lines& values)
    {
        Lines lines;
        for (const std::string& value : values)
            lines.push_back(kKey + value);
        return lines;
    }
};
} // namespace

TEST_F(RenameInStore, TheValueNameIsThatOfTheSameEntry)
{
    host.Store().Clear();
    Bookmark(L"$7)", 1, L"Drill", L"$72)");
    Bookmark(L"$7)", 4, L"Weld", L"$71)");
    RenameAfter([] {});
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname1=Drill", "gotoitemname4=Assembly"}));
}

TEST_F(RenameInStore, TheFirstOfEqualTreeStringsIsRenamed)
{
    Bookmark(L"$7)", 2, L"Weld again", L"$71)");
    EXPECT_EQ(Show({Selects(L"Weld again"), TraceBegins(), EditsLabel(1, L"Assembly"),
                    Types("Return", NoLabelEdited()), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames),
              Names({"gotoitemname0=Assembly", "gotoitemname1=Drill", "gotoitemname2=Weld again"}));
}

TEST_F(RenameInStore, AnotherProjectHasItsOwnNames)
{
    EXPECT_EQ(Show({Chooses(kProject, L"South"), Selects(L"Paint"), TraceBegins(), EditsLabel(0, L"Colour"),
                    Types("Return", NoLabelEdited()), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill"}));
    EXPECT_EQ(Stored("gotoitemname/$8):"),
              Lines{"2 qpr-navigator/browserconfiguration1/gotoitemname/$8): gotoitemname0=Colour"});
}

TEST_F(RenameInStore, ATreeStringThatIsNotThereHasAValueWithoutAName)
{
    RenameAfter([&] { host.Store().Bookmark(L"$7)", 0, L"Moved", L"BrowserTree:$79);"); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Moved", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, TreeStringsAreComparedWithCase)
{
    RenameAfter([&] { host.Store().Bookmark(L"$7)", 0, L"Weld", L"browsertree:$71);"); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, AShorterListOfTreeStringsHasNoMatch)
{
    RenameAfter([&] { ScriptList(0, {.count = 0}); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, NoListOfTreeStringsHasNoMatch)
{
    RenameAfter([&] { ScriptList(0, {.givesNull = true}); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, ALongerListOfTreeStringsIsReadToItsEnd)
{
    RenameAfter([&] {
        host.Store().Bookmark(L"$7)", 0, L"Weld", L"BrowserTree:$79);");
        ScriptList(0, {.count = 40});
    });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, AShorterListOfNamesGivesAValueWithoutAName)
{
    RenameAfter([&] { ScriptList(1, {.count = 0}); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, NoListOfNamesGivesAValueWithoutAName)
{
    RenameAfter([&] { ScriptList(1, {.givesNull = true}); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, NamesThatCannotBeReadGiveAValueWithoutAName)
{
    RenameAfter([&] { ScriptList(1, Failed()); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill", "=Assembly"}));
}

TEST_F(RenameInStore, TreeStringsThatCannotBeReadChangeTheScreenOnly)
{
    RenameAfter([&] { ScriptList(0, Failed()); }, false);
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill"}));
}

TEST_F(RenameInStore, AWarningOfTheTreeStringsChangesTheScreenOnly)
{
    RenameAfter([&] { ScriptList(0, {.status = S_FALSE}); }, false);
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill"}));
}

TEST_F(RenameInStore, AWarningOfTheNamesDoesNotCount)
{
    RenameAfter([&] { ScriptList(1, {.status = S_FALSE}); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Assembly", "gotoitemname1=Drill"}));
}

TEST_F(RenameInStore, AProjectThatIsGoneFromTheStoreChangesTheScreenOnly)
{
    RenameAfter([&] { host.Store().Clear(); }, false);
    EXPECT_EQ(host.Store().Content(), Lines{});
}

TEST_F(RenameInStore, ANameThatCannotBeWrittenStaysOnTheScreen)
{
    RenameAfter([&] { host.Store().script.Set("SetValue", 0, Failed()); });
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Weld", "gotoitemname1=Drill"}));
}

TEST_F(RenameInStore, ABookmarkRenamedOnTheScreenOnlyCanBeRenamedAgain)
{
    EXPECT_EQ(Show({Selects(L"Weld"), [&](DialogView&) { ScriptList(0, Failed()); }, TraceBegins(),
                    EditsLabel(1, L"Assembly"), Types("Return", NoLabelEdited()), Selects(L"Assembly"),
                    EditsLabel(0, L"Zinc"), Types("Return", NoLabelEdited()),
                    Sees(InColumn(0, {L"Drill", L"Zinc"})), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names({"gotoitemname0=Zinc", "gotoitemname1=Drill"}));
}
