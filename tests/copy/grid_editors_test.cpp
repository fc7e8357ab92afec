// The editor that opens: for which attribute which one, where, with which style, text and focus, and what
// opening it does to the cell.
#include "GridFixture.h"

#include "WindowTexts.h"

#include <optional>

namespace
{
using namespace copy_dialog;
using namespace grid;

constexpr DWORD kEditStyle = 0x50800080;
constexpr DWORD kPickerStyle = 0x50000001;

/// The style with which the last editor was created: an edit control changes its own.
class CreatedStyle
{
public:
    CreatedStyle() : m_hook(SetWindowsHookExW(WH_CBT, &CreatedStyle::OnEvent, nullptr, GetCurrentThreadId()))
    {
        s_style = 0;
    }
    ~CreatedStyle() { UnhookWindowsHookEx(m_hook); }
    CreatedStyle(const CreatedStyle&) = delete;
    CreatedStyle& operator=(const CreatedStyle&) = delete;
    static DWORD Style() { return s_style; }

private:
    static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM details)
    {
        if (code == HCBT_CREATEWND)
        {
            const std::wstring name = ClassOf(reinterpret_cast<HWND>(window));
            if (name == WC_EDITW || name == DATETIMEPICK_CLASSW)
                s_style = static_cast<DWORD>(reinterpret_cast<const CBT_CREATEWNDW*>(details)->lpcs->style);
        }
        return CallNextHookEx(nullptr, code, window, details);
    }

    static inline DWORD s_style = 0;
    HHOOK m_hook;
};

std::string Text(const RECT& rect)
{
    std::ostringstream text;
    text << rect.left << "," << rect.top << " " << rect.right << "," << rect.bottom;
    return text.str();
}

/// The editor is 4 pixels beside the left edge of the cell, 3 narrower, and ends with the grid.
std::string PlaceOver(HWND grid, int row, int column)
{
    RECT area{};
    GetClientRect(grid, &area);
    RECT place = CellPlace(grid, row, column);
    const LONG width = place.right - place.left;
    place.left += 4;
    place.right = std::min(place.left + width - 3, area.right);
    return Text(place);
}

class GridEditors : public GridFixture
{
protected:
    static DialogStep SeesItOver(int row, int column)
    {
        return [=](DialogView& view) {
            const HWND grid = GridOf(view);
            EXPECT_EQ(Text(PlaceInGrid(grid, GridEditor(view))), PlaceOver(grid, row, column));
        };
    }
};

// Type codes.

struct TypeCode
{
    const char* name;
    MemoryValue value;
    HRESULT status;
    bool picker;
};

std::ostream& operator<<(std::ostream& stream, const TypeCode& code)
{
    return stream << code.name;
}

MemoryValue Short(SHORT number)
{
    VARIANT value{};
    value.vt = VT_I2;
    value.iVal = number;
    return value;
}

MemoryValue Null()
{
    VARIANT value{};
    value.vt = VT_NULL;
    return value;
}

class GridTypeCodes : public GridFixture, public testing::WithParamInterface<TypeCode>
{
};

const TypeCode kTypeCodes[] = {
    {"Date", 4, S_OK, true},
    {"DateAndTime", 16, S_OK, true},
    {"Zero", 0, S_OK, false},
    {"Text", 1, S_OK, false},
    {"Number", 2, S_OK, false},
    {"Fraction", 3, S_OK, false},
    {"Flag", 5, S_OK, false},
    {"Unknown", 15, S_OK, false},
    {"Seventeen", 17, S_OK, false},
    {"Negative", -4, S_OK, false},
    {"DateWithAnotherBit", 20, S_OK, false},
    {"Nothing", MemoryValue(), S_OK, false},
    {"NothingAndNoValue", MemoryValue(), S_FALSE, false},
    {"Null", Null(), S_OK, false},
    {"Failure", MemoryValue(), E_FAIL, false},
    {"DateOfAFailure", 4, E_FAIL, true},
    {"DateAsText", L"4", S_OK, true},
    {"DateAndTimeAsText", L"16", S_OK, true},
    {"Word", L"date", S_OK, false},
    {"EmptyText", L"", S_OK, false},
    {"ShortDate", Short(4), S_OK, true},
    {"True", true, S_OK, false},
};

INSTANTIATE_TEST_SUITE_P(Of, GridTypeCodes, testing::ValuesIn(kTypeCodes),
                         [](const auto& given) { return std::string(given.param.name); });
} // namespace

TEST_F(GridEditors, AnEditorIsAChildOfTheGridInItsFontWithTheFocus)
{
    const CreatedStyle created;
    InGrid(OpensEditor(kOrder) + Steps{Sees(EditorFocused()), [](DialogView& view) {
                                           const HWND grid = GridOf(view);
                                           const HWND editor = GridEditor(view);
                                           EXPECT_EQ(ClassOf(editor), WC_EDITW);
                                           EXPECT_EQ(CreatedStyle::Style(), kEditStyle);
                                           EXPECT_EQ(GetParent(editor), grid);
                                           EXPECT_EQ(GetDlgCtrlID(editor), 1000);
                                           EXPECT_NE(SendMessageW(editor, WM_GETFONT, 0, 0), 0);
                                           EXPECT_EQ(SendMessageW(editor, WM_GETFONT, 0, 0),
                                                     SendMessageW(grid, WM_GETFONT, 0, 0));
                                       }});
}

TEST_F(GridEditors, APickerIsAChildOfTheGridInItsFontWithoutTheFocus)
{
    const CreatedStyle created;
    InGrid(OpensEditor(kDue) + Steps{Sees(PickerOpen()), [](DialogView& view) {
                                         const HWND grid = GridOf(view);
                                         const HWND editor = GridEditor(view);
                                         EXPECT_EQ(CreatedStyle::Style(), kPickerStyle);
                                         EXPECT_EQ(GetParent(editor), grid);
                                         EXPECT_EQ(GetDlgCtrlID(editor), 1000);
                                         EXPECT_TRUE(IsWindowVisible(editor));
                                         EXPECT_EQ(GetFocus(), grid);
                                         EXPECT_EQ(SendMessageW(editor, WM_GETFONT, 0, 0),
                                                   SendMessageW(grid, WM_GETFONT, 0, 0));
                                     }});
}

TEST_F(GridEditors, APickerHasTheAlignmentOfItsColumnAndAnEditHasNot)
{
    const std::vector<std::pair<int, DWORD>> bits = {{LVCFMT_LEFT, 0}, {LVCFMT_RIGHT, 2}, {LVCFMT_CENTER, 1}};
    Steps steps = {SizesColumn(1, 20)};
    const CreatedStyle created;
    for (int column = 2; column <= 4; ++column)
        steps.push_back(HasColumn(column, bits[static_cast<std::size_t>(column) - 2].first, 30));
    steps = steps + Steps{ClicksCell(kOrder, 0)};
    for (int column = 2; column <= 4; ++column)
        steps =
            steps + Steps{ClicksCell(kOrder, column),
                          [](DialogView&) { EXPECT_EQ(CreatedStyle::Style(), kEditStyle); }, Types("Escape")};
    steps = steps + Steps{ClicksCell(kDue, 0)};
    for (int column = 2; column <= 4; ++column)
        steps = steps + Steps{ClicksCell(kDue, column), [column, &bits](DialogView&) {
                                  EXPECT_EQ(CreatedStyle::Style(),
                                            kPickerStyle | bits[static_cast<std::size_t>(column) - 2].second);
                              }};
    InGrid(steps);
}

TEST_F(GridEditors, AnEditorEndsWithTheGrid)
{
    InGrid(OpensEditor(kOrder) + Steps{SeesItOver(kOrder, 1)});
}

TEST_F(GridEditors, AnEditorEndsWithItsColumn)
{
    InGrid(Steps{SizesColumn(1, 100)} + OpensEditor(kMass) + Steps{SeesItOver(kMass, 1)});
}

TEST_F(GridEditors, APickerHasThePlaceOfAnEdit)
{
    InGrid(Steps{SizesColumn(1, 100)} + OpensEditor(kDue) + Steps{SeesItOver(kDue, 1)});
}

TEST_F(GridEditors, AnEditorOfALaterColumnIsOverIt)
{
    InGrid({SizesColumn(1, 40), HasColumn(2, LVCFMT_LEFT, 50), ClicksCell(kMass, 0), ClicksCell(kMass, 2),
            Sees(EditorFocused()), SeesItOver(kMass, 2)});
}

TEST_F(GridEditors, AnEditorInAScrolledGridIsOverItsCell)
{
    InGrid({SizesColumn(1, 400), ClicksCell(kMass, 0), WithGrid([](HWND grid) {
                SendMessageW(grid, LVM_SCROLL, 50, 0);
                EXPECT_EQ(CellPlace(grid, kMass, 1).left, 70);
            }),
            ClicksCell(kMass, 1), Sees(EditorFocused()), SeesItOver(kMass, 1)});
}

TEST_F(GridEditors, AnEditorOpensWithTheTextOfTheCellSelected)
{
    InGrid(OpensEditor(kMass) +
           Steps{TypesInEditor(L"12 kg"), Types("Return"), ClicksCell(kMass, 1), Sees(EditorShows(L"12 kg")),
                 [](DialogView& view) {
                     EXPECT_EQ(SendMessageW(GridEditor(view), EM_GETSEL, 0, 0), MAKELONG(0, 5));
                 },
                 TypesInEditor(L"7"), Sees(EditorShows(L"7"))});
    EXPECT_EQ(Applied(), "Mass = BSTR '7'");
}

TEST_F(GridEditors, OpeningMarksTheCellAndItsValueAtOnce)
{
    InGrid(OpensEditor(kOrder) +
           Steps{Sees(InRow(kOrder, {L"Order", L"X"})),
                 [this](DialogView&) {
                     // For the choice of the editor, and with the value.
                     EXPECT_TRACE(Calls{"Order.GetProperty(3)", "Order.GetProperty(3)"});
                 },
                 Types("Escape"), Sees(InRow(kOrder, {L"Order", L"X"}))});
    EXPECT_EQ(TypeReads(), 2);
    EXPECT_EQ(Applied(), "Order = BSTR 'X'");
}

TEST_F(GridEditors, OkWhileAnEditIsOpenTakesItsText)
{
    InGrid(OpensEditor(kOrder) + Steps{TypesInEditor(L"half")});
    EXPECT_EQ(TypeReads(), 3);
    EXPECT_EQ(Applied(), "Order = BSTR 'half'");
}

TEST_F(GridEditors, OkWhileAnUntouchedEditIsOpenTakesTheTextOfTheCell)
{
    InGrid(OpensEditor(kOrder));
    EXPECT_EQ(Applied(), "Order = BSTR ''");
}

TEST_F(GridEditors, OkWhileAnUntouchedPickerIsOpenTakesTheMark)
{
    InGrid(OpensEditor(kDue));
    EXPECT_EQ(TypeReads(), 2);
    EXPECT_EQ(Applied(), "Due = BSTR 'X'");
}

TEST_F(GridEditors, AnEditorThatCannotBeCreatedMarksNothing)
{
    std::optional<NoneOf> none;
    const auto without = [&none](const wchar_t* className) -> DialogStep {
        return [&none, className](DialogView&) {
            none.emplace(className);
        };
    };
    const DialogStep withAll = [&none](DialogView&) {
        none.reset();
    };
    InGrid({ClicksCell(kOrder, 1), without(WC_EDITW), ClicksCell(kOrder, 1), withAll, ClicksCell(kDue, 1),
            without(DATETIMEPICK_CLASSW), ClicksCell(kDue, 1), withAll, Sees(NoEditor()),
            Sees(InColumn(1, {L"", L"", L""})), ClicksCell(kDue, 1), Sees(PickerOpen())});
    EXPECT_TRACE(
        Calls{"Order.GetProperty(3)", "Due.GetProperty(3)", "Due.GetProperty(3)", "Due.GetProperty(3)"});
    EXPECT_EQ(Applied(), "Due = BSTR 'X'");
}

TEST_P(GridTypeCodes, ChooseTheEditor)
{
    Station().Attribute(L"Code")->Set(3, GetParam().value, GetParam().status);
    const Sight seen = GetParam().picker ? PickerOpen() : EditorFocused();
    InGrid(OpensEditor(0) + Steps{Sees(InRow(0, {L"Code", L"X"})), Sees(EditorCount(1)), Sees(seen)});
    EXPECT_EQ(Applied(), GetParam().picker ? "Code = BSTR 'X'" : "Code = BSTR ''");
}
