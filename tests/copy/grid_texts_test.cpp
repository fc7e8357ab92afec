// Texts of every kind in the editor of a cell, and how the editor widens with them.
#include "GridFixture.h"

#include "WindowTexts.h"

namespace
{
using namespace copy_dialog;
using namespace grid;

struct TypedText
{
    const char* name;
    std::wstring text;
};

std::ostream& operator<<(std::ostream& stream, const TypedText& text)
{
    return stream << text.name;
}

class GridTexts : public GridFixture, public testing::WithParamInterface<TypedText>
{
};

const TypedText kTexts[] = {
    {"Word", L"Weld"},
    {"Blank", L" "},
    {"BlanksAround", L"  two words  "},
    {"TheMark", L"X"},
    {"Number", L"-12,5"},
    {"Quotes", L"\"it's\""},
    {"Ampersand", L"a && b"},
    {"Percent", L"100 %s %n"},
    {"Umlauts", L"Gr\u00f6\u00dfe"},
    {"Chinese", L"\u7d44\u7acb"},
    {"Arabic", L"\u0637\u0644\u0627\u0621"},
    {"Hebrew", L"\u05e9\u05dc\u05d5\u05dd abc"},
    {"Combining", L"e\u0301"},
    {"Emoji", L"\U0001F527 ok"},
    {"Joined", L"\U0001F468\u200D\U0001F527"},
    {"Long", std::wstring(100, L'w')},
};

INSTANTIATE_TEST_SUITE_P(Of, GridTexts, testing::ValuesIn(kTexts),
                         [](const auto& given) { return std::string(given.param.name); });

LONG WidthOf(HWND editor, const std::wstring& text)
{
    SIZE size{};
    const HDC context = GetDC(editor);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(GetParent(editor), WM_GETFONT, 0, 0));
    const HGDIOBJ before = SelectObject(context, font);
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(context, before);
    ReleaseDC(editor, context);
    return size.cx;
}

class GridWidening : public GridFixture
{
protected:
    /// Opens an editor of 37 pixels.
    Steps OpensNarrow() const
    {
        return Steps{SizesColumn(1, 40)} + OpensEditor(kOrder) + Steps{[this](DialogView& view) {
                   EXPECT_EQ(Place(view).right - Place(view).left, 37);
               }};
    }

    RECT Place(const DialogView& view) const { return PlaceInGrid(GridOf(view), GridEditor(view)); }

    /// The right edge of the editor is where its text needs it to be, and the others are where they were.
    DialogStep SeesItFits(const std::wstring& text)
    {
        return [this, text](DialogView& view) {
            const RECT place = Place(view);
            const RECT cell = CellPlace(GridOf(view), kOrder, 1);
            RECT area{};
            GetClientRect(GridOf(view), &area);
            EXPECT_EQ(place.left, cell.left + 4);
            EXPECT_EQ(place.top, cell.top);
            EXPECT_EQ(place.bottom, cell.bottom);
            EXPECT_EQ(place.right, std::min(place.left + WidthOf(GridEditor(view), text) + 5, area.right));
        };
    }

    DialogStep SeesWidth(int width) const
    {
        return [=, this](DialogView& view) {
            EXPECT_EQ(Place(view).right - Place(view).left, width);
        };
    }
};
} // namespace

TEST_P(GridTexts, ReachTheCellTheCopiesAndTheNextEditor)
{
    const std::wstring& text = GetParam().text;
    InGrid(OpensEditor(kOrder) + Steps{TypesInEditor(text), Sees(EditorShows(text)), Types("Return"),
                                       Sees(NoEditor()), Sees(InRow(kOrder, {L"Order", text})),
                                       ClicksCell(kOrder, 1), Sees(EditorShows(text)), Types("Tab"),
                                       Sees(NoEditor()), Sees(InRow(kOrder, {L"Order", text}))});
    EXPECT_EQ(Applied(), "Order = BSTR '" + Utf8Text(text) + "'");
}

TEST_P(GridTexts, ComeBackWithThePlanType)
{
    const std::wstring& text = GetParam().text;
    InGrid(OpensEditor(kOrder) + Steps{TypesInEditor(text), Chooses(kPlanType, L"Cell"), Sees(NoEditor()),
                                       Sees(InColumn(1, {L""})), Chooses(kPlanType, L"Station"),
                                       Sees(InColumn(1, {L"", L"", text}))});
    EXPECT_EQ(Applied(), "Order = BSTR '" + Utf8Text(text) + "',  = EMPTY,  = EMPTY");
}

TEST_F(GridWidening, ALongTextThatIsPutInReachesTheCopies)
{
    const std::wstring text(40'000, L'm');
    InGrid(OpensEditor(kOrder) +
           Steps{[&text](DialogView& view) { SetWindowTextW(GridEditor(view), text.c_str()); },
                 Types("Return"), Sees(NoEditor()),
                 [&text](DialogView& view) { EXPECT_TRUE(view.Cell(kGrid, kOrder, 1) == text); },
                 ClicksCell(kOrder, 1),
                 [&text](DialogView& view) {
                     EXPECT_TRUE(view.Text(GridEditor(view)) == text);
                 }});
    EXPECT_TRUE(Applied() == "Order = BSTR '" + std::string(40'000, 'm') + "'");
    host.calls.clear();
}

TEST_F(GridWidening, AnEditorKeepsItsWidthWhileTheTextFits)
{
    InGrid(OpensNarrow() + Steps{TypesInEditor(L"ii"), SeesWidth(37)});
}

TEST_F(GridWidening, AnEditorGrowsWithEachCharacter)
{
    Steps steps = OpensNarrow() + Steps{TypesInEditor(L"mmmmmmm")};
    for (std::wstring text = L"mmmmmmmm"; text.size() < 13; text += L'm')
        steps = steps + Steps{[](DialogView& view) { SendMessageW(GridEditor(view), WM_CHAR, L'm', 1); },
                              Sees(EditorShows(text)), SeesItFits(text)};
    InGrid(steps);
}

TEST_F(GridWidening, AnEditorGrowsToTheEdgeOfTheGrid)
{
    const std::wstring text(60, L'm');
    InGrid(OpensNarrow() + Steps{TypesInEditor(text), SeesItFits(text), [this](DialogView& view) {
                                     RECT area{};
                                     GetClientRect(GridOf(view), &area);
                                     EXPECT_EQ(Place(view).right, area.right);
                                 }});
}

TEST_F(GridWidening, AnEditorDoesNotShrink)
{
    const std::wstring text(12, L'm');
    InGrid(OpensNarrow() + Steps{TypesInEditor(text), SeesItFits(text),
                                 [](DialogView& view) {
                                     for (int left = 11; left > 0; --left)
                                         SendMessageW(GridEditor(view), WM_CHAR, VK_BACK, 1);
                                 },
                                 Sees(EditorShows(L"m")), SeesItFits(text)});
}

TEST_F(GridWidening, ALongTextOfTheCellWidensWithTheFirstKey)
{
    const std::wstring text(15, L'm');
    InGrid(OpensNarrow() + Steps{TypesInEditor(text), Types("Return"), ClicksCell(kOrder, 1),
                                 Sees(EditorShows(text)), SeesWidth(37),
                                 [](DialogView& view) {
                                     SendMessageW(GridEditor(view), EM_SETSEL, 15, 15);
                                     SendMessageW(GridEditor(view), WM_CHAR, L'm', 1);
                                 },
                                 SeesItFits(text + L"m")});
}

TEST_F(GridWidening, TheNextEditorHasTheWidthOfItsColumn)
{
    InGrid(OpensNarrow() + Steps{TypesInEditor(std::wstring(15, L'm')), Types("Return"), ClicksCell(kMass, 1),
                                 ClicksCell(kMass, 1), SeesWidth(37)});
}
