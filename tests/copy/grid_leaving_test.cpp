// Each way to leave the editor of a cell, and what the cell and the copies have then.
#include "GridFixture.h"

#include "WindowTexts.h"

#include <tuple>

namespace
{
using namespace copy_dialog;
using namespace grid;

/// What the user did in the editor before.
enum class Typed
{
    Nothing,
    Something,
    Emptied
};

/// A way to leave an edit in the row Order of a grid with many rows.
struct Way
{
    const char* name;
    Steps leave;
    bool cancels = false;
    int focus = kGrid; ///< the control that has the focus then
    bool hidesTheGrid = false;
};

/// The text of the cell after the way, if it was "old" before.
std::wstring Left(const Way& way, Typed typed)
{
    if (way.cancels)
        return L"X";
    return typed == Typed::Nothing ? L"old" : typed == Typed::Something ? L"new" : L"";
}

DialogStep MovesGrid(int wider)
{
    return {"resizes the grid", [wider](DialogView& view) {
                const HWND grid = GridOf(view);
                const RECT place = view.Rect(kGrid);
                MoveWindow(grid, place.left, place.top, place.right - place.left + wider,
                           place.bottom - place.top, TRUE);
            }};
}

DialogStep ClicksBelow()
{
    return ClicksGrid("below the rows", [](HWND grid) {
        return POINT{150, CellPlace(grid, kOrder, 0).bottom + 2};
    });
}

std::ostream& operator<<(std::ostream& stream, const Way& way)
{
    return stream << way.name;
}

class GridLeaving : public GridFixture, public testing::WithParamInterface<std::tuple<Way, Typed>>
{
protected:
    const Way& ThisWay() const { return std::get<0>(GetParam()); }
    Typed ThisText() const { return std::get<1>(GetParam()); }

    /// Opens the editor of a cell that has the text "old", and types.
    Steps TypesInCell() const
    {
        Steps steps =
            OpensEditor(kOrder) + Steps{TypesInEditor(L"old"),     Types("Return"),
                                        Sees(NoEditor()),          ClicksCell(kOrder, 1),
                                        Sees(EditorShows(L"old")), Sees(InRow(kOrder, {L"Order", L"X"}))};
        if (ThisText() == Typed::Something)
            steps.push_back(TypesInEditor(L"new"));
        else if (ThisText() == Typed::Emptied)
            steps.push_back(EmptiesEditor());
        return steps;
    }
};

const Way kWays[] = {
    {.name = "Return", .leave = {Types("Return")}},
    {.name = "Escape", .leave = {Types("Escape")}, .cancels = true},
    {.name = "Tab", .leave = {Types("Tab")}, .focus = kAdvancedOk},
    {.name = "ShiftTab", .leave = {Types("shift+Tab")}, .focus = kPlanType},
    {.name = "AnotherValue", .leave = {ClicksCell(kMass, 1)}},
    {.name = "AnotherName", .leave = {ClicksCell(kMass, 0)}},
    {.name = "ItsName", .leave = {ClicksCell(kOrder, 0)}},
    {.name = "BelowTheRows", .leave = {ClicksBelow()}},
    {.name = "TheRadioThatIsChecked",
     .leave = {[](DialogView& view) {
         view.GiveFocus(kNormalRadio);
     }},
     .focus = kNormalRadio},
    {.name = "ThePlanTypes", .leave = {Drops(kPlanType)}, .focus = kPlanType},
    {.name = "ThePlanTypeAgain", .leave = {Chooses(kPlanType, L"Station")}, .focus = kPlanType},
    {.name = "ScrollDown", .leave = {ScrollsGrid(WM_VSCROLL, kScrollOn)}},
    {.name = "ScrollAcross", .leave = {ScrollsGrid(WM_HSCROLL, kScrollOn)}},
    {.name = "Wheel", .leave = {ScrollsGrid(WM_MOUSEWHEEL, static_cast<int>(0xFF880000))}},
    {.name = "Wider", .leave = {MovesGrid(10)}},
    {.name = "Narrower", .leave = {MovesGrid(-10)}},
    {.name = "Advanced", .leave = {Presses(kAdvanced), Presses(kAdvanced)}, .focus = kAdvanced},
};

INSTANTIATE_TEST_SUITE_P(By, GridLeaving,
                         testing::Combine(testing::ValuesIn(kWays),
                                          testing::Values(Typed::Nothing, Typed::Something, Typed::Emptied)),
                         [](const auto& given) {
                             const Typed typed = std::get<1>(given.param);
                             return std::string(std::get<0>(given.param).name) +
                                    (typed == Typed::Nothing     ? "Unchanged"
                                     : typed == Typed::Something ? "Changed"
                                                                 : "Emptied");
                         });
} // namespace

TEST_P(GridLeaving, EndsTheEditor)
{
    const std::wstring left = Left(ThisWay(), ThisText());
    InGrid(TypesInCell() + ThisWay().leave +
           Steps{Sees(NoEditor()), Sees(InColumn(1, {L"", L"", left})), Sees(FocusOn(ThisWay().focus))});
    EXPECT_EQ(Applied(), "Order = BSTR '" + Utf8Text(left) + "'");
}
