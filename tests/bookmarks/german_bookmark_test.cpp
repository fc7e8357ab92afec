// The bookmark dialog before a user who reads German: what is its own follows the language, what is the
// host's stays.
#include "BookmarkFixture.h"
#include "BookmarkSteps.h"

namespace
{
using namespace bookmark_dialog;

/// Before anything is translated in this program.
const bool kInGerman = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de") != 0;

constexpr wchar_t kGermanGoto[] = L"Gehe zu";
constexpr wchar_t kGermanDelete[] = L"Lesezeichen l\u00F6schen";

class GermanBookmarks : public BookmarkFixture
{
protected:
    GermanBookmarks() { EXPECT_TRUE(kInGerman); }
};
} // namespace

TEST_F(GermanBookmarks, TranslatesItsTexts)
{
    EXPECT_EQ(Show({TraceBegins(), Sees(Titled(L"Lesezeichen")),
                    SeesTexts({L"Projekt", L"Lesezeichen des Projekts", L"\u00D6ffnen", L"L\u00F6schen",
                               L"Alle l\u00F6schen", L"Schlie\u00DFen"}),
                    Sees(Headings({L"Lesezeichen", L"Komponente"})), Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(GermanBookmarks, AsksBeforeItDeletesOne)
{
    ExpectBox(kGermanDelete, L"M\u00F6chten Sie dieses Lesezeichen wirklich l\u00F6schen?", IDNO);
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), Presses(kDelete), Presses(IDCANCEL)}), S_OK);
}

TEST_F(GermanBookmarks, AsksBeforeItDeletesSeveral)
{
    ExpectBox(kGermanDelete, L"M\u00F6chten Sie diese Lesezeichen wirklich l\u00F6schen?", IDNO);
    EXPECT_EQ(Show({Selects(L"Drill"), ClicksRow(L"Weld", MK_SHIFT), TraceBegins(), Presses(kDelete),
                    Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(GermanBookmarks, AsksBeforeItDeletesAll)
{
    ExpectBox(L"Alle Lesezeichen l\u00F6schen ",
              L"M\u00F6chten Sie wirklich alle Lesezeichen des Projekts \u201ENorth\u201C l\u00F6schen?",
              IDNO);
    EXPECT_EQ(Show({TraceBegins(), Presses(kDeleteAll), Presses(IDCANCEL)}), S_OK);
}

TEST_F(GermanBookmarks, TellsThatAnObjectIsGone)
{
    ExpectBox(kGermanGoto, L"Das Objekt existiert nicht mehr.");
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), [&](DialogView&) { weld->Fail(L"name", E_FAIL); },
                    Presses(kOpen), Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(GermanBookmarks, TellsThatNoProjectIsLeft)
{
    host.Store().Clear();
    ExpectBox(kGermanGoto, L"Es gibt kein Projekt mit Lesezeichen mehr.");
    EXPECT_EQ(bookmarks->ShowDialog(manager), S_OK);
}

/// All of these are texts that the catalogue has.
TEST_F(GermanBookmarks, TranslatesNoTextOfTheHost)
{
    host.Store().Clear();
    north->Set(L"configured_name", L"Close");
    weld->Set(L"configured_name", L"Open");
    Bookmark(L"$7)", 0, L"Delete All", L"$71)");
    EXPECT_EQ(
        Show(Steps{TraceBegins(), Sees(Offers(kProject, {L"Close"}))} + SeesRows({L"Delete All"}, {L"Open"}) +
             Steps{Selects(L"Delete All"), EditsLabel(0, L"Bookmark"), Types("Return", NoLabelEdited())} +
             SeesRows({L"Bookmark"}, {L"Open"}) + Steps{Presses(IDCANCEL)}),
        S_OK);
    EXPECT_EQ(Stored("gotoitemname/$7):"),
              (std::vector<std::string>{
                  "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname0=Bookmark"}));
}

TEST_F(GermanBookmarks, ShowsNamesThatAreHardToShow)
{
    const std::wstring longName = std::wstring(250, L'M') + L" Ende";
    const std::wstring chinese = L"\u5207\u524A\u30C9\u30EA\u30EB\uAC00\uACF5";
    const std::wstring rightToLeft = L"\u05D1\u05D3\u05D9\u05E7\u05D4 (2) \u202E!";
    north->Set(L"configured_name", rightToLeft.c_str());
    weld->Set(L"configured_name", chinese.c_str());
    Bookmark(L"$7)", 0, longName.c_str(), L"$71)");
    Bookmark(L"$7)", 1, L"\u00C4pfel & B\u00FCrsten", L"$72)");
    EXPECT_EQ(
        Show({Chooses(kProject, rightToLeft), TraceBegins(), Selects(longName),
              [&](DialogView& view) {
                  EXPECT_EQ(view.Row(view.List(), view.SelectedRow(view.List())), (Texts{longName, chinese}));
              },
              Selects(L"\u00C4pfel & B\u00FCrsten"), Presses(IDCANCEL)}),
        S_OK);
}
