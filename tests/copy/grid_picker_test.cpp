// The date picker over a cell: it opens without the focus, and only what had the focus can lose it.
#include "GridFixture.h"
#include "NotificationTap.h"

#include "WindowTexts.h"

#include <optional>
#include <tuple>

namespace
{
using namespace copy_dialog;
using namespace grid;
using Day = std::tuple<int, int, int>;

Day DayOf(const SYSTEMTIME& time)
{
    return {time.wYear, time.wMonth, time.wDay};
}

Day Today()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return DayOf(now);
}

Day Shown(HWND picker)
{
    SYSTEMTIME shown{};
    SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
    return DayOf(shown);
}

class GridPicker : public GridFixture
{
protected:
    /// Clicks into the picker and changes the date by keys; `text` is what it shows then.
    Steps ChangesTheDate()
    {
        return {ClicksEditor(),
                Sees(EditorFocused()),
                [this](DialogView& view) { text = view.Text(GridEditor(view)); },
                Types("Right"),
                Types("Up"),
                [this](DialogView& view) {
                    EXPECT_NE(view.Text(GridEditor(view)), text);
                    text = view.Text(GridEditor(view));
                }};
    }

    /// The cell has the text that the picker showed.
    DialogStep SeesTheDate(int row = kDue)
    {
        return [this, row](DialogView& view) {
            EXPECT_EQ(view.Cell(kGrid, row, 1), text);
            EXPECT_FALSE(text.empty());
        };
    }

    /// What the press gets with the date. The trace must not depend on the day.
    std::string AppliedDate()
    {
        const std::string date = Utf8Text(text);
        const auto named = [&date](std::string line) {
            const std::size_t at = date.empty() ? std::string::npos : line.find(date);
            return at == std::string::npos ? line : line.replace(at, date.size(), "the date");
        };
        const std::string applied = named(Applied());
        std::transform(host.calls.begin(), host.calls.end(), host.calls.begin(), named);
        return applied;
    }

    std::wstring text;
};

class GridPickerLeft : public GridPicker, public testing::WithParamInterface<std::pair<const char*, Steps>>
{
};

INSTANTIATE_TEST_SUITE_P(
    By, GridPickerLeft,
    testing::Values(std::pair{"Return", Steps{Types("Return")}}, std::pair{"Tab", Steps{Types("Tab")}},
                    std::pair{"AnotherRow", Steps{ClicksCell(kMass, 1)}},
                    std::pair{"ItsName", Steps{ClicksCell(kDue, 0)}},
                    std::pair{"TheScrollBar", Steps{ScrollsGrid(WM_VSCROLL, kScrollOn)}},
                    std::pair{"TheScrollBarBelow", Steps{ScrollsGrid(WM_HSCROLL, kScrollOn)}},
                    std::pair{"ThePlanTypes", Steps{Drops(kPlanType)}}),
    [](const auto& given) { return std::string(given.param.first); });
} // namespace

TEST_F(GridPicker, ShowsTodayWhateverTheCellHolds)
{
    std::optional<Day> shown;
    const Day before = Today();
    InGrid(OpensEditor(kDue) + ChangesTheDate() +
           Steps{Types("Return"), Sees(NoEditor()), SeesTheDate(), ClicksCell(kDue, 1), Sees(PickerOpen()),
                 [&shown](DialogView& view) {
                     shown = Shown(GridEditor(view));
                 }});
    EXPECT_TRUE(shown == before || shown == Today());
    EXPECT_EQ(Applied(), "Due = BSTR 'X'");
}

TEST_F(GridPicker, ThatNeverHadTheFocusCommitsNothingAndStays)
{
    InGrid(OpensEditor(kDue) + Steps{ClicksCell(kMass, 1), Sees(PickerOpen()), Sees(RowFocused(kMass)),
                                     ClicksCell(kMass, 0), ScrollsGrid(WM_VSCROLL, kScrollOn),
                                     Sees(PickerOpen()), Sees(InColumn(1, {L"X", L"", L""}))});
    EXPECT_EQ(TypeReads(), 2);
    EXPECT_EQ(Applied(), "Due = BSTR 'X'");
}

TEST_P(GridPickerLeft, PutsItsTextIntoTheCellAndTheCopies)
{
    InGrid(OpensEditor(kDue) + ChangesTheDate() + GetParam().second +
           Steps{Sees(NoEditor()), SeesTheDate(), Sees(InRow(kMass, {L"Mass", L""}))});
    EXPECT_EQ(AppliedDate(), "Due = BSTR 'the date'");
}

TEST_F(GridPicker, OkTakesTheTextOfOneWithTheFocus)
{
    InGrid(OpensEditor(kDue) + ChangesTheDate());
    EXPECT_EQ(AppliedDate(), "Due = BSTR 'the date'");
}

TEST_F(GridPicker, ALeftOneThatWasNotChangedTakesToday)
{
    InGrid(OpensEditor(kDue) + Steps{ClicksEditor(),
                                     [this](DialogView& view) { text = view.Text(GridEditor(view)); },
                                     ClicksCell(kOrder, 0), Sees(NoEditor()), SeesTheDate()});
    EXPECT_EQ(AppliedDate(), "Due = BSTR 'the date'");
}

TEST_F(GridPicker, EscapeLeavesTheMark)
{
    InGrid(OpensEditor(kDue) + ChangesTheDate() +
           Steps{Types("Escape"), Sees(NoEditor()), Sees(FocusOn(kGrid)), Sees(InRow(kDue, {L"Due", L"X"}))});
    EXPECT_EQ(Applied(), "Due = BSTR 'X'");
}

TEST_F(GridPicker, IsEnteredByTheMouseOnly)
{
    InGrid(OpensEditor(kDue) + Steps{Types("Tab"), Sees(FocusOn(kAdvancedOk)), Sees(PickerOpen())});
    EXPECT_EQ(Applied(), "Due = BSTR 'X'");
}

TEST_F(GridPicker, AChangedDateIsPassedOnToTheGrid)
{
    std::vector<std::string> seen;
    std::optional<NotificationTap> tap;
    InGrid(OpensEditor(kDue) +
           Steps{ClicksEditor(), Types("Right"),
                 [&](DialogView& view) {
                     const HWND grid = GridOf(view);
                     tap.emplace(grid, [&seen, grid](WPARAM id, const NMHDR& header) {
                         if (header.code != DTN_DATETIMECHANGE)
                             return;
                         const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(header);
                         seen.push_back((header.hwndFrom == grid ? "from the grid " : "from the picker ") +
                                        std::to_string(id) + " " + std::to_string(header.idFrom) +
                                        (change.dwFlags == GDT_VALID ? " a date" : ""));
                     });
                 },
                 Types("Up"),
                 [&](DialogView& view) {
                     tap.reset();
                     EXPECT_EQ(seen, (std::vector<std::string>{"from the picker 1000 1000 a date",
                                                               "from the grid 1000 1000 a date"}));
                     EXPECT_EQ(view.Cell(kGrid, kDue, 1), L"X");
                 },
                 Sees(EditorFocused()), Types("Escape")});
    EXPECT_EQ(TypeReads(), 2);
}

TEST_F(GridPicker, AClosedCalendarGivesTheFocusToTheGrid)
{
    InGrid(OpensEditor(kDue) + ChangesTheDate() +
           Steps{[](DialogView& view) {
                     NMHDR closed{GridEditor(view), 1000, static_cast<UINT>(DTN_CLOSEUP)};
                     SendMessageW(GridOf(view), WM_NOTIFY, 1000, reinterpret_cast<LPARAM>(&closed));
                 },
                 Sees(FocusOn(kGrid)), Sees(NoEditor()), SeesTheDate()});
    EXPECT_EQ(AppliedDate(), "Due = BSTR 'the date'");
}

TEST_F(GridPicker, OverARowThatIsDeletedGoesWithoutItsText)
{
    InGrid(OpensEditor(kDue) + Steps{Checks(kDeepRadio), Sees(NoEditor()), Sees(RowCount(0)),
                                     Chooses(kPlanType, L"Station"), Sees(NoEditor()),
                                     Sees(InColumn(1, {L"X", L"", L""}))});
    EXPECT_EQ(TypeReads(), 2);
    EXPECT_EQ(Applied(), "Due = BSTR 'X',  = EMPTY,  = EMPTY");
}

TEST_F(GridPicker, WithTheFocusIsReadBeforeItsRowIsDeleted)
{
    InGrid(OpensEditor(kDue) + ChangesTheDate() +
           Steps{Chooses(kPlanType, L"Cell"), Sees(NoEditor()), Sees(InColumn(1, {L""})),
                 Chooses(kPlanType, L"Station"), SeesTheDate()});
    EXPECT_EQ(AppliedDate(), "Due = BSTR 'the date',  = EMPTY,  = EMPTY");
}

TEST_F(GridPicker, OneMayBeOpenBesideAnother)
{
    Station().Attribute(L"Begin", 16);
    InGrid(OpensEditor(0) + OpensEditor(1) +
           Steps{Sees(EditorCount(2)), Sees(InColumn(1, {L"X", L"X", L"", L""})),
                 [this](DialogView& view) {
                     // One of them.
                     view.Click(GridEditors(view)[0]);
                     text = view.Text(GridEditors(view)[0]);
                 },
                 ClicksCell(3, 0), Sees(EditorCount(1)),
                 [this](DialogView& view) {
                     const Texts cells = view.Column(kGrid, 1);
                     EXPECT_EQ(std::count(cells.begin(), cells.end(), text), 1);
                     EXPECT_EQ(std::count(cells.begin(), cells.end(), L"X"), 1);
                 }});
    host.calls.clear();
}

TEST_F(GridPicker, OneStaysWhileATextIsTypedInAnotherRow)
{
    InGrid(OpensEditor(kDue) + OpensEditor(kOrder) +
           Steps{Sees(EditorCount(2)), [](DialogView& view) { view.Type(GetFocus(), L"text"); },
                 Types("Return"), Sees(EditorCount(1)), Sees(PickerOpen()),
                 Sees(InColumn(1, {L"X", L"", L"text"}))});
    EXPECT_EQ(Applied(), "Due = BSTR 'X', Order = BSTR 'text'");
}

TEST_F(GridPicker, TwoMayBeOverOneCell)
{
    InGrid(OpensEditor(kDue) + Steps{ClicksAtLeftEdge(kDue, 1, 2), Sees(EditorCount(2)),
                                     Sees(InColumn(1, {L"X", L"", L""})), Checks(kDeepRadio),
                                     Sees(NoEditor())});
    EXPECT_EQ(TypeReads(), 4);
    EXPECT_EQ(Applied(), "Due = BSTR 'X'");
}
