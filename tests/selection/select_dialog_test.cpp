// The choice among given objects: its result, and what the user sees.
#include "SelectDialogFixture.h"

namespace
{
// The result.

TEST_F(SelectDialog, TheObjectHasAReferenceForTheCaller)
{
    parameters.Entry(0, L"A", Of(a));
    const ULONG before = References(a);
    dialogs.OnDialog({Presses(IDOK)});
    IUnknown* selected = nullptr;
    EXPECT_EQ(dialog->ShowDialog(parameters.Count(), parameters.Values(), &selected), S_OK);
    EXPECT_EQ(selected, Of(a));
    EXPECT_EQ(References(a), before + 1);
    selected->Release();
}

TEST_F(SelectDialog, TheFirstRowIsTheLowestPointerAndIsSelected)
{
    resultFollowsAddresses = true;
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    const std::map<IUnknown*, std::string, std::less<>> byPointer = {
        {Of(a), "a"}, {Of(b), "b"}, {Of(c), "c"}};
    EXPECT_EQ(Show({Sees(RowSelected(0)), Presses(IDOK)}), byPointer.begin()->second);
}

TEST_F(SelectDialog, RowsFollowThePointersAndNothingElse)
{
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    const std::map<IUnknown*, std::wstring, std::less<>> byPointer = {
        {Of(a), L"A"}, {Of(b), L"B"}, {Of(c), L"C"}};
    Texts expected;
    for (const auto& [pointer, prompt] : byPointer)
        expected.push_back(prompt);
    Show({Sees(InColumn(0, expected)), Presses(IDCANCEL)});
}

TEST_F(SelectDialog, ADialogThatCannotBeShownWritesNothingAndSucceeds)
{
    parameters.Entry(0, L"A", Of(a));
    const ULONG before = References(a);
    IUnknown* selected = Untouched<IUnknown>();
    {
        const NoDialogs noDialogs;
        EXPECT_EQ(dialog->ShowDialog(parameters.Count(), parameters.Values(), &selected), S_OK);
    }
    EXPECT_EQ(selected, Untouched<IUnknown>());
    EXPECT_EQ(References(a), before);
}

TEST_F(SelectDialog, TheResultMayBeOmitted)
{
    parameters.Entry(0, L"A", Of(a));
    const ULONG before = References(a);
    dialogs.OnDialog({Presses(IDOK)});
    EXPECT_EQ(dialog->ShowDialog(parameters.Count(), parameters.Values(), nullptr), S_OK);
    EXPECT_EQ(References(a), before);
}

TEST_F(SelectDialog, NoObjectIsQueried)
{
    resultFollowsAddresses = true;
    host.recordingQueries = true;
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b));
    Show({Presses(IDOK)});
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(SelectDialog, EverythingIsReleased)
{
    resultFollowsAddresses = true;
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"again", Of(a));
    const ULONG before = References(a) + References(b);
    Show({Presses(IDOK)});
    Show({Presses(IDCANCEL)});
    EXPECT_EQ(References(a) + References(b), before);
}

// OK without a selection.

TEST_F(SelectDialog, OkWithoutASelectionShowsAMessageAndStays)
{
    parameters.Entry(0, L"A", Of(a));
    ExpectBox(L"Attention !", kNothingSelected);
    ExpectBox(L"Attention !", kNothingSelected);
    EXPECT_EQ(Show({SelectsNone(), Presses(IDOK), Presses(IDOK), Selects(0), Presses(IDOK)}), "a");
    EXPECT_EQ(boxes.Shown()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes.Shown()[0].icon, 0u);
}

TEST_F(SelectDialog, WithoutAUsableObjectItIsEmptyAndOnlyCancelCloses)
{
    parameters.Text(L"Prompt0", L"A").Text(L"Prompt1", L"B");
    ExpectBox(L"Attention !", kNothingSelected);
    ExpectBox(L"Attention !", kNothingSelected);
    EXPECT_EQ(Show({Sees(RowCount(0)), Presses(IDOK), Presses(IDOK), Presses(IDCANCEL)}), "untouched");
}

// What the user sees.

class SelectDialogView : public SelectDialog
{
protected:
    void LookAt(const Steps& look)
    {
        parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
        Show(look + Steps{Presses(IDCANCEL)});
    }
};

TEST_F(SelectDialogView, TheTitleIsTheCaptionAndEmptyWithoutOne)
{
    LookAt({Sees(Titled(L""))});
    parameters.Text(L"Caption", L"Which one?");
    Show({Sees(Titled(L"Which one?")), Presses(IDCANCEL)});
}

TEST_F(SelectDialogView, ACaptionThatIsNoTextIsConvertedIfItCanBe)
{
    parameters.Object(L"Caption", Of(a)).Text(L"Filler", L"");
    Show({Sees(Titled(L"")), Presses(IDCANCEL)});
}

TEST_F(SelectDialogView, TheListTakesThePositionOfTheFrame)
{
    LookAt({Sees(ListInPlaceOf(kFrame)), [](DialogView& view) {
                EXPECT_EQ(view.List(), view.Control(kList));
                EXPECT_EQ(view.Style(kList) & 0x50800008, 0x50800008u);
            }});
}

TEST_F(SelectDialogView, TheListHasAColumnOfNamesAndOneOfNoWidth)
{
    LookAt({[](DialogView& view) {
        EXPECT_EQ(view.Columns(kList),
                  (std::vector<ShownColumn>{{L"Name", Width(view.Rect(kFrame)) - 5}, {L"", 0}}));
        EXPECT_EQ(view.Column(kList, 1), (Texts{L"", L"", L""}));
    }});
}

TEST_F(SelectDialogView, TheColumnLeavesFivePixelsToTheFrameOfTheList)
{
    const FrameWidth frame(100);
    LookAt({[](DialogView& view) {
        EXPECT_EQ(Width(view.Rect(kList)), 100);
        EXPECT_EQ(view.Columns(kList)[0].width, 95);
    }});
}

TEST_F(SelectDialogView, TabGoesRoundTheVisibleControlsFromOk)
{
    parameters.Entry(0, L"A", Of(a));
    Show(GoesRound({IDOK, IDCANCEL, kList}) + Steps{Presses(IDCANCEL)});
}

TEST_F(SelectDialogView, BelongsToTheActiveWindowWhichIsDisabledMeanwhile)
{
    const OwnerWindow owner;
    SetActiveWindow(owner.get());
    LookAt({Sees(OwnedBy(owner.get())), Sees(OwnerDisabled())});
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

TEST_F(SelectDialogView, HasNoOwnerIfNoWindowIsActive)
{
    SetActiveWindow(nullptr);
    LookAt({Sees(OwnedBy(nullptr))});
}

TEST_F(SelectDialogView, ARowIsChosenWithoutAMouse)
{
    resultFollowsAddresses = true;
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    const std::string last =
        std::max({std::pair(Of(a), "a"), std::pair(Of(b), "b"), std::pair(Of(c), "c")}).second;
    EXPECT_EQ(Show({Types("shift+Tab"), Sees(RowSelected(0)), Types("Down", RowSelected(1)),
                    Types("Down", RowSelected(2)), Types("Return")}),
              last);
}

TEST_F(SelectDialogView, WithoutAListStaysOpenAndCanBeLeft)
{
    const NoLists noLists;
    parameters.Entry(0, L"A", Of(a)).Text(L"Caption", L"Which one?");
    ExpectBox(L"Attention !", kNothingSelected);
    EXPECT_EQ(Show({[](DialogView& view) { EXPECT_EQ(view.Title(), L"Dialog") << "no title was set"; },
                    Presses(IDOK), Presses(IDCANCEL)}),
              "untouched");
}
} // namespace
