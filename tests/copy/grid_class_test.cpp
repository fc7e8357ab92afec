// The grid as a class: its methods, and a parent that is not the dialog.
#include "CEnhanceCopyListCtrl.h"

#include "Calls.h"
#include "FaultyMemory.h"
#include "MemoryHost.h"
#include "NotificationTap.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace
{
using qptools::CEnhanceCopyListCtrl;
using Texts = std::vector<std::wstring>;

constexpr DWORD kGridStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT;
constexpr UINT kGrid = 42;
constexpr int kEditor = 1000;

/// A grid of 300 pixels in a plain window, with the columns 0 (100 pixels) and 1 (80), and two attributes:
/// Due is row 0, Order row 1.
class GridClass : public testing::Test
{
protected:
    GridClass()
        : parent(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr, nullptr,
                                 nullptr, nullptr)),
          sibling(CreateWindowExW(0, L"Edit", L"", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0, 250, 50, 20,
                                  parent, nullptr, nullptr, nullptr))
    {
        MemoryType* type = host.Config().Type(L"Station");
        order = ComPtr(type->Attribute(L"Order"));
        due = ComPtr(type->Attribute(L"Due", 4));
        EXPECT_TRUE(grid->Create(kGridStyle, RECT{10, 10, 310, 210}, parent, kGrid));
        grid->InsertColumn(0, L"Name", LVCFMT_LEFT, 100);
        grid->InsertColumn(1, L"Value", LVCFMT_LEFT, 80);
        grid->InsertAttribute(L"Order", order.get());
        grid->InsertAttribute(L"Due", due.get());
    }
    ~GridClass() override
    {
        tap.reset();
        grid.reset();
        DestroyWindow(parent);
    }

    /// The parent passes the ends of edits on, or only records them.
    void Listen(bool passesOn)
    {
        tap.emplace(parent, [this, passesOn](WPARAM id, const NMHDR& header) {
            if (header.code != LVN_ENDLABELEDITW)
                return;
            const LVITEMW& item = reinterpret_cast<const NMLVDISPINFOW&>(header).item;
            std::ostringstream line;
            line << id << (header.hwndFrom == grid->m_hWnd ? " grid " : " another ") << header.idFrom << " "
                 << item.iItem << "," << item.iSubItem << " "
                 << (item.pszText ? std::string(item.pszText, item.pszText + item.cchTextMax) : "none");
            ends.push_back(line.str());
            LRESULT result = 7;
            if (passesOn)
            {
                grid->OnLvnEndlabeledit(const_cast<NMHDR*>(&header), &result);
                EXPECT_EQ(result, 0);
            }
        });
    }

    HWND Editor() const { return GetDlgItem(grid->m_hWnd, kEditor); }
    void Type(const wchar_t* text) const
    {
        SendMessageW(Editor(), EM_SETSEL, 0, -1);
        for (; *text; ++text)
            SendMessageW(Editor(), WM_CHAR, static_cast<WPARAM>(*text), 1);
    }
    Texts Row(int row) const
    {
        Texts cells;
        for (int column = 0; column < grid->GetColumnCount(); ++column)
            cells.push_back(grid->GetItemText(row, column));
        return cells;
    }
    ULONG References(IQPAttribute* attribute) const
    {
        attribute->AddRef();
        return attribute->Release();
    }

    /// "row,column" at a point that is so far from the top left corner of a row; the column before is 9.
    std::string Hit(int row, int right, int down) const
    {
        CRect bounds;
        EXPECT_TRUE(grid->GetItemRect(row, LVIR_BOUNDS, bounds));
        return HitAt({bounds.left + right, bounds.top + down});
    }
    std::string HitAt(CPoint point) const
    {
        int column = 9;
        const int hit = grid->HitTestEx(point, &column);
        EXPECT_EQ(grid->HitTestEx(point, nullptr), hit);
        return std::to_string(hit) + "," + std::to_string(column);
    }

    MemoryHost host;
    ComPtr<MemoryAttribute> order;
    ComPtr<MemoryAttribute> due;
    const HWND parent;
    const HWND sibling;
    std::unique_ptr<CEnhanceCopyListCtrl> grid = std::make_unique<CEnhanceCopyListCtrl>();
    std::optional<NotificationTap> tap;
    std::vector<std::string> ends;
};
} // namespace

TEST_F(GridClass, APointHitsItsRowAndColumn)
{
    EXPECT_EQ(Hit(0, 0, 2), "0,0");
    EXPECT_EQ(Hit(1, 50, 2), "1,0");
    EXPECT_EQ(Hit(1, 150, 2), "1,1");
}

TEST_F(GridClass, TheBorderOfTwoColumnsIsOfTheLeftOne)
{
    EXPECT_EQ(Hit(0, 100, 2), "0,0");
    EXPECT_EQ(Hit(0, 101, 2), "0,1");
}

TEST_F(GridClass, TheEdgesOfARowAreInsideOnTheLeftAndTopOnly)
{
    CRect bounds;
    grid->GetItemRect(1, LVIR_BOUNDS, bounds);
    EXPECT_EQ(Hit(1, 0, 0), "1,0");
    EXPECT_EQ(Hit(1, 179, 0), "1,1");
    EXPECT_EQ(Hit(1, 180, 0), "-1,0");
    EXPECT_EQ(HitAt({bounds.left + 5, bounds.bottom - 1}), "1,0");
    EXPECT_EQ(HitAt({bounds.left + 5, bounds.bottom}), "-1,0");
    EXPECT_EQ(HitAt({bounds.left - 1, bounds.top}), "-1,0");
}

TEST_F(GridClass, TheHeaderAndPointsOutsideHitNothing)
{
    EXPECT_EQ(HitAt({5, 3}), "-1,0");
    EXPECT_EQ(HitAt({-5, -3}), "-1,0");
    EXPECT_EQ(HitAt({5, 2000}), "-1,0");
}

TEST_F(GridClass, AColumnWithoutWidthIsPassedOver)
{
    grid->InsertColumn(1, L"", LVCFMT_LEFT, 0);
    EXPECT_EQ(Hit(0, 100, 2), "0,0");
    EXPECT_EQ(Hit(0, 101, 2), "0,2");
}

TEST_F(GridClass, AScrolledRowIsHitWhereItIs)
{
    for (int row = 0; row < 40; ++row)
        grid->InsertAttribute(L"more", order.get());
    grid->SendMessage(LVM_ENSUREVISIBLE, 41);
    EXPECT_GT(grid->GetTopIndex(), 20);
    EXPECT_EQ(Hit(41, 150, 2), "41,1");
    EXPECT_EQ(Hit(40, 10, 2), "40,0");
    CRect above;
    grid->GetItemRect(grid->GetTopIndex() - 1, LVIR_BOUNDS, above);
    EXPECT_EQ(HitAt({5, above.top + 2}), "-1,0");
}

TEST_F(GridClass, CellsThatAreNotEditedOpenNothing)
{
    const std::vector<std::pair<int, int>> cells = {{0, 0},  {1, 0}, {1, 2}, {1, 7},
                                                    {1, -1}, {2, 1}, {7, 1}, {-1, 1}};
    for (const auto& [row, column] : cells)
    {
        grid->ShowInPlaceControls(row, column);
        EXPECT_EQ(Editor(), nullptr) << row << "," << column;
    }
    EXPECT_EQ(host.calls, Calls{});
    EXPECT_EQ(Row(1), (Texts{L"Order", L""}));
}

TEST_F(GridClass, ARowWithoutAnAttributeOpensNothing)
{
    grid->InsertAttribute(L"none", nullptr);
    EXPECT_EQ(grid->AttributeOf(0), nullptr);
    grid->ShowInPlaceControls(0, 1);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Row(0), (Texts{L"none", L""}));
    grid->DeleteItem(0);
}

TEST_F(GridClass, FourPixelsAreTooNarrowAndFiveAreNot)
{
    grid->SendMessage(LVM_SETCOLUMNWIDTH, 1, 4);
    grid->ShowInPlaceControls(1, 1);
    EXPECT_EQ(Editor(), nullptr);
    grid->SendMessage(LVM_SETCOLUMNWIDTH, 1, 5);
    grid->ShowInPlaceControls(1, 1);
    EXPECT_NE(Editor(), nullptr);
}

TEST_F(GridClass, ACellThatBeginsBeyondTheRightEdgeIsScrolledTo)
{
    grid->SendMessage(LVM_SETCOLUMNWIDTH, 0, 400);
    grid->SendMessage(LVM_SETCOLUMNWIDTH, 1, 500);
    grid->ShowInPlaceControls(1, 1);
    CRect bounds;
    grid->GetItemRect(1, LVIR_BOUNDS, bounds);
    EXPECT_EQ(bounds.left, -400);
    RECT place{};
    GetWindowRect(Editor(), &place);
    MapWindowPoints(nullptr, grid->m_hWnd, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, 4);
    EXPECT_EQ(place.right, grid->GetClientRect().right);
}

TEST_F(GridClass, ARowOutOfSightIsScrolledTo)
{
    for (int row = 0; row < 40; ++row)
        grid->InsertAttribute(L"more", order.get());
    grid->ShowInPlaceControls(41, 1);
    ASSERT_NE(Editor(), nullptr);
    CRect bounds;
    grid->GetItemRect(41, LVIR_BOUNDS, bounds);
    RECT place{};
    GetWindowRect(Editor(), &place);
    MapWindowPoints(nullptr, grid->m_hWnd, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.top, bounds.top);
    EXPECT_LE(place.top, grid->GetClientRect().bottom);
}

TEST_F(GridClass, AnotherParentIsNotifiedAndPassesTheTextOn)
{
    Listen(true);
    grid->ShowInPlaceControls(1, 1);
    EXPECT_EQ(GetFocus(), Editor());
    EXPECT_EQ(Row(1), (Texts{L"Order", L"X"}));
    Type(L"five");
    SendMessageW(Editor(), WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_TRUE(grid->HasFocus());
    EXPECT_EQ(ends, std::vector<std::string>{"42 grid 1000 1,1 five"});
    EXPECT_EQ(Row(1), (Texts{L"Order", L"five"}));
    // Only the choice of the editor needs the host: there is no container of values.
    EXPECT_EQ(host.calls, Calls{"Order.GetProperty(3)"});
}

TEST_F(GridClass, AParentThatPassesNothingOnLeavesTheMark)
{
    Listen(false);
    grid->ShowInPlaceControls(1, 1);
    Type(L"five");
    SetFocus(sibling);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(ends, std::vector<std::string>{"42 grid 1000 1,1 five"});
    EXPECT_EQ(Row(1), (Texts{L"Order", L"X"}));
}

TEST_F(GridClass, ACancelledEditIsNotifiedWithoutAText)
{
    Listen(true);
    grid->ShowInPlaceControls(1, 1);
    Type(L"five");
    SendMessageW(Editor(), WM_CHAR, VK_ESCAPE, 1);
    EXPECT_EQ(ends, std::vector<std::string>{"42 grid 1000 1,1 none"});
    EXPECT_EQ(Row(1), (Texts{L"Order", L"X"}));
}

TEST_F(GridClass, AnEndForARowOrColumnThatDoesNotExistIsSilent)
{
    wchar_t text[] = L"text";
    for (const auto& [row, column] : {std::pair{5, 1}, {-1, 1}, {1, 5}, {1, -1}})
    {
        NMLVDISPINFOW end{};
        end.item.iItem = row;
        end.item.iSubItem = column;
        end.item.pszText = text;
        LRESULT result = 7;
        grid->OnLvnEndlabeledit(&end.hdr, &result);
        EXPECT_EQ(result, 0);
    }
    EXPECT_EQ(Row(0), (Texts{L"Due", L""}));
    EXPECT_EQ(Row(1), (Texts{L"Order", L""}));
}

TEST_F(GridClass, TheMarkMovesAmongThreeColumns)
{
    for (int column = 2; column <= 5; ++column)
        grid->InsertColumn(column, L"", LVCFMT_LEFT, 20);
    for (int column = 1; column <= 5; ++column)
        grid->SetItemText(1, column, L"old");
    const std::vector<std::pair<int, Texts>> marked = {
        {5, {L"Order", L"", L"", L"", L"old", L"old"}}, {4, {L"Order", L"", L"", L"", L"old", L"old"}},
        {0, {L"Order", L"", L"", L"", L"old", L"old"}}, {2, {L"Order", L"", L"X", L"", L"", L"old"}},
        {1, {L"Order", L"X", L"", L"", L"", L"old"}},   {3, {L"Order", L"", L"", L"X", L"", L"old"}},
        {-1, {L"Order", L"", L"", L"", L"", L"old"}},
    };
    for (const auto& [column, row] : marked)
    {
        grid->ApplyRadioButtonLogic(1, column);
        EXPECT_EQ(Row(1), row) << column;
    }
    EXPECT_EQ(Row(0), (Texts{L"Due", L"", L"", L"", L"", L""}));
    EXPECT_EQ(host.calls, Calls{});
}

TEST_F(GridClass, AnEditIsEndedByEachMessageThatMovesItsCell)
{
    Listen(true);
    const std::vector<std::pair<UINT, const char*>> messages = {
        {WM_VSCROLL, "rows"}, {WM_HSCROLL, "columns"}, {WM_MOUSEWHEEL, "wheel"}, {WM_SIZE, "size"}};
    for (const auto& [message, name] : messages)
    {
        grid->ShowInPlaceControls(1, 1);
        Type(L"five");
        grid->SendMessage(message);
        EXPECT_EQ(Editor(), nullptr) << name;
        EXPECT_TRUE(grid->HasFocus()) << name;
        EXPECT_EQ(ends, std::vector<std::string>{"42 grid 1000 1,1 five"}) << name;
        ends.clear();
    }
}

TEST_F(GridClass, AttributesAreHeldByTheirRows)
{
    const ULONG before = References(order.get());
    grid->InsertAttribute(L"more", order.get());
    EXPECT_EQ(grid->AttributeOf(0), order.get());
    EXPECT_EQ(References(order.get()), before + 1);
    grid->DeleteItem(0);
    EXPECT_EQ(References(order.get()), before);
    grid->DeleteAllItems();
    EXPECT_EQ(References(order.get()), before - 1);
    EXPECT_EQ(grid->AttributeOf(0), nullptr);
}

TEST_F(GridClass, AttributesAreReleasedWithTheWindow)
{
    const ULONG before = References(order.get());
    DestroyWindow(grid->m_hWnd);
    EXPECT_EQ(References(order.get()), before - 1);
}

TEST_F(GridClass, AttributesAreReleasedWithTheObject)
{
    const ULONG before = References(order.get());
    grid.reset();
    EXPECT_EQ(References(order.get()), before - 1);
}

TEST_F(GridClass, OpenEditorsGoWithTheWindowWithoutTheirTexts)
{
    Listen(true);
    grid->ShowInPlaceControls(0, 1);
    grid->ShowInPlaceControls(1, 1);
    DestroyWindow(grid->m_hWnd);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(ends, std::vector<std::string>{});
}

TEST_F(GridClass, OpenEditorsGoWithTheObject)
{
    grid->ShowInPlaceControls(0, 1);
    grid->ShowInPlaceControls(1, 1);
    const HWND editor = Editor();
    grid.reset();
    EXPECT_FALSE(IsWindow(editor));
}

TEST_F(GridClass, AnEditorOfADeletedRowGoesWithoutItsText)
{
    Listen(true);
    grid->ShowInPlaceControls(1, 1);
    Type(L"five");
    grid->DeleteItem(1);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(ends, std::vector<std::string>{});
    EXPECT_EQ(Row(0), (Texts{L"Due", L""}));
}

TEST_F(GridClass, ClosedEditorsDoNotPileUp)
{
    const auto edit = [this] {
        grid->ShowInPlaceControls(1, 1);
        SendMessageW(Editor(), WM_CHAR, VK_ESCAPE, 1);
    };
    for (int warm = 0; warm < 10; ++warm)
        edit();
    host.recording = false;
    const long before = FaultyMemory::Blocks();
    for (int time = 0; time < 100; ++time)
        edit();
    EXPECT_EQ(FaultyMemory::Blocks(), before);
}
