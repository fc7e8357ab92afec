// The bookmark dialog in a made-up language that puts every text in brackets: exactly which texts are
// translated, and how often.
#include "BookmarkFixture.h"
#include "BookmarkSteps.h"

namespace
{
using namespace bookmark_dialog;

/// Before anything is translated in this program.
const bool kInBrackets = SetEnvironmentVariableW(L"QPTOOLS_LANG", L"qps") != 0;

/// The catalogue has it.
constexpr const wchar_t* kHostText = L"A host's text";

class BracketedBookmarks : public BookmarkFixture
{
protected:
    BracketedBookmarks() { EXPECT_TRUE(kInBrackets); }

    void ExpectBracketedBox(const std::wstring& title, const std::wstring& text, int answer = IDNO)
    {
        ExpectBox(L"[" + title + L"]", L"[" + text + L"]", answer);
    }
};
} // namespace

TEST_F(BracketedBookmarks, TranslatesItsTextsOnce)
{
    const Steps seesAll = {Sees(Titled(L"[Bookmark]")),
                           SeesTexts({L"[Select a Project]", L"[Select Bookmark Object]", L"[Open]",
                                      L"[Delete]", L"[Delete All]", L"[Close]"}),
                           Sees(Headings({L"[Bookmark Name]", L"[Component Name]"}))};
    EXPECT_EQ(Show(seesAll + Steps{Chooses(kProject, L"South"), ClicksHeading(0), ClicksHeading(1)} +
                   seesAll + Steps{TraceBegins(), Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(BracketedBookmarks, TranslatesItsQuestionsOnce)
{
    ExpectBracketedBox(kDeleteTitle, kDeleteOne);
    ExpectBracketedBox(kDeleteTitle, kDeleteSeveral);
    ExpectBracketedBox(kDeleteAllTitle,
                       L"Do you really want to delete all the bookmarks from the project ' North ' ?");
    EXPECT_EQ(Show({Selects(L"Drill"), TraceBegins(), Presses(kDelete), ClicksRow(L"Weld", MK_SHIFT),
                    Presses(kDelete), Presses(kDeleteAll), Presses(IDCANCEL)}),
              S_OK);
}

TEST_F(BracketedBookmarks, TranslatesItsMessagesOnce)
{
    ExpectBracketedBox(kGoto, kNoObject, IDOK);
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), [&](DialogView&) { weld->Fail(L"name", E_FAIL); },
                    Presses(kOpen), Presses(IDCANCEL)}),
              S_OK);
    host.Store().Clear();
    host.calls.clear();
    ExpectBracketedBox(kGoto, kNoProject, IDOK);
    EXPECT_EQ(bookmarks->ShowDialog(manager), S_OK);
}

TEST_F(BracketedBookmarks, TranslatesNoTextOfTheHost)
{
    host.Store().Clear();
    north->Set(L"configured_name", kHostText);
    weld->Set(L"configured_name", kHostText);
    Bookmark(L"$7)", 0, kHostText, L"$71)");
    ExpectBracketedBox(
        kDeleteAllTitle,
        L"Do you really want to delete all the bookmarks from the project ' A host's text ' ?");
    EXPECT_EQ(Show(Steps{TraceBegins(), Sees(Offers(kProject, {kHostText}))} +
                   SeesRows({kHostText}, {kHostText}) +
                   Steps{Selects(0), EditsLabel(0, L" A host's text"), Types("Return", NoLabelEdited())} +
                   SeesRows({kHostText}, {kHostText}) + Steps{Presses(kDeleteAll), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(Stored("gotoitemname/$7):"),
              (std::vector<std::string>{
                  "2 qpr-navigator/browserconfiguration1/gotoitemname/$7): gotoitemname0=A host's text"}));
}

TEST_F(BracketedBookmarks, KeepsTheNamesOfTheHost)
{
    host.Store().Set(4, L"common", L"expandbrowser", L"0");
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), Presses(kOpen)}), S_OK);
}
