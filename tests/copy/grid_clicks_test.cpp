// Which click in the grid selects a row, and which one opens an editor.
#include "GridFixture.h"

namespace
{
using namespace copy_dialog;
using namespace grid;

class GridClicks : public GridFixture
{
protected:
    /// More rows than the grid has room for; "N0" is at the top.
    void AddRows(int count)
    {
        for (int row = count - 1; row >= 0; --row)
            Station().Attribute((L"N" + std::to_wstring(row)).c_str());
    }
};

int PerPage(HWND grid)
{
    return static_cast<int>(SendMessageW(grid, LVM_GETCOUNTPERPAGE, 0, 0));
}

int Top(HWND grid)
{
    return static_cast<int>(SendMessageW(grid, LVM_GETTOPINDEX, 0, 0));
}

DialogStep DoubleClicksCell(int row, int column)
{
    return {"double-clicks", [=](DialogView& view) {
                const RECT cell = CellPlace(GridOf(view), row, column);
                const LPARAM place = MAKELPARAM(cell.left + 10, (cell.top + cell.bottom) / 2);
                PostMessageW(GridOf(view), WM_LBUTTONDBLCLK, MK_LBUTTON, place);
                PostMessageW(GridOf(view), WM_LBUTTONUP, 0, place);
            }};
}
} // namespace

TEST_F(GridClicks, TheFirstSelectsAndTheSecondOpens)
{
    InGrid({ClicksCell(kOrder, 1), Sees(RowSelected(kOrder)), Sees(RowFocused(kOrder)), Sees(NoEditor()),
            Sees(InRow(kOrder, {L"Order", L""})), ClicksCell(kOrder, 1), Sees(EditorShows(L"")),
            Sees(EditorFocused())});
}

TEST_F(GridClicks, InTheNameSelectTheRowAndNeverOpen)
{
    InGrid({ClicksCell(kOrder, 0), Sees(RowSelected(kOrder)), Sees(RowFocused(kOrder)), ClicksCell(kOrder, 0),
            ClicksCell(kOrder, 0), Sees(NoEditor()), Sees(InRow(kOrder, {L"Order", L""}))});
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(Applied(), "");
}

TEST_F(GridClicks, InTheNameMakeTheNextOneInTheValueOpen)
{
    InGrid({ClicksCell(kMass, 0), Sees(NoEditor()), ClicksCell(kMass, 1), Sees(EditorFocused())});
}

TEST_F(GridClicks, InAnotherRowOpenNothing)
{
    InGrid(OpensEditor(kOrder) + Steps{TypesInEditor(L"1"), ClicksCell(kMass, 1), Sees(NoEditor()),
                                       Sees(RowSelected(kMass)), Sees(RowFocused(kMass)),
                                       Sees(InColumn(1, {L"", L"", L"1"}))});
    EXPECT_EQ(Applied(), "Order = BSTR '1'");
}

TEST_F(GridClicks, InTheCellOfTheEditorBesideItOpenItAgain)
{
    InGrid(OpensEditor(kOrder) + Steps{TypesInEditor(L"1"), ClicksAtLeftEdge(kOrder, 1, 2),
                                       Sees(EditorCount(1)), Sees(EditorShows(L"1")), Sees(EditorFocused()),
                                       Sees(InRow(kOrder, {L"Order", L"X"}))});
    EXPECT_EQ(Applied(), "Order = BSTR '1'");
}

TEST_F(GridClicks, WhereNoRowIsOpenNothing)
{
    const DialogStep below = ClicksGrid("below the rows", [](HWND grid) {
        return POINT{150, CellPlace(grid, kOrder, 0).bottom + 2};
    });
    InGrid({ClicksCell(kOrder, 1), below, below, Sees(NoEditor()), Sees(InColumn(1, {L"", L"", L""}))});
    EXPECT_TRACE(Calls{});
}

TEST_F(GridClicks, TwiceWithoutAPauseSelectOnly)
{
    InGrid({ClicksCell(kMass, 1), DoubleClicksCell(kMass, 1), Sees(NoEditor()), Sees(RowSelected(kMass))});
    EXPECT_TRACE(Calls{});
}

TEST_F(GridClicks, OnTheBorderOfTwoColumnsBelongToTheLeftOne)
{
    InGrid({ClicksCell(kOrder, 1), ClicksAtLeftEdge(kOrder, 1, 0), Sees(NoEditor()),
            ClicksAtLeftEdge(kOrder, 1, 1), Sees(EditorFocused())});
}

TEST_F(GridClicks, OnTheRightEdgeOfTheRowAreOutsideOfIt)
{
    InGrid({SizesColumn(1, 100), ClicksCell(kOrder, 1), ClicksAtLeftEdge(kOrder, 1, 100), Sees(NoEditor()),
            ClicksCell(kOrder, 1), Sees(EditorFocused()), Types("Escape"), Sees(NoEditor()),
            ClicksAtLeftEdge(kOrder, 1, 99), Sees(EditorFocused())});
}

TEST_F(GridClicks, InAColumnOfFourPixelsOpenNothing)
{
    InGrid({SizesColumn(1, 4), ClicksCell(kOrder, 0), ClicksCell(kOrder, 1), Sees(NoEditor()),
            Sees(InRow(kOrder, {L"Order", L""}))});
    EXPECT_TRACE(Calls{});
}

TEST_F(GridClicks, InAColumnOfFivePixelsOpen)
{
    InGrid({SizesColumn(1, 5), ClicksCell(kOrder, 0), ClicksCell(kOrder, 1), Sees(EditorFocused()),
            TypesInEditor(L"a"), Types("Return"), Sees(InRow(kOrder, {L"Order", L"a"}))});
}

// By system, a row that gets the focus scrolls into view. The editor scrolls nothing.
TEST_F(GridClicks, OnARowThatIsCutOffWorkInIt)
{
    AddRows(20);
    int row = 0;
    int top = 0;
    const DialogStep click = ClicksGrid("the row at the bottom", [&row](HWND grid) {
        return POINT{150, CellPlace(grid, row, 1).top + 1};
    });
    InGrid({WithGrid([&row](HWND grid) {
                row = PerPage(grid);
                RECT area{};
                GetClientRect(grid, &area);
                EXPECT_LT(CellPlace(grid, row, 1).top + 1, area.bottom) << "it is not to be seen";
                EXPECT_GT(CellPlace(grid, row, 1).bottom, area.bottom) << "it is not cut off";
            }),
            click, Sees(NoEditor()),
            [&row, &top](DialogView& view) {
                EXPECT_TRUE(RowFocused(row).isSeen(view)) << view.Dump();
                top = Top(GridOf(view));
            },
            click, Sees(EditorFocused()), TypesInEditor(L"cut"), Types("Return"),
            [&, this](DialogView& view) {
                EXPECT_EQ(view.Cell(kGrid, row, 1), L"cut");
                EXPECT_EQ(Top(GridOf(view)), top);
                // By system, it is another row.
                EXPECT_EQ(TypeReads(), 3);
                host.calls.clear();
            }});
}

TEST_F(GridClicks, AfterScrollingWorkInTheRowThatIsThere)
{
    AddRows(40);
    InGrid(Steps(40, ScrollsGrid(WM_VSCROLL, kScrollPageOn)) +
           Steps{WithGrid([](HWND grid) { EXPECT_GT(Top(grid), 30); })} + OpensEditor(42) +
           Steps{TypesInEditor(L"last"), Types("Return"), Sees(InRow(42, {L"Order", L"last"})),
                 Sees(InRow(41, {L"Mass", L""}))});
    EXPECT_EQ(Applied(), "Order = BSTR 'last'");
}

TEST_F(GridClicks, InACellThatBeginsOutsideScrollToIt)
{
    RECT editor{};
    InGrid({SizesColumn(1, 600), ClicksCell(kOrder, 1), WithGrid([](HWND grid) {
                SendMessageW(grid, LVM_SCROLL, 200, 0);
                EXPECT_EQ(CellPlace(grid, kOrder, 1).left, -80);
            }),
            ClicksCell(kOrder, 1), Sees(EditorFocused()), [&editor](DialogView& view) {
                EXPECT_EQ(CellPlace(GridOf(view), kOrder, 1).left, 0);
                editor = PlaceInGrid(GridOf(view), GridEditor(view));
            }});
    EXPECT_EQ(editor.left, 4);
}

TEST_F(GridClicks, InFurtherColumnsMoveTheMark)
{
    Steps steps = {SizesColumn(1, 20)};
    for (int column = 2; column <= 5; ++column)
        steps.push_back(HasColumn(column, LVCFMT_LEFT, 20));
    const std::vector<Texts> shown = {{L"Order", L"X", L"", L"", L"", L""},
                                      {L"Order", L"", L"X", L"", L"", L""},
                                      {L"Order", L"", L"", L"X", L"", L""}};
    steps = steps + Steps{ClicksCell(kOrder, 0)};
    for (int column = 1; column <= 3; ++column)
        steps = steps + Steps{ClicksCell(kOrder, column), Sees(EditorFocused()),
                              Sees(InRow(kOrder, shown[static_cast<std::size_t>(column) - 1])),
                              Types("Escape"), Sees(NoEditor())};
    // A fourth one and others are never marked; they empty the first three.
    for (int column = 4; column <= 5; ++column)
        steps = steps + Steps{ClicksCell(kOrder, column), Sees(EditorFocused()),
                              Sees(InRow(kOrder, {L"Order", L"", L"", L"", L"", L""})), Types("Escape")};
    InGrid(steps);
    EXPECT_EQ(Applied(), "Order = BSTR ''");
}

TEST_F(GridClicks, OpenTheEditorOfThatColumnOnly)
{
    InGrid({SizesColumn(1, 40), HasColumn(2, LVCFMT_LEFT, 40), ClicksCell(kOrder, 0), ClicksCell(kOrder, 2),
            TypesInEditor(L"second"), Types("Return"), Sees(InRow(kOrder, {L"Order", L"", L"second"}))});
    EXPECT_EQ(Applied(), "Order = BSTR 'second'");
}
