// Opening a bookmark in the navigator: by what means, which calls it makes, and the option to expand the
// browser.
#include "BookmarkFixture.h"

namespace
{
using namespace bookmark_dialog;

constexpr LONG kUserScope = 4;
constexpr LONG kDefaultScope = 3;
constexpr char kOption[] = "common: expandbrowser=";

class BookmarkOpens : public BookmarkFixture
{
protected:
    void SetOption(const MemoryValue& value)
    {
        host.Store().Set(kUserScope, L"common", L"expandbrowser", value);
    }
    void SetDefault(const MemoryValue& value)
    {
        host.Store().Set(kDefaultScope, L"option-configuration/common/expandbrowser", L"default", value);
    }

    /// The user's values of the option: during the call of the expander, and afterwards.
    using Lines = std::vector<std::string>;
    std::pair<Lines, Lines> OptionWhileOpening()
    {
        Lines during;
        host.Expander().onExpand = [&] {
            during = Stored(kOption);
        };
        Show({Selects(L"Weld"), TraceBegins(), Presses(kOpen)});
        host.Expander().onExpand = nullptr;
        return {during, Stored(kOption)};
    }

    /// Opens "Weld" with the user's option at that text; whether the store was changed.
    bool WritesOptionAt(const wchar_t* text)
    {
        SetOption(text);
        const std::vector<std::string> before = host.Store().Content();
        OptionWhileOpening();
        return host.Store().Content() != before;
    }

    /// What expanders got as the tree string of a bookmark on the object $71).
    void OpenTree(const wchar_t* tree)
    {
        host.Store().Clear();
        host.Store().Bookmark(L"$7)", 0, L"Weld", tree);
        SetOption(L"1");
        Show({Selects(L"Weld"), TraceBegins(), Presses(kOpen)});
    }
};

const std::pair<std::vector<std::string>, std::vector<std::string>> kForced{{"4 common: expandbrowser=1"},
                                                                            {"4 common: expandbrowser=0"}};
} // namespace

// By what means.

TEST_F(BookmarkOpens, ByItsButton)
{
    SetOption(L"1");
    EXPECT_EQ(Show({Selects(L"Weld"), TraceBegins(), Presses(kOpen)}), S_OK);
}

TEST_F(BookmarkOpens, ByADoubleClick)
{
    SetOption(L"1");
    EXPECT_EQ(Show({TraceBegins(), DoubleClicks(L"Drill")}), S_OK);
}

TEST_F(BookmarkOpens, ByEnterInTheList)
{
    SetOption(L"1");
    EXPECT_EQ(Show({Selects(L"Weld"), Sees(FocusOn(kList)), TraceBegins(), Types("Return")}), S_OK);
}

TEST_F(BookmarkOpens, ByEnterInTheBoxOfProjects)
{
    SetOption(L"1");
    EXPECT_EQ(Show({Selects(L"Weld"), [](DialogView& view) { view.GiveFocus(kProject); }, TraceBegins(),
                    Types("Return")}),
              S_OK);
}

TEST_F(BookmarkOpens, TheFirstOfSeveralRows)
{
    SetOption(L"1");
    EXPECT_EQ(
        Show({Selects(L"Drill"), Types("shift+Down"), TraceBegins(), Sees(Enabled(kOpen)), Presses(kOpen)}),
        S_OK);
}

TEST_F(BookmarkOpens, InTheProjectThatIsChosen)
{
    SetOption(L"1");
    EXPECT_EQ(Show({Chooses(kProject, L"South"), Selects(L"Paint"), TraceBegins(), Presses(kOpen)}), S_OK);
}

// Without a selected row.

TEST_F(BookmarkOpens, NothingByEnterWithoutARowAndTheDialogEnds)
{
    EXPECT_EQ(Show({Sees(NoRowSelected()), TraceBegins(), Types("Return")}), S_OK);
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(BookmarkOpens, NothingByItsButtonWithoutARow)
{
    EXPECT_EQ(Show({Selects(L"Weld"), Types("ctrl+space", NoRowSelected()), Sees(Enabled(kOpen)),
                    TraceBegins(), Presses(kOpen), Sees(RowCount(2)), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(BookmarkOpens, NothingByADoubleClickBesideTheRows)
{
    EXPECT_EQ(Show({Selects(L"Weld"), SelectsNone(), TraceBegins(),
                    [](DialogView& view) {
                        RECT area{};
                        GetClientRect(view.List(), &area);
                        const LPARAM point = MAKELPARAM(area.right - 3, area.bottom - 3);
                        PostMessageW(view.List(), WM_LBUTTONUP, 0, point);
                        SendMessageW(view.List(), WM_LBUTTONDBLCLK, MK_LBUTTON, point);
                    },
                    Sees(RowCount(2)), Presses(IDCANCEL)}),
              S_OK);
    EXPECT_EQ(host.calls, Calls{});
}

// The identifier in the tree string.

TEST_F(BookmarkOpens, TheIdentifierEndsWithTheFirstSemicolon)
{
    OpenTree(L"BrowserTree:$71)a;b;");
}

TEST_F(BookmarkOpens, ASemicolonBeforeTheIdentifierDoesNotCount)
{
    OpenTree(L"Brow;erTree:$71);");
}

TEST_F(BookmarkOpens, ASemicolonAtTheStartLeavesOnlyItself)
{
    host.Query().Set(L"", weld);
    OpenTree(L"BrowserTree:;71);");
}

TEST_F(BookmarkOpens, WithoutASemicolonTheIdentifierIsEmpty)
{
    host.Query().Set(L"", weld);
    OpenTree(L"BrowserTree:$71)");
}

TEST_F(BookmarkOpens, AnEmptyIdentifierFindsNothing)
{
    host.Store().Bookmark(L"$7)", 0, L"Weld", L"BrowserTree:$71)");
    ExpectBox(kGoto, kNoObject);
    EXPECT_EQ(
        Show({Selects(L"Weld"), TraceBegins(), Presses(kOpen), Sees(Selected(L"Weld")), Presses(IDCANCEL)}),
        S_OK);
}

// The option.

TEST_F(BookmarkOpens, WithTheOptionOnItIsNotWritten)
{
    for (const wchar_t* text : {L"1", L"-1", L"True", L"true", L"TRUE", L"7"})
        EXPECT_FALSE(WritesOptionAt(text)) << text;
}

TEST_F(BookmarkOpens, WithTheOptionOffItIsOnDuringTheCall)
{
    SetOption(L"0");
    EXPECT_EQ(OptionWhileOpening(), kForced);
}

TEST_F(BookmarkOpens, FalseInWordsIsOff)
{
    SetOption(L"False");
    EXPECT_EQ(OptionWhileOpening(), kForced);
}

TEST_F(BookmarkOpens, AnOptionThatIsNoFlagIsOff)
{
    for (const wchar_t* text : {L"", L"maybe", L"1 of 2"})
    {
        SetOption(text);
        EXPECT_EQ(OptionWhileOpening(), kForced) << text;
    }
}

TEST_F(BookmarkOpens, ADefaultOfTrueCountsWithoutAnOption)
{
    SetDefault(L"1");
    EXPECT_EQ(OptionWhileOpening(), std::pair(Lines{}, Lines{}));
}

TEST_F(BookmarkOpens, ADefaultOfFalseCountsWithoutAnOption)
{
    SetDefault(L"0");
    EXPECT_EQ(OptionWhileOpening(), kForced);
}

TEST_F(BookmarkOpens, WithoutAnyValueTheOptionIsOff)
{
    EXPECT_EQ(OptionWhileOpening(), kForced);
}

TEST_F(BookmarkOpens, TheOptionCountsBeforeItsDefault)
{
    SetOption(L"0");
    SetDefault(L"1");
    EXPECT_EQ(OptionWhileOpening(), kForced);
}

TEST_F(BookmarkOpens, AnOptionThatCannotBeReadIsThatOfTheDefault)
{
    SetOption(L"0");
    SetDefault(L"1");
    host.Store().script.Set("GetValue", 4, Failed());
    EXPECT_EQ(OptionWhileOpening(),
              std::pair(Lines{"4 common: expandbrowser=0"}, Lines{"4 common: expandbrowser=0"}));
}

TEST_F(BookmarkOpens, ADefaultThatCannotBeReadIsOff)
{
    SetDefault(L"1");
    host.Store().script.Set("GetValue", 5, Failed());
    EXPECT_EQ(OptionWhileOpening(), kForced);
}

TEST_F(BookmarkOpens, AnOptionThatCannotBeWrittenChangesNothing)
{
    SetOption(L"0");
    host.Store().script.Set("SetValue", 0, Failed());
    host.Store().script.Set("SetValue", 1, Failed());
    EXPECT_EQ(OptionWhileOpening(),
              std::pair(Lines{"4 common: expandbrowser=0"}, Lines{"4 common: expandbrowser=0"}));
}
