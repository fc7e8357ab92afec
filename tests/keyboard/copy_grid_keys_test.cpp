// The grid of the enhanced copy dialog, used by a real mouse and a real keyboard.
#include "CopyByKeyboard.h"

#include "WindowTexts.h"

#include <commctrl.h>

namespace
{
using namespace copy_dialog;

constexpr int kDue = 0;
constexpr int kMass = 1;
constexpr int kOrder = 2;

class GridByMouse : public CopyByKeyboard
{
protected:
    Steps OpensOrder() { return ShowsStations() + OpensBy(kOrder, EditorFocused()); }

    Steps PressesOk() { return {Types("Tab", FocusOn(kAdvancedOk)), Ends("space")}; }

    std::wstring text;
};

/// The arrow at the end of the scroll bar below the grid.
POINT ArrowBelow(HWND grid)
{
    RECT window{};
    GetWindowRect(grid, &window);
    MapWindowPoints(nullptr, grid, reinterpret_cast<POINT*>(&window), 2);
    return {window.right - 8, window.bottom - 8};
}
} // namespace

TEST_F(GridByMouse, ATypedTextIsTakenByEnter)
{
    EXPECT_EQ(Show(OpensOrder() +
                   Steps{Sees(InRow(kOrder, {L"Order", L"X"})), Types("w e 7", EditorShows(L"we7")),
                         Types("Return", NoEditor()), Sees(InRow(kOrder, {L"Order", L"we7"})),
                         Sees(FocusOn(kGrid))} +
                   PressesOk()),
              0);
    EXPECT_EQ(Applied(L"Order"), "BSTR 'we7'");
}

TEST_F(GridByMouse, ATextIsLeftByEscapeAndTheMarkStays)
{
    Show(OpensOrder() +
         Steps{Types("w e", EditorShows(L"we")), Types("Escape", NoEditor()),
               Sees(InRow(kOrder, {L"Order", L"X"})), Sees(FocusOn(kGrid))} +
         PressesOk());
    EXPECT_EQ(Applied(L"Order"), "BSTR 'X'");
}

TEST_F(GridByMouse, ATextIsTakenByTab)
{
    Show(OpensOrder() + Steps{Types("a", EditorShows(L"a")), Types("Tab", FocusOn(kAdvancedOk)),
                              Sees(NoEditor()), Sees(InRow(kOrder, {L"Order", L"a"})), Ends("Return")});
    EXPECT_EQ(Applied(L"Order"), "BSTR 'a'");
}

TEST_F(GridByMouse, ATextIsTakenByShiftTab)
{
    Show(OpensOrder() + Steps{Types("a", EditorShows(L"a")), Types("shift+Tab", FocusOn(kPlanType)),
                              Sees(NoEditor()), Sees(InRow(kOrder, {L"Order", L"a"})), Ends("Escape")});
}

TEST_F(GridByMouse, ATextIsTakenByAClickOnAnotherRow)
{
    Show(OpensOrder() + Steps{Types("a", EditorShows(L"a"))} + PointsAtCell(kMass, 1, 30, RowFocused(kMass)) +
         Steps{Sees(NoEditor()), Sees(InRow(kOrder, {L"Order", L"a"}))} + PressesOk());
    EXPECT_EQ(Applied(L"Order"), "BSTR 'a'");
}

TEST_F(GridByMouse, ATextIsTakenByAClickOnOk)
{
    Show(OpensOrder() + Steps{Types("a", EditorShows(L"a"))} + Steps{[this](DialogView& view) {
             RECT place{};
             GetWindowRect(view.Control(kAdvancedOk), &place);
             mouse.emplace(view.Window(), "click " + std::to_string((place.left + place.right) / 2) + " " +
                                              std::to_string((place.top + place.bottom) / 2));
         }});
    EXPECT_EQ(Applied(L"Order"), "BSTR 'a'");
}

TEST_F(GridByMouse, ATextIsTakenByContracting)
{
    Show(OpensOrder() + Steps{Types("a", EditorShows(L"a"))} + PointsAtControl(kAdvanced, Hidden(kGrid)) +
         Steps{Sees(NoEditor()), Types("shift+Tab shift+Tab", FocusOn(kDeep)), Ends("space")});
    EXPECT_EQ(Applied(L"Order"), "BSTR 'a'");
}

TEST_F(GridByMouse, ATextIsTakenByTheScrollBar)
{
    Show(OpensOrder() + Steps{Types("a", EditorShows(L"a"))} + PointsAt(&ArrowBelow, NoEditor()) +
         Steps{Sees(InRow(kOrder, {L"Order", L"a"})), Sees(FocusOn(kGrid))} + PressesOk());
    EXPECT_EQ(Applied(L"Order"), "BSTR 'a'");
}

TEST_F(GridByMouse, ATextIsTakenByTheWheelThatScrollsItsRowAway)
{
    for (int row = 19; row >= 0; --row)
        host.Config().Find(L"Station")->Attribute((L"N" + std::to_wstring(row)).c_str());
    const Sight scrolled = {"the rows have moved", [](const DialogView& view) {
                                return SendMessageW(GridOf(view), LVM_GETTOPINDEX, 0, 0) > 0;
                            }};
    const auto middle = [](HWND grid) {
        const RECT cell = CellPlace(grid, 2, 1);
        return POINT{cell.left + 30, cell.top + 3};
    };
    Show(ShowsStations(23) + OpensBy(1, EditorFocused()) + Steps{Types("a", EditorShows(L"a"))} +
         PointsAt(middle, scrolled, "wheel") + Steps{Sees(NoEditor()), Sees(InRow(1, {L"N1", L"a"}))} +
         PressesOk());
    EXPECT_EQ(Applied(L"N1"), "BSTR 'a'");
}

TEST_F(GridByMouse, ATextIsTakenByTheOtherKindOfCopyAndKept)
{
    Show(OpensOrder() + Steps{Types("a", EditorShows(L"a"))} + PointsAtControl(kDeepRadio, RowCount(0)) +
         Steps{Sees(NoEditor()), Types("Tab", FocusOn(kPlanType)), Types("alt+Down", Dropped(kPlanType)),
               Types("Down Down", Chosen(kPlanType, L"Station")), Types("Return", RowCount(3)),
               Sees(InRow(kOrder, {L"Order", L"a"})), Ends("Escape")});
}

TEST_F(GridByMouse, ANameIsNeverEdited)
{
    Show(ShowsStations() + PointsAtCell(kOrder, 0, 10, RowFocused(kOrder)) +
         PointsAtCell(kOrder, 0, 30, NoEditor()) + PointsAtCell(kOrder, 0, 50, NoEditor()) +
         Steps{Sees(InColumn(1, {L"", L"", L""}))} + PressesOk());
    EXPECT_EQ(Applied(L"Order"), "EMPTY");
}

TEST_F(GridByMouse, TwoQuickClicksSelectOnly)
{
    Show(ShowsStations() + PointsAtCell(kOrder, 1, 30, RowFocused(kOrder)) +
         PointsAtCell(kOrder, 1, 30, NoEditor()) + PressesOk());
    EXPECT_EQ(Applied(L"Order"), "EMPTY");
}

TEST_F(GridByMouse, AllIsSelectedCopiedAndPasted)
{
    Show(OpensOrder() +
         Steps{Types("a b", EditorShows(L"ab")), Types("ctrl+a Delete", EditorShows(L"")),
               Types("c d", EditorShows(L"cd")), Types("ctrl+a ctrl+c Right e", EditorShows(L"cde"))} +
         OpensBy(kMass, EditorFocused()) +
         Steps{Types("ctrl+v", EditorShows(L"cd")), Types("ctrl+v", EditorShows(L"cdcd")),
               Types("Return", NoEditor())} +
         PressesOk());
    EXPECT_EQ(Applied(L"Mass"), "BSTR 'cdcd'");
    EXPECT_EQ(press->ValueText(L"Order"), "BSTR 'cde'");
}

TEST_F(GridByMouse, ADateIsEnteredByTheMouseChangedAndTaken)
{
    const Steps notes = {[this](DialogView& view) {
        text = view.Text(GridEditor(view));
    }};
    const Sight changed = {"the date is another", [this](const DialogView& view) {
                               return view.Text(GridEditor(view)) != text;
                           }};
    Show(ShowsStations() + OpensBy(kDue, PickerOpen()) +
         Steps{Sees(FocusOn(kGrid)), Sees(InRow(kDue, {L"Due", L"X"}))} + notes +
         PointsAtCell(kDue, 1, 20, EditorFocused()) + Steps{Types("Up", changed)} + notes +
         Steps{Types("Return", NoEditor()), Sees(FocusOn(kGrid)),
               [this](DialogView& view) {
                   EXPECT_EQ(view.Cell(kGrid, kDue, 1), text);
               }} +
         PressesOk());
    EXPECT_EQ(Applied(L"Due"), "BSTR '" + Utf8Text(text) + "'");
}

TEST_F(GridByMouse, ADateIsLeftByEscapeAndTheMarkStays)
{
    Show(ShowsStations() + OpensBy(kDue, PickerOpen()) + PointsAtCell(kDue, 1, 20, EditorFocused()) +
         Steps{Types("Escape", NoEditor()), Sees(InRow(kDue, {L"Due", L"X"}))} + PressesOk());
    EXPECT_EQ(Applied(L"Due"), "BSTR 'X'");
}

TEST_F(GridByMouse, APickerThatWasNotEnteredStays)
{
    Show(ShowsStations() + OpensBy(kDue, PickerOpen()) + PointsAtCell(kMass, 1, 30, RowFocused(kMass)) +
         Steps{Sees(PickerOpen()), Sees(InRow(kDue, {L"Due", L"X"}))} + PressesOk());
    EXPECT_EQ(Applied(L"Due"), "BSTR 'X'");
}
