// The end of an edit: what the dialog is told, and what happens when dialog, rows or host go meanwhile.
#include "GridFixture.h"
#include "NotificationTap.h"

#include "WindowTexts.h"

#include <optional>

namespace
{
using namespace copy_dialog;
using namespace grid;

std::string EndLine(HWND grid, WPARAM id, const NMHDR& header)
{
    const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW&>(header).item;
    std::ostringstream line;
    line << id << (header.hwndFrom == grid ? " from the grid " : " from another ") << header.idFrom
         << " code " << static_cast<int>(header.code) << " mask " << item.mask << " cell " << item.iItem
         << "," << item.iSubItem << " "
         << (item.pszText ? "'" + Utf8Text(item.pszText) + "'" : std::string("without a text")) << " limit "
         << item.cchTextMax;
    return line.str();
}

class GridEnds : public GridFixture
{
protected:
    /// From now on the ends of edits are in `ends`.
    DialogStep Listens()
    {
        return [this](DialogView& view) {
            const HWND grid = GridOf(view);
            tap.emplace(view.Window(), [this, grid](WPARAM id, const NMHDR& header) {
                if (header.code == LVN_ENDLABELEDITW)
                    ends.push_back(EndLine(grid, id, header));
            });
        };
    }

    /// The end of an edit, as the grid's notification.
    static DialogStep NotifiesEnd(int row, int column, const wchar_t* text)
    {
        return [=](DialogView& view) {
            std::wstring copy(text ? text : L"");
            NMLVDISPINFOW end{};
            end.hdr = {GridOf(view), 1000, LVN_ENDLABELEDITW};
            end.item.mask = LVIF_TEXT;
            end.item.iItem = row;
            end.item.iSubItem = column;
            end.item.pszText = text ? copy.data() : nullptr;
            end.item.cchTextMax = static_cast<int>(copy.size());
            EXPECT_EQ(SendMessageW(view.Window(), WM_NOTIFY, kGrid, reinterpret_cast<LPARAM>(&end)), 0);
        };
    }

    /// At the next reading of a type code, once.
    void OnTypeRead(std::function<void()> act)
    {
        host.onCall = [this, act = std::move(act)](const std::string& call) {
            if (!IsTypeRead(call))
                return;
            const std::function<void()> now = act;
            host.onCall = nullptr;
            now();
        };
    }

    std::vector<std::string> ends;
    std::optional<NotificationTap> tap;
};
} // namespace

TEST_F(GridEnds, ATextIsNotifiedOnce)
{
    InGrid(OpensEditor(kOrder) +
           Steps{Listens(), TypesInEditor(L"four"), Types("Return"), [this](DialogView&) {
                     tap.reset();
                 }});
    EXPECT_EQ(ends,
              std::vector<std::string>{"373 from the grid 1000 code -176 mask 1 cell 2,1 'four' limit 4"});
}

TEST_F(GridEnds, AnEmptyTextIsNotifiedAsAText)
{
    InGrid(OpensEditor(kMass) + Steps{Listens(), Types("Tab"), [this](DialogView&) {
                                          tap.reset();
                                      }});
    EXPECT_EQ(ends, std::vector<std::string>{"373 from the grid 1000 code -176 mask 1 cell 1,1 '' limit 0"});
}

TEST_F(GridEnds, ACancelledEditIsNotifiedWithoutAText)
{
    InGrid(OpensEditor(kOrder) +
           Steps{Listens(), TypesInEditor(L"four"), Types("Escape"), [this](DialogView&) {
                     tap.reset();
                 }});
    EXPECT_EQ(ends, std::vector<std::string>{
                        "373 from the grid 1000 code -176 mask 1 cell 2,1 without a text limit 0"});
}

TEST_F(GridEnds, ANotificationWithATextChangesCellAndValue)
{
    InGrid({NotifiesEnd(kMass, 1, L"5"), Sees(InColumn(1, {L"", L"5", L""}))});
    EXPECT_EQ(TypeReads(), 1);
    EXPECT_EQ(Applied(), "Mass = BSTR '5'");
}

TEST_F(GridEnds, ANotificationWithoutATextChangesNothing)
{
    InGrid({NotifiesEnd(kMass, 1, nullptr), Sees(InColumn(1, {L"", L"", L""}))});
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(Applied(), "");
}

TEST_F(GridEnds, ANotificationForARowThatDoesNotExistChangesNothing)
{
    InGrid({NotifiesEnd(3, 1, L"5"), NotifiesEnd(-1, 1, L"5"), Sees(InColumn(1, {L"", L"", L""}))});
    EXPECT_TRACE(Calls{});
    EXPECT_EQ(Applied(), "");
}

TEST_F(GridEnds, ANotificationForAColumnThatDoesNotExistIsAnEmptyValue)
{
    InGrid({NotifiesEnd(kMass, 1, L"5"), NotifiesEnd(kMass, 7, L"6"), Sees(InColumn(1, {L"", L"5", L""}))});
    EXPECT_EQ(Applied(), "Mass = BSTR ''");
}

TEST_F(GridEnds, TheCloseBoxEndsAnOpenEdit)
{
    OpenGrid(OpensEditor(kOrder) + Steps{TypesInEditor(L"typed"), Closes()});
    EXPECT_EQ(TypeReads(), 3);
    EXPECT_EQ(Clicked(), -1);
    EXPECT_EQ(Applied(), "");
}

TEST_F(GridEnds, TheCloseBoxEndsAnOpenPickerWithoutItsText)
{
    OpenGrid(OpensEditor(kDue) + Steps{Sees(PickerOpen()), Closes()});
    EXPECT_EQ(TypeReads(), 2);
    EXPECT_EQ(Applied(), "");
}

TEST_F(GridEnds, CancelDropsWhatWasTyped)
{
    OpenGrid(OpensEditor(kOrder) + Steps{TypesInEditor(L"typed"), Presses(kAdvancedCancel)});
    EXPECT_EQ(TypeReads(), 3);
    EXPECT_EQ(Clicked(), -1);
    EXPECT_EQ(Applied(), "");
}

TEST_F(GridEnds, TheContractedFormTakesWhatWasTyped)
{
    OpenGrid(OpensEditor(kOrder) + Steps{TypesInEditor(L"typed"), Presses(kAdvanced), Presses(kDeep)});
    EXPECT_EQ(Clicked(), 8);
    EXPECT_EQ(Applied(), "Order = BSTR 'typed'");
}

TEST_F(GridEnds, EnterAndEscapeInAnEditorNeverCloseTheDialog)
{
    Steps steps = {ClicksCell(kOrder, 1)};
    for (int round = 0; round < 5; ++round)
        for (const char* key : {"Return", "Escape"})
            steps = steps + Steps{ClicksCell(kOrder, 1), Sees(EditorFocused()), Types(key), Sees(NoEditor()),
                                  Sees(FocusOn(kGrid))};
    InGrid(steps);
    EXPECT_EQ(Clicked(), 0);
}

TEST_F(GridEnds, DeleteAndKeysWithControlGoToTheEditor)
{
    InGrid(OpensEditor(kOrder) + Steps{TypesInEditor(L"one two"), Types("ctrl+Home"), Types("Delete"),
                                       Sees(EditorShows(L"ne two")), Types("ctrl+Right"), Types("Delete"),
                                       Sees(EditorShows(L"ne wo")), Types("Return")});
    EXPECT_EQ(Applied(), "Order = BSTR 'ne wo'");
}

// A host that lets the user go on while it answers.

TEST_F(GridEnds, RowsMayBeDeletedWhileTheHostAnswersAnOpening)
{
    InGrid({ClicksCell(kOrder, 1),
            [this](DialogView& view) {
                OnTypeRead([view] { SendMessageW(view.Control(kDeepRadio), BM_CLICK, 0, 0); });
            },
            ClicksCell(kOrder, 1), Sees(RowCount(0)), Sees(NoEditor()), Chooses(kPlanType, L"Station"),
            Sees(RowCount(3))});
    EXPECT_EQ(Applied(), "");
}

TEST_F(GridEnds, RowsMayBeDeletedAndOthersOpenedWhileTheHostTakesAText)
{
    InGrid(OpensEditor(kOrder) +
           Steps{TypesInEditor(L"typed"),
                 [this](DialogView& view) {
                     OnTypeRead([view] {
                         SendMessageW(view.Control(kDeepRadio), BM_CLICK, 0, 0);
                         view.Choose(kPlanType, L"Station");
                         const RECT cell = CellPlace(GridOf(view), kMass, 1);
                         const LPARAM place = MAKELPARAM(cell.left + 9, cell.top + 3);
                         for (int click = 0; click < 2; ++click)
                         {
                             PostMessageW(GridOf(view), WM_LBUTTONUP, 0, place);
                             SendMessageW(GridOf(view), WM_LBUTTONDOWN, MK_LBUTTON, place);
                         }
                     });
                 },
                 Types("Return"), Sees(RowCount(3)), Types("Return"), Sees(NoEditor())});
    EXPECT_EQ(Applied(), "Mass = BSTR '', Order = BSTR 'typed',  = EMPTY");
}

TEST_F(GridEnds, AnAttributeThatOnlyItsRowHoldsOutlivesItsAnswer)
{
    InGrid(OpensEditor(kOrder) +
           Steps{TypesInEditor(L"typed"),
                 [this](DialogView& view) {
                     Station().attributes.objects.clear();
                     OnTypeRead([view] { SendMessageW(view.Control(kDeepRadio), BM_CLICK, 0, 0); });
                 },
                 Types("Return"), Sees(RowCount(0)), Sees(NoEditor())});
    EXPECT_EQ(Applied(), "Order = BSTR 'typed'");
}
