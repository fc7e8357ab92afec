// Where things are in a list view in report mode: rectangles and scrolling. Sizes are the system's own: the
// tests compare them with each other.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
int HeaderHeight(const ListViewHost& list)
{
    RECT rect{};
    GetWindowRect(list.Header(), &rect);
    return rect.bottom - rect.top;
}

int RowHeight(const ListViewHost& list)
{
    const RECT row = list.ItemRect(0);
    return row.bottom - row.top;
}

bool IsWhole(const ListViewHost& list, int item)
{
    const RECT row = list.ItemRect(item);
    return row.top >= HeaderHeight(list) && row.bottom <= list.Client().bottom;
}

void ExpectSame(const RECT& one, const RECT& other)
{
    EXPECT_EQ(one.left, other.left);
    EXPECT_EQ(one.top, other.top);
    EXPECT_EQ(one.right, other.right);
    EXPECT_EQ(one.bottom, other.bottom);
}
} // namespace

TEST(ListViewGeometry, TheFirstRowLiesUnderTheHeader)
{
    ListViewHost list;
    list.Fill(3);
    EXPECT_GT(HeaderHeight(list), 0);
    EXPECT_EQ(list.ItemRect(0).top, HeaderHeight(list));
}

TEST(ListViewGeometry, WithoutAHeaderTheFirstRowIsAtTheTop)
{
    ListViewHost list(LVS_REPORT | LVS_NOCOLUMNHEADER);
    list.Fill(3);
    EXPECT_EQ(list.ItemRect(0).top, 0);
}

TEST(ListViewGeometry, RowsFollowEachOtherWithoutGaps)
{
    ListViewHost list;
    list.Fill(30);
    EXPECT_GT(RowHeight(list), 0);
    for (int i = 1; i < 30; ++i)
        EXPECT_EQ(list.ItemRect(i).top, list.ItemRect(i - 1).bottom) << i;
}

TEST(ListViewGeometry, ARowIsAsWideAsItsColumns)
{
    ListViewHost list(LVS_REPORT, 3);
    list.Fill(1);
    const RECT row = list.ItemRect(0);
    EXPECT_EQ(row.left, 0);
    EXPECT_EQ(row.right, 240);
    list.Send(LVM_SETCOLUMNWIDTH, 1, 100);
    EXPECT_EQ(list.ItemRect(0).right, 260);
}

TEST(ListViewGeometry, TheLabelIsInsideTheFirstColumn)
{
    ListViewHost list(LVS_REPORT, 2);
    list.Fill(1);
    const RECT label = list.ItemRect(0, LVIR_LABEL);
    const RECT row = list.ItemRect(0);
    EXPECT_EQ(label.top, row.top);
    EXPECT_EQ(label.bottom, row.bottom);
    EXPECT_GE(label.left, row.left);
    EXPECT_GT(label.right, label.left);
    EXPECT_EQ(label.right, 80);
    list.Send(LVM_SETCOLUMNWIDTH, 0, 0);
    EXPECT_EQ(list.ItemRect(0, LVIR_LABEL).left, label.left) << "whatever the width";
    EXPECT_EQ(list.ItemRect(0, LVIR_LABEL).right, 0);
}

TEST(ListViewGeometry, TheRectangleOfWhatDoesNotExistIsRefused)
{
    ListViewHost list(LVS_REPORT, 2);
    list.Fill(2);
    RECT rect{LVIR_BOUNDS, 0, 0, 0};
    EXPECT_FALSE(list.Send(LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&rect)));
    rect.left = LVIR_BOUNDS;
    EXPECT_FALSE(list.Send(LVM_GETITEMRECT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&rect)));
    rect = {LVIR_BOUNDS, 1, 0, 0};
    EXPECT_TRUE(list.Send(LVM_GETSUBITEMRECT, 1, reinterpret_cast<LPARAM>(&rect)));
}

TEST(ListViewGeometry, ASubItemIsTheRowsPartUnderItsColumn)
{
    ListViewHost list(LVS_REPORT, 3);
    list.Fill(2);
    list.Send(LVM_SETCOLUMNWIDTH, 0, 50);
    const RECT second = list.SubItemRect(1, 1);
    const RECT third = list.SubItemRect(1, 2);
    EXPECT_EQ(second.left, 50);
    EXPECT_EQ(second.right, 130);
    EXPECT_EQ(third.left, 130);
    EXPECT_EQ(third.right, 210);
    EXPECT_EQ(third.top, list.ItemRect(1).top);
    EXPECT_EQ(third.bottom, list.ItemRect(1).bottom);
    ExpectSame(list.SubItemRect(1, 2, LVIR_LABEL), third);
}

TEST(ListViewGeometry, SubItemZeroIsTheWholeRow)
{
    ListViewHost list(LVS_REPORT, 3);
    list.Fill(1);
    ExpectSame(list.SubItemRect(0, 0), list.ItemRect(0));
}

TEST(ListViewGeometry, SubItemsLieUnderTheirHeadings)
{
    ListViewHost list(LVS_REPORT, 3);
    list.Fill(1);
    for (int i = 1; i < 3; ++i)
    {
        RECT heading{};
        EXPECT_TRUE(SendMessageW(list.Header(), HDM_GETITEMRECT, static_cast<WPARAM>(i),
                                 reinterpret_cast<LPARAM>(&heading)));
        EXPECT_EQ(list.SubItemRect(0, i).left, heading.left);
        EXPECT_EQ(list.SubItemRect(0, i).right, heading.right);
    }
}

TEST(ListViewGeometry, APageHoldsTheRowsThatAreWholeInSight)
{
    ListViewHost list;
    list.Fill(50);
    EXPECT_EQ(list.PerPage(), (list.Client().bottom - HeaderHeight(list)) / RowHeight(list));
    EXPECT_GT(list.PerPage(), 2);
    EXPECT_TRUE(IsWhole(list, list.PerPage() - 1));
    EXPECT_FALSE(IsWhole(list, list.PerPage()));
}

TEST(ListViewGeometry, TheCountPerPageIsNotLimitedByTheItems)
{
    ListViewHost list;
    const int empty = list.PerPage();
    EXPECT_GT(empty, 2);
    list.Fill(2);
    EXPECT_EQ(list.PerPage(), empty);
}

TEST(ListViewGeometry, EnsureVisibleScrollsJustFarEnoughDown)
{
    ListViewHost list;
    list.Fill(50);
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, 30, FALSE));
    EXPECT_TRUE(IsWhole(list, 30));
    EXPECT_FALSE(IsWhole(list, 31));
    EXPECT_EQ(list.Top(), 31 - list.PerPage());
    EXPECT_EQ(list.ItemRect(list.Top()).top, HeaderHeight(list));
}

TEST(ListViewGeometry, EnsureVisibleScrollsJustFarEnoughUp)
{
    ListViewHost list;
    list.Fill(50);
    list.Send(LVM_ENSUREVISIBLE, 49, FALSE);
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, 10, FALSE));
    EXPECT_EQ(list.Top(), 10);
}

TEST(ListViewGeometry, EnsureVisibleOfWhatIsInSightDoesNotScroll)
{
    ListViewHost list;
    list.Fill(50);
    list.Send(LVM_ENSUREVISIBLE, 30, FALSE);
    const int top = list.Top();
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(top), FALSE));
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, 30, FALSE));
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(top + 1), TRUE));
    EXPECT_EQ(list.Top(), top);
}

TEST(ListViewGeometry, ARowThatIsCutOffIsVisibleInPart)
{
    ListViewHost list;
    list.Fill(50);
    const int cut = list.PerPage();
    ASSERT_LT(list.ItemRect(cut).top, list.Client().bottom);
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(cut), TRUE));
    EXPECT_EQ(list.Top(), 0);
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(cut + 1), TRUE));
    EXPECT_EQ(list.Top(), 2);
    EXPECT_TRUE(list.Send(LVM_ENSUREVISIBLE, 1, TRUE));
    EXPECT_EQ(list.Top(), 1);
}

TEST(ListViewGeometry, EnsureVisibleOfWhatDoesNotExistFails)
{
    ListViewHost list;
    EXPECT_FALSE(list.Send(LVM_ENSUREVISIBLE, 0, FALSE));
    list.Fill(2);
    EXPECT_FALSE(list.Send(LVM_ENSUREVISIBLE, 2, FALSE));
    EXPECT_FALSE(list.Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(-1), FALSE));
}

TEST(ListViewGeometry, AListThatFitsStartsAtTheTop)
{
    ListViewHost list;
    list.Fill(2);
    EXPECT_EQ(list.Top(), 0);
    list.Send(LVM_ENSUREVISIBLE, 1, FALSE);
    EXPECT_EQ(list.Top(), 0);
}

TEST(ListViewGeometry, ScrollsByWholeRows)
{
    ListViewHost list;
    list.Fill(50);
    EXPECT_TRUE(list.Send(LVM_SCROLL, 0, 3 * RowHeight(list)));
    EXPECT_EQ(list.Top(), 3);
    EXPECT_TRUE(list.Send(LVM_SCROLL, 0, -RowHeight(list)));
    EXPECT_EQ(list.Top(), 2);
}

TEST(ListViewGeometry, ScrollsNoFurtherThanTheEnds)
{
    ListViewHost list;
    list.Fill(50);
    list.Send(LVM_SCROLL, 0, 1000 * RowHeight(list));
    EXPECT_EQ(list.Top(), 50 - list.PerPage());
    EXPECT_TRUE(IsWhole(list, 49));
    list.Send(LVM_SCROLL, 0, -1000 * RowHeight(list));
    EXPECT_EQ(list.Top(), 0);
}

TEST(ListViewGeometry, RowsAboveTheSightHaveRectanglesAboveTheFirst)
{
    ListViewHost list;
    list.Fill(50);
    list.Send(LVM_ENSUREVISIBLE, 49, FALSE);
    const int top = list.Top();
    EXPECT_EQ(list.ItemRect(top - 1).bottom, HeaderHeight(list));
    EXPECT_EQ(list.ItemRect(0).top, HeaderHeight(list) - top * RowHeight(list));
}

TEST(ListViewGeometry, ScrollsSidewaysByPixelsAsFarAsTheColumnsGo)
{
    ListViewHost list(LVS_REPORT, 5);
    list.Fill(2);
    EXPECT_TRUE(list.Send(LVM_SCROLL, 30, 0));
    EXPECT_EQ(list.ItemRect(0).left, -30);
    EXPECT_EQ(list.ItemRect(0).right, 370);
    EXPECT_EQ(list.SubItemRect(0, 1).left, 50);
    list.Send(LVM_SCROLL, 1000, 0);
    EXPECT_EQ(list.ItemRect(0).right, list.Client().right);
    list.Send(LVM_SCROLL, static_cast<WPARAM>(-1000), 0);
    EXPECT_EQ(list.ItemRect(0).left, 0);
}

TEST(ListViewGeometry, ColumnsThatFitDoNotScrollSideways)
{
    ListViewHost list(LVS_REPORT, 2);
    list.Fill(2);
    list.Send(LVM_SCROLL, 30, 0);
    EXPECT_EQ(list.ItemRect(0).left, 0);
}

TEST(ListViewGeometry, TheHeaderScrollsAlong)
{
    ListViewHost list(LVS_REPORT, 5);
    list.Fill(2);
    list.Send(LVM_SCROLL, 30, 0);
    RECT window{};
    GetWindowRect(list.Header(), &window);
    POINT corner{window.left, window.top};
    MapWindowPoints(nullptr, list.Control(), &corner, 1);
    RECT heading{};
    SendMessageW(list.Header(), HDM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&heading));
    EXPECT_EQ(corner.x + heading.left, list.SubItemRect(0, 2).left);
}

TEST(ListViewGeometry, TheScrollBarsMoveByLinesAndPages)
{
    ListViewHost list(LVS_REPORT, 5);
    list.Fill(50);
    constexpr WPARAM kLineBack = 0;
    constexpr WPARAM kLineOn = 1;
    constexpr WPARAM kPageOn = 3;
    list.Send(WM_VSCROLL, kLineOn, 0);
    list.Send(WM_VSCROLL, kLineOn, 0);
    EXPECT_EQ(list.Top(), 2);
    list.Send(WM_VSCROLL, kLineBack, 0);
    EXPECT_EQ(list.Top(), 1);
    list.Send(WM_VSCROLL, kPageOn, 0);
    EXPECT_GT(list.Top(), 2);
    EXPECT_LE(list.Top(), 1 + list.PerPage());
    list.Send(WM_HSCROLL, kLineOn, 0);
    EXPECT_LT(list.ItemRect(0).left, 0);
    list.Send(WM_HSCROLL, kLineBack, 0);
    EXPECT_EQ(list.ItemRect(0).left, 0);
}

TEST(ListViewGeometry, DeletedItemsScrollTheListBack)
{
    ListViewHost list;
    list.Fill(50);
    list.Send(LVM_ENSUREVISIBLE, 49, FALSE);
    for (int i = 0; i < 47; ++i)
        list.Send(LVM_DELETEITEM, 0);
    EXPECT_EQ(list.Top(), 0);
}
