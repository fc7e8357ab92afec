// Renaming a bookmark in the list: how it begins and ends, and what the list shows afterwards.
#include "BookmarkFixture.h"
#include "BookmarkSteps.h"

namespace
{
using namespace bookmark_dialog;

const std::string kNames = "gotoitemname/$7):";

/// The names of the first project as the store has them.
std::vector<std::string> Names(const std::string& first, const std::string& second)
{
    const std::string key = "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname";
    return {key + "0=" + first, key + "1=" + second};
}

class BookmarkRename : public BookmarkFixture
{
protected:
    /// Renames "Weld", the second row, by these characters and Enter.
    Steps Renames(const std::wstring& typed)
    {
        return {Selects(L"Weld"), TraceBegins(), EditsLabel(1, typed), Types("Return", NoLabelEdited())};
    }

    /// "Weld" is called `name` now, on the screen and in the store.
    void ExpectRenamed(const Steps& steps, const std::wstring& name)
    {
        EXPECT_EQ(Show(steps + SeesRows({name, L"Drill"}, {L"Weld cell", L"Drill cell"}) +
                       Steps{Sees(NoRowSelected()), Sees(Disabled(kOpen)), Sees(Disabled(kDelete)),
                             Sees(Enabled(kDeleteAll)), Presses(IDCANCEL)}),
                  S_OK);
        EXPECT_EQ(Stored(kNames), Names(Utf8Of(XQPComBSTR(name.c_str())), "Drill"));
    }

    /// Selects a row or none, while its label is edited: a click would end that.
    static void SetSelected(const DialogView& view, int row, bool selected)
    {
        LVITEMW item{};
        item.state = selected ? LVIS_SELECTED : 0;
        item.stateMask = LVIS_SELECTED;
        SendMessageW(view.List(), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
    }

    /// Nothing is renamed by the steps, which select "Weld" first.
    void ExpectSame(const Steps& steps)
    {
        EXPECT_EQ(Show(steps + SeesRows({L"Drill", L"Weld"}, {L"Drill cell", L"Weld cell"}) +
                       Steps{Sees(Selected(L"Weld")), Sees(Enabled(kOpen)), Sees(Enabled(kDelete)),
                             Presses(IDCANCEL)}),
                  S_OK);
        EXPECT_EQ(host.calls, Calls{});
        EXPECT_EQ(Stored(kNames), Names("Weld", "Drill"));
    }
};
} // namespace

// How it begins.

TEST_F(BookmarkRename, ByALabelThatIsEdited)
{
    ExpectRenamed(Renames(L"Assembly"), L"Assembly");
}

TEST_F(BookmarkRename, ByF2OnTheSelectedRow)
{
    ExpectRenamed({Selects(L"Weld"), TraceBegins(), Types("F2", LabelEdited(L"Weld")),
                   TypesLabel(L"Assembly"), Types("Return", NoLabelEdited())},
                  L"Assembly");
}

TEST_F(BookmarkRename, ByF2OnTheFirstOfSeveralRows)
{
    EXPECT_EQ(Show({Selects(L"Weld"), Types("shift+Up", SelectedCount(2)), TraceBegins(),
                    Types("F2", LabelEdited(L"Drill")), TypesLabel(L"Bore"), Types("Return", NoLabelEdited()),
                    Sees(InColumn(0, {L"Bore", L"Weld"})), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names("Weld", "Bore"));
}

/// The first selected row is renamed, whichever label is edited.
TEST_F(BookmarkRename, OfTwoSelectedRowsTheFirstIsRenamed)
{
    EXPECT_EQ(Show(Steps{Selects(L"Weld"), TraceBegins(), EditsLabel(1, L"Zinc"),
                         [](DialogView& view) { SetSelected(view, 0, true); }, Sees(SelectedCount(2)),
                         Types("Return", NoLabelEdited())} +
                   SeesRows({L"Weld", L"Zinc"}, {L"Weld cell", L"Drill cell"}) + Steps{Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names("Weld", "Zinc"));
}

TEST_F(BookmarkRename, WithoutASelectedRowNothingIsRenamed)
{
    EXPECT_EQ(Show(Steps{Selects(L"Weld"), TraceBegins(), EditsLabel(1, L"Assembly"),
                         [](DialogView& view) { SetSelected(view, 1, false); }, Sees(NoRowSelected()),
                         Types("Return", NoLabelEdited())} +
                   SeesRows({L"Drill", L"Weld"}, {L"Drill cell", L"Weld cell"}) + Steps{Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(BookmarkRename, WithoutAnEditorNothingIsRenamed)
{
    ExpectSame({Selects(L"Weld"), TraceBegins(), Sees(NoLabelEdited()), [](DialogView& view) {
                    std::wstring name = L"Assembly";
                    NMLVDISPINFOW told{};
                    told.hdr = {view.List(), static_cast<UINT_PTR>(kList), LVN_ENDLABELEDITW};
                    told.item.iItem = 1;
                    told.item.pszText = name.data();
                    EXPECT_EQ(SendMessageW(view.Window(), WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&told)),
                              0);
                }});
}

TEST_F(BookmarkRename, F2WithoutARowEditsNothing)
{
    EXPECT_EQ(Show({Selects(L"Weld"), SelectsNone(), TraceBegins(), Types("F2"), Sees(NoLabelEdited()),
                    Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(BookmarkRename, OtherKeysDoNothing)
{
    ExpectSame({Selects(L"Weld"), TraceBegins(), Types("F4"), Types("BackSpace"), Sees(NoLabelEdited())});
}

// What is typed.

TEST_F(BookmarkRename, BlanksAroundTheNameAreRemoved)
{
    ExpectRenamed(Renames(L"  Assembly hall 2   "), L"Assembly hall 2");
}

TEST_F(BookmarkRename, ABlankNameIsIgnored)
{
    ExpectSame(Renames(L"   "));
}

TEST_F(BookmarkRename, AnEmptyNameIsIgnored)
{
    ExpectSame({Selects(L"Weld"), TraceBegins(), Types("F2", LabelEdited(L"Weld")), TypesLabel(L""),
                Types("Return", NoLabelEdited())});
}

TEST_F(BookmarkRename, TheSameNameIsWrittenAgain)
{
    EXPECT_EQ(Show(Renames(L" Weld") + SeesRows({L"Drill", L"Weld"}, {L"Drill cell", L"Weld cell"}) +
                   Steps{Sees(NoRowSelected()), Sees(Disabled(kOpen)), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names("Weld", "Drill"));
}

TEST_F(BookmarkRename, TwoBookmarksMayHaveOneName)
{
    EXPECT_EQ(Show(Renames(L"Drill") + Steps{Sees(InColumn(0, {L"Drill", L"Drill"})), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names("Drill", "Drill"));
}

TEST_F(BookmarkRename, ChineseAndKorean)
{
    EXPECT_EQ(
        Show(Renames(L"\u5207\u524A\u30C9\u30EA\u30EB\uAC00") +
             SeesRows({L"Drill", L"\u5207\u524A\u30C9\u30EA\u30EB\uAC00"}, {L"Drill cell", L"Weld cell"}) +
             Steps{Presses(IDCANCEL)}),
        S_OK);
    EXPECT_EQ(Stored(kNames), Names("\u5207\u524A\u30C9\u30EA\u30EB\uAC00", "Drill"));
}

TEST_F(BookmarkRename, RightToLeft)
{
    EXPECT_EQ(
        Show(Renames(L"\u05D1\u05D3\u05D9\u05E7\u05D4 (2)") +
             SeesRows({L"Drill", L"\u05D1\u05D3\u05D9\u05E7\u05D4 (2)"}, {L"Drill cell", L"Weld cell"}) +
             Steps{Presses(IDCANCEL)}),
        S_OK);
    EXPECT_EQ(Stored(kNames), Names("\u05D1\u05D3\u05D9\u05E7\u05D4 (2)", "Drill"));
}

TEST_F(BookmarkRename, AVeryLongName)
{
    ExpectRenamed(Renames(std::wstring(250, L'A') + L" end"), std::wstring(250, L'A') + L" end");
}

TEST_F(BookmarkRename, MarksOfFormatsAndKeysAreText)
{
    ExpectRenamed(Renames(L"%s %d $7);"), L"%s %d $7);");
}

// How it ends.

TEST_F(BookmarkRename, EscapeLeavesTheNameAndTheDialogOpen)
{
    ExpectSame({Selects(L"Weld"), TraceBegins(), EditsLabel(1, L"Assembly"), Types("Escape", NoLabelEdited()),
                Sees(FocusOn(kList))});
}

TEST_F(BookmarkRename, EnterEndsTheEditingAndNotTheDialog)
{
    EXPECT_EQ(Show(Renames(L"Assembly") + Steps{Sees(FocusOn(kList)), Presses(IDCANCEL)}), S_OK);
}

TEST_F(BookmarkRename, AnotherControlWithTheFocusEndsItAsEnterDoes)
{
    ExpectRenamed({Selects(L"Weld"), TraceBegins(), EditsLabel(1, L"Assembly"),
                   [](DialogView& view) { view.GiveFocus(kProject); }, Sees(NoLabelEdited())},
                  L"Assembly");
}

TEST_F(BookmarkRename, AClickOnAnotherRowEndsItAsEnterDoes)
{
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), EditsLabel(1, L"Assembly"), Selects(L"Drill"),
                    Sees(NoLabelEdited()), Sees(InColumn(0, {L"Assembly", L"Drill"})), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names("Assembly", "Drill"));
}

TEST_F(BookmarkRename, CloseTakesTheNameThatIsBeingTyped)
{
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), EditsLabel(1, L"Assembly"), Presses(IDCANCEL)}), S_OK);
    EXPECT_EQ(Stored(kNames), Names("Assembly", "Drill"));
}

TEST_F(BookmarkRename, AnotherProjectLeavesTheNameInItsOwn)
{
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), EditsLabel(1, L"Assembly"), Chooses(kProject, L"South"),
                    Sees(InColumn(0, {L"Paint"})), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names("Assembly", "Drill"));
}

// Afterwards.

TEST_F(BookmarkRename, TheFirstRowMovesToItsPlaceByName)
{
    EXPECT_EQ(Show(Steps{Selects(L"Drill"), TraceBegins(), EditsLabel(0, L"Zinc"),
                         Types("Return", NoLabelEdited())} +
                   SeesRows({L"Weld", L"Zinc"}, {L"Weld cell", L"Drill cell"}) +
                   Steps{Sees(NoRowSelected()), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored(kNames), Names("Weld", "Zinc"));
}

TEST_F(BookmarkRename, TheFirstRowStaysFirstIfItsNameSortsFirst)
{
    EXPECT_EQ(Show(Steps{Selects(L"Drill"), TraceBegins(), EditsLabel(0, L"Bore"),
                         Types("Return", NoLabelEdited())} +
                   SeesRows({L"Bore", L"Weld"}, {L"Drill cell", L"Weld cell"}) + Steps{Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(BookmarkRename, TheProjectListsTheNewNameWhenItIsChosenAgain)
{
    EXPECT_EQ(Show(Renames(L"Assembly") + Steps{Chooses(kProject, L"South"), Chooses(kProject, L"North")} +
                   SeesRows({L"Assembly", L"Drill"}, {L"Weld cell", L"Drill cell"}) +
                   Steps{Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(BookmarkRename, EnterOpensNothingBecauseNoRowIsSelected)
{
    EXPECT_EQ(Show(Renames(L"Assembly") + Steps{TraceBegins(), Types("Return")}), S_OK);
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(BookmarkRename, ABookmarkIsRenamedOpenedAndDeletedUnderEachName)
{
    host.Store().Set(4, L"common", L"expandbrowser", L"1");
    ExpectBox(kGoto, kNoObject);
    ExpectBox(kDeleteTitle, kDeleteOne, IDYES);
    EXPECT_EQ(Show(Renames(L"Assembly") +
                   Steps{Selects(L"Assembly"), EditsLabel(0, L"Zinc"), Types("Return", NoLabelEdited()),
                         Selects(L"Zinc"), [&](DialogView&) { weld->Fail(L"name", E_FAIL); }, Presses(kOpen),
                         Presses(kDelete)} +
                   SeesRows({L"Drill"}, {L"Drill cell"}) + Steps{Selects(L"Drill"), Presses(kOpen)}),
              S_OK);
    EXPECT_EQ(Stored("goto"),
              (std::vector<std::string>{
                  "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname0=Drill",
                  "2 qpr-navigator/browserconfiguration1/gotoitemname/$8): gotoitemname0=Paint",
                  "2 qpr-navigator/browserconfiguration1/gotoitemtree/$7): 0=BrowserTree:$72);",
                  "2 qpr-navigator/browserconfiguration1/gotoitemtree/$8): 0=BrowserTree:$81);"}));
}
