// Sorting the list of bookmarks by its headings: orders, arrows, and the bookmarks behind the rows.
#include "BookmarkFixture.h"
#include "BookmarkSteps.h"

namespace
{
using namespace bookmark_dialog;

constexpr int kUp = 0x4400;
constexpr int kDown = 0x4200;
constexpr int kPlain = 0x4000;

/// Four bookmarks, whose names and components sort the opposite way.
class ListSort : public BookmarkFixture
{
protected:
    ListSort()
    {
        host.Store().Clear();
        weld->Set(L"configured_name", L"Cell 2");
        drill->Set(L"configured_name", L"Cell 4");
        paint->Set(L"configured_name", L"Cell 3");
        Bookmark(L"$7)", 0, L"Delta", L"$73)");
        Bookmark(L"$7)", 1, L"Bravo", L"$81)");
        Bookmark(L"$7)", 2, L"Alpha", L"$72)");
        Bookmark(L"$7)", 3, L"Charlie", L"$71)");
        host.Store().Set(4, L"common", L"expandbrowser", L"1");
    }

    static Steps ByName(bool ascending)
    {
        return ascending ? SeesRows({L"Alpha", L"Bravo", L"Charlie", L"Delta"},
                                    {L"Cell 4", L"Cell 3", L"Cell 2", L"Cell 1"})
                         : SeesRows({L"Delta", L"Charlie", L"Bravo", L"Alpha"},
                                    {L"Cell 1", L"Cell 2", L"Cell 3", L"Cell 4"});
    }

    static DialogStep SeesArrows(int first, int second)
    {
        return {"sees the arrows", [=](DialogView& view) {
                    int formats[2] = {};
                    for (const WPARAM column : {0, 1})
                    {
                        HDITEMW heading{};
                        heading.mask = HDI_FORMAT;
                        SendMessageW(HeaderOf(view), HDM_GETITEMW, column,
                                     reinterpret_cast<LPARAM>(&heading));
                        formats[column] = heading.fmt;
                    }
                    EXPECT_EQ(formats[0], first);
                    EXPECT_EQ(formats[1], second);
                }};
    }

    void See(const Steps& steps)
    {
        EXPECT_EQ(Show(Steps{TraceBegins()} + steps + Steps{Presses(IDCANCEL)}), S_OK);
    }

    const ComPtr<MemoryObject> press = host.Known(L"$73)", L"Cell 1");
};
} // namespace

TEST_F(ListSort, IsAscendingByNameAndWithoutArrowsAtFirst)
{
    See(ByName(true) + Steps{SeesArrows(kPlain, kPlain)});
}

TEST_F(ListSort, TheFirstClickIsDescendingTheSecondAscending)
{
    See(Steps{ClicksHeading(0)} + ByName(false) + Steps{SeesArrows(kDown, kPlain), ClicksHeading(0)} +
        ByName(true) + Steps{SeesArrows(kUp, kPlain), ClicksHeading(0)} + ByName(false) +
        Steps{SeesArrows(kDown, kPlain)});
}

TEST_F(ListSort, ByComponentsInBothDirections)
{
    See(Steps{ClicksHeading(1)} + ByName(true) + Steps{SeesArrows(kPlain, kDown), ClicksHeading(1)} +
        ByName(false) + Steps{SeesArrows(kPlain, kUp)});
}

TEST_F(ListSort, BothColumnsShareOneDirection)
{
    See(Steps{ClicksHeading(0)} + ByName(false) + Steps{ClicksHeading(1)} + ByName(false) +
        Steps{SeesArrows(kPlain, kUp), ClicksHeading(0)} + ByName(false) + Steps{SeesArrows(kDown, kPlain)});
}

/// As a header may tell of an item that is neither of the two.
TEST_F(ListSort, ByAnotherColumnLeavesTheRowsAndTurnsTheDirection)
{
    const DialogStep tellsOfAnother = [](DialogView& view) {
        NMHEADERW told{};
        told.hdr = {HeaderOf(view), 0, HDN_ITEMCLICKW};
        told.iItem = 2;
        EXPECT_EQ(SendMessageW(view.List(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&told)), 0);
    };
    See(Steps{ClicksHeading(0), tellsOfAnother} + ByName(false) + Steps{tellsOfAnother} + ByName(false) +
        Steps{SeesArrows(kPlain, kPlain), ClicksHeading(0)} + ByName(true));
}

TEST_F(ListSort, TheDirectionIsForgottenWithTheDialog)
{
    See({ClicksHeading(0)});
    See(Steps{SeesArrows(kPlain, kPlain), ClicksHeading(0)} + ByName(false));
}

TEST_F(ListSort, EqualRowsKeepTheirOrder)
{
    for (const ComPtr<MemoryObject>& object : {weld, drill, paint, press})
        object->Set(L"configured_name", L"Cell");
    const Texts four(4, L"Cell");
    const Texts up{L"Alpha", L"Bravo", L"Charlie", L"Delta"};
    const Texts down{L"Delta", L"Charlie", L"Bravo", L"Alpha"};
    See(Steps{ClicksHeading(1)} + SeesRows(up, four) + Steps{ClicksHeading(1)} + SeesRows(up, four) +
        Steps{ClicksHeading(0)} + SeesRows(down, four) + Steps{ClicksHeading(1)} + SeesRows(down, four));
}

TEST_F(ListSort, EqualNamesAreSortedByComponents)
{
    host.Store().Clear();
    Bookmark(L"$7)", 0, L"Cell", L"$71)");
    Bookmark(L"$7)", 1, L"Cell", L"$72)");
    Bookmark(L"$7)", 2, L"Cell", L"$81)");
    See(Steps{ClicksHeading(1), Sees(InColumn(1, {L"Cell 4", L"Cell 3", L"Cell 2"})), ClicksHeading(1),
              Sees(InColumn(1, {L"Cell 2", L"Cell 3", L"Cell 4"})), ClicksHeading(0),
              Sees(InColumn(1, {L"Cell 2", L"Cell 3", L"Cell 4"}))});
}

TEST_F(ListSort, AnEmptyListTakesTheArrow)
{
    host.Query().Set(L"$73)", nullptr, E_FAIL);
    host.Store().Clear();
    Bookmark(L"$7)", 0, L"Delta", L"$73)");
    See({Sees(RowCount(0)), ClicksHeading(1), SeesArrows(kPlain, kDown)});
}

TEST_F(ListSort, TheSelectionStaysWithItsBookmark)
{
    See({Selects(L"Bravo"), ClicksHeading(0), Sees(Selected(L"Bravo")), Sees(RowSelected(2)),
         Sees(Enabled(kOpen)), Sees(Enabled(kDelete))});
}

TEST_F(ListSort, AClickOnAHeadingEndsTheEditingOfALabel)
{
    See(Steps{Selects(L"Alpha"), EditsLabel(0, L"Echo"), ClicksHeading(0), ClicksHeading(0),
              Sees(InColumn(0, {L"Bravo", L"Charlie", L"Delta", L"Echo"})), Sees(NoLabelEdited())});
}

// The bookmarks behind the rows.

TEST_F(ListSort, EachRowOpensItsOwnBookmark)
{
    for (const wchar_t* name : {L"Alpha", L"Bravo", L"Charlie", L"Delta"})
        EXPECT_EQ(Show({ClicksHeading(0), ClicksHeading(1), ClicksHeading(1), TraceBegins(), Selects(name),
                        Presses(kOpen)}),
                  S_OK);
}

TEST_F(ListSort, ARenamedRowIsFoundAndDeletedAfterSorting)
{
    ExpectBox(kDeleteTitle, kDeleteOne, IDYES);
    EXPECT_EQ(Show({ClicksHeading(0), TraceBegins(), Selects(L"Charlie"), EditsLabel(1, L"Echo"),
                    Types("Return", NoLabelEdited()),
                    [](DialogView& view) {
                        const Texts names = view.Column(view.List(), 0);
                        const Texts components = view.Column(view.List(), 1);
                        for (std::size_t row = 0; row < names.size(); ++row)
                            EXPECT_EQ(components[row] == L"Cell 2", names[row] == L"Echo") << row;
                    },
                    ClicksHeading(0), Sees(InColumn(0, {L"Alpha", L"Bravo", L"Delta", L"Echo"})),
                    Sees(InColumn(1, {L"Cell 4", L"Cell 3", L"Cell 1", L"Cell 2"})), Selects(L"Echo"),
                    Presses(kDelete), ClicksHeading(1), ClicksHeading(1),
                    Sees(InColumn(0, {L"Delta", L"Bravo", L"Alpha"})), Selects(L"Bravo"), Presses(kOpen)}),
              S_OK);
    EXPECT_EQ(Stored("gotoitemtree/$7):"),
              (std::vector<std::string>{
                  "2 qpr-navigator/browserconfiguration1/gotoitemtree/$7): 0=BrowserTree:$73);",
                  "2 qpr-navigator/browserconfiguration1/gotoitemtree/$7): 1=BrowserTree:$81);",
                  "2 qpr-navigator/browserconfiguration1/gotoitemtree/$7): 2=BrowserTree:$72);"}));
}

TEST_F(ListSort, SeveralRowsAreDeletedAfterSorting)
{
    ExpectBox(kDeleteTitle, kDeleteSeveral, IDYES);
    EXPECT_EQ(Show({ClicksHeading(0), TraceBegins(), Selects(L"Delta"), ClicksRow(L"Bravo", MK_CONTROL),
                    Presses(kDelete), Sees(InColumn(0, {L"Charlie", L"Alpha"})),
                    Sees(InColumn(1, {L"Cell 2", L"Cell 4"})), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored("gotoitemname/$7):"),
              (std::vector<std::string>{
                  "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname0=Alpha",
                  "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname1=Charlie"}));
}
