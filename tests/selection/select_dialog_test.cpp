// The choice among given objects: what comes back, and what the user sees.
#include "SelectDialogFixture.h"

namespace
{
// What comes back.

TEST_F(SelectDialog, OkGivesTheObjectOfTheSelectedRow)
{
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    for (const auto& [prompt, name] :
         std::map<std::wstring, std::string>{{L"A", "a"}, {L"B", "b"}, {L"C", "c"}})
    {
        const auto select = [&, wanted = prompt](DialogView& view) {
            const Texts rows = Column(view, 0);
            view.SelectRow(kList,
                           static_cast<int>(std::find(rows.begin(), rows.end(), wanted) - rows.begin()));
        };
        EXPECT_EQ(Show({select, Presses(IDOK)}), name);
    }
}

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

TEST_F(SelectDialog, TheFirstRowIsSelectedFromTheStartAndIsTheObjectWithTheLowestPointer)
{
    resultFollowsAddresses = true;
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    const std::map<IUnknown*, std::string, std::less<>> byPointer = {
        {Of(a), "a"}, {Of(b), "b"}, {Of(c), "c"}};
    EXPECT_EQ(Show({[](DialogView& view) { EXPECT_EQ(view.SelectedRow(kList), 0); }, Presses(IDOK)}),
              byPointer.begin()->second);
}

TEST_F(SelectDialog, RowsFollowThePointersAndNothingElse)
{
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    const std::map<IUnknown*, std::wstring, std::less<>> byPointer = {
        {Of(a), L"A"}, {Of(b), L"B"}, {Of(c), L"C"}};
    Texts expected;
    for (const auto& [pointer, prompt] : byPointer)
        expected.push_back(prompt);
    Show({[&](DialogView& view) { EXPECT_EQ(Column(view, 0), expected); }, Presses(IDCANCEL)});
}

TEST_F(SelectDialog, AnyOtherEndWritesNothingAndIsNoFailure)
{
    parameters.Entry(0, L"A", Of(a));
    EXPECT_EQ(Show({Presses(IDCANCEL)}), "untouched");
    EXPECT_EQ(Show({Types(VK_ESCAPE)}), "untouched");
    EXPECT_EQ(Show({[](DialogView& view) {
                  view.Close();
              }}),
              "untouched");
}

TEST_F(SelectDialog, ADialogThatCannotBeShownWritesNothingAndIsNoFailure)
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

TEST_F(SelectDialog, TheResultMayBeLeftOut)
{
    parameters.Entry(0, L"A", Of(a));
    const ULONG before = References(a);
    dialogs.OnDialog({Presses(IDOK)});
    EXPECT_EQ(dialog->ShowDialog(parameters.Count(), parameters.Values(), nullptr), S_OK);
    EXPECT_EQ(References(a), before);
}

TEST_F(SelectDialog, NoObjectIsAskedAnything)
{
    resultFollowsAddresses = true;
    host.recordingQueries = true;
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b));
    Show({Presses(IDOK)});
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(logBook.Entries(), Entries{});
}

TEST_F(SelectDialog, EverythingIsGivenBack)
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
    const auto select = [](DialogView& view) {
        view.SelectRow(kList, 0);
    };
    EXPECT_EQ(Show({ClickBesideTheRows, Presses(IDOK), Presses(IDOK), select, Presses(IDOK)}), "a");
    EXPECT_EQ(boxes.Shown()[0].buttons, static_cast<UINT>(MB_OK));
    EXPECT_EQ(boxes.Shown()[0].icon, 0u);
}

TEST_F(SelectDialog, WithoutAUsableObjectItOpensEmptyAndOnlyCancelLeaves)
{
    parameters.Text(L"Prompt0", L"A").Text(L"Prompt1", L"B");
    ExpectBox(L"Attention !", kNothingSelected);
    ExpectBox(L"Attention !", kNothingSelected);
    EXPECT_EQ(Show({[](DialogView& view) { EXPECT_EQ(view.Rows(kList), 0); }, Presses(IDOK), Presses(IDOK),
                    Presses(IDCANCEL)}),
              "untouched");
}

// What the user sees.

class SelectDialogView : public SelectDialog
{
protected:
    void LookAt(const DialogStep& look)
    {
        parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
        Show({look, Presses(IDCANCEL)});
    }
};

TEST_F(SelectDialogView, TheTitleIsTheCaptionAndEmptyWithoutOne)
{
    LookAt([](DialogView& view) { EXPECT_EQ(view.Title(), L""); });
    parameters.Text(L"Caption", L"Which one?");
    Show({[](DialogView& view) { EXPECT_EQ(view.Title(), L"Which one?"); }, Presses(IDCANCEL)});
}

TEST_F(SelectDialogView, ACaptionThatIsNoTextIsConvertedIfItCanBe)
{
    parameters.Object(L"Caption", Of(a)).Text(L"Filler", L"");
    Show({[](DialogView& view) { EXPECT_EQ(view.Title(), L""); }, Presses(IDCANCEL)});
}

TEST_F(SelectDialogView, TheListStandsWhereTheFrameWas)
{
    LookAt([](DialogView& view) {
        EXPECT_FALSE(view.IsVisible(kFrame));
        EXPECT_EQ(view.List(), view.Control(kList));
        const RECT frame = view.Rect(kFrame);
        const RECT place = view.Rect(kList);
        EXPECT_EQ(place.left, frame.left);
        EXPECT_EQ(place.top, frame.top);
        EXPECT_EQ(place.right, frame.right);
        EXPECT_EQ(place.bottom, frame.bottom);
        EXPECT_EQ(view.Style(kList) & 0x50800008, 0x50800008u);
    });
}

TEST_F(SelectDialogView, TheListHasAColumnOfNamesAndOneOfNoWidth)
{
    LookAt([](DialogView& view) {
        EXPECT_EQ(view.Columns(kList),
                  (std::vector<ShownColumn>{{L"Name", Width(view.Rect(kFrame)) - 5}, {L"", 0}}));
        EXPECT_EQ(Column(view, 1), (Texts{L"", L"", L""}));
    });
}

TEST_F(SelectDialogView, TheColumnLeavesFivePixelsToTheFrameOfTheList)
{
    const FrameWidth frame(100);
    LookAt([](DialogView& view) {
        EXPECT_EQ(Width(view.Rect(kList)), 100);
        EXPECT_EQ(view.Columns(kList)[0].width, 95);
    });
}

TEST_F(SelectDialogView, TabGoesRoundTheVisibleControlsFromOk)
{
    std::vector<int> order;
    const DialogStep note = [&](DialogView& view) {
        order.push_back(view.Focus());
    };
    parameters.Entry(0, L"A", Of(a));
    Show({note, Types(VK_TAB), note, Types(VK_TAB), note, Types(VK_TAB), note, Presses(IDCANCEL)});
    EXPECT_EQ(order, (std::vector<int>{IDOK, IDCANCEL, kList, IDOK}));
}

TEST_F(SelectDialogView, BelongsToTheActiveWindowWhichIsDisabledMeanwhile)
{
    const OwnerWindow owner;
    SetActiveWindow(owner.get());
    LookAt([&](DialogView& view) {
        EXPECT_EQ(GetWindow(view.Window(), GW_OWNER), owner.get());
        EXPECT_FALSE(IsWindowEnabled(owner.get()));
    });
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

TEST_F(SelectDialogView, BelongsToNobodyIfNoWindowIsActive)
{
    SetActiveWindow(nullptr);
    LookAt([](DialogView& view) { EXPECT_EQ(GetWindow(view.Window(), GW_OWNER), nullptr); });
}

TEST_F(SelectDialogView, ARowIsChosenWithoutAMouse)
{
    resultFollowsAddresses = true;
    parameters.Entry(0, L"A", Of(a)).Entry(1, L"B", Of(b)).Entry(2, L"C", Of(c));
    const auto selected = [](int row) {
        return [row](DialogView& view) {
            EXPECT_EQ(view.SelectedRow(kList), row);
        };
    };
    const std::string last =
        std::max({std::pair(Of(a), "a"), std::pair(Of(b), "b"), std::pair(Of(c), "c")}).second;
    EXPECT_EQ(Show({Types(VK_TAB, DialogView::kShift), selected(0), Types(VK_DOWN), selected(1),
                    Types(VK_DOWN), selected(2), Types(VK_RETURN)}),
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

TEST_F(SelectDialogView, ADoubleClickOnARowEndsNothing)
{
    parameters.Entry(0, L"A", Of(a));
    EXPECT_EQ(Show({[](DialogView& view) { view.DoubleClick(kList, 0); }, Presses(IDCANCEL)}), "untouched");
}
} // namespace
