// The columns of the list of bookmarks and how narrow they become.
#include "BookmarkFixture.h"
#include "BookmarkSteps.h"

namespace
{
using namespace bookmark_dialog;

class ListColumns : public BookmarkFixture
{
protected:
    void See(const Steps& steps) { EXPECT_EQ(Show(steps + Steps{TraceBegins(), Presses(IDCANCEL)}), S_OK); }

    /// What HDM_SETITEM answers in its wide or narrow form.
    static LRESULT SetHeading(DialogView& view, int column, HDITEMW change, UINT message = HDM_SETITEMW)
    {
        return SendMessageW(HeaderOf(view), message, static_cast<WPARAM>(column),
                            reinterpret_cast<LPARAM>(&change));
    }

    static HDITEMW WidthOf(int width)
    {
        HDITEMW change{};
        change.mask = HDI_WIDTH;
        change.cxy = width;
        return change;
    }
};
} // namespace

TEST_F(ListColumns, AreTwoOfFixedWidths)
{
    See({Sees(Headings({L"Bookmark Name", L"Component Name"})), Sees(ColumnWidths(250, 500))});
}

TEST_F(ListColumns, AreLeftAligned)
{
    See({[](DialogView& view) {
        for (const WPARAM column : {0, 1})
        {
            LVCOLUMNW format{};
            format.mask = LVCF_FMT;
            EXPECT_TRUE(SendMessageW(view.List(), LVM_GETCOLUMNW, column, reinterpret_cast<LPARAM>(&format)));
            EXPECT_EQ(format.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT) << column;
        }
    }});
}

TEST_F(ListColumns, TheListHasFullRowsLabelTipsAndLabelsToEdit)
{
    See({[](DialogView& view) {
        EXPECT_EQ(SendMessageW(view.List(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0), 0x4020);
        EXPECT_EQ(view.Style(kList) & 0xFFFFU,
                  static_cast<DWORD>(LVS_REPORT | LVS_SORTASCENDING | LVS_EDITLABELS));
    }});
}

TEST_F(ListColumns, ACellOfTheSecondColumnSelectsItsRow)
{
    See({[](DialogView& view) {
             RECT cell{};
             cell.top = 1;
             cell.left = LVIR_BOUNDS;
             EXPECT_TRUE(SendMessageW(view.List(), LVM_GETSUBITEMRECT, 1, reinterpret_cast<LPARAM>(&cell)));
             const LPARAM point = MAKELPARAM(cell.left + 9, (cell.top + cell.bottom) / 2);
             PostMessageW(view.List(), WM_LBUTTONUP, 0, point);
             SendMessageW(view.List(), WM_LBUTTONDOWN, MK_LBUTTON, point);
         },
         Sees(Selected(L"Weld")), Sees(Enabled(kOpen))});
}

// The least width.

TEST_F(ListColumns, TwentyPixelsAreWideEnough)
{
    See({DragsBorder(0, 20), DragsBorder(1, 20), Sees(ColumnWidths(20, 20))});
}

TEST_F(ListColumns, AreNotDraggedBelowTwentyPixels)
{
    See({DragsBorder(0, 19), Sees(ColumnWidths(250, 500)), DragsBorder(1, 3), Sees(ColumnWidths(250, 500)),
         DragsBorder(0, 60), DragsBorder(0, 0), Sees(ColumnWidths(60, 500))});
}

TEST_F(ListColumns, ADragBelowTheLeastWidthKeepsTheWidthBefore)
{
    See({[](DialogView& view) {
             const RECT rect = HeadingRect(view, 0);
             const int y = (rect.top + rect.bottom) / 2;
             const HWND header = HeaderOf(view);
             SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(rect.right - 1, y));
             for (const int x : {120, 40, 12, 5})
                 SendMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(rect.left + x - 1, y));
             SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(rect.left + 4, y));
         },
         [](DialogView& view) {
             const int width = view.Columns(view.List()).at(0).width;
             EXPECT_TRUE(width == 40 || width == 250) << width;
         }});
}

TEST_F(ListColumns, AMessageToTheHeaderDoesNotMakeThemNarrower)
{
    See({[](DialogView& view) {
             EXPECT_FALSE(SetHeading(view, 0, WidthOf(19)));
             EXPECT_FALSE(SetHeading(view, 1, WidthOf(0)));
             EXPECT_FALSE(SetHeading(view, 1, WidthOf(-5)));
         },
         Sees(ColumnWidths(250, 500)),
         [](DialogView& view) {
             EXPECT_TRUE(SetHeading(view, 0, WidthOf(20)));
             EXPECT_TRUE(SetHeading(view, 1, WidthOf(21)));
         },
         Sees(ColumnWidths(20, 21))});
}

TEST_F(ListColumns, AMessageToTheListDoesNotMakeThemNarrower)
{
    See({[](DialogView& view) {
             EXPECT_FALSE(SendMessageW(view.List(), LVM_SETCOLUMNWIDTH, 0, 19));
             EXPECT_FALSE(SendMessageW(view.List(), LVM_SETCOLUMNWIDTH, 1, 0));
         },
         Sees(ColumnWidths(250, 500)),
         [](DialogView& view) { EXPECT_TRUE(SendMessageW(view.List(), LVM_SETCOLUMNWIDTH, 0, 20)); },
         Sees(ColumnWidths(20, 500))});
}

TEST_F(ListColumns, AFormatOrACaptionIsNeverRefused)
{
    See({[](DialogView& view) {
             HDITEMW change{};
             change.mask = HDI_FORMAT;
             change.fmt = HDF_STRING | HDF_SORTUP;
             change.cxy = 3;
             EXPECT_TRUE(SetHeading(view, 0, change));
             std::wstring caption = L"Name";
             change = {};
             change.mask = HDI_TEXT;
             change.pszText = caption.data();
             EXPECT_TRUE(SetHeading(view, 0, change));
         },
         Sees(Headings({L"Name", L"Component Name"})), Sees(ColumnWidths(250, 500))});
}

/// Both forms of the notification, and one without an item, as a header may send them to the list.
TEST_F(ListColumns, BothFormsOfTheNotificationAreAnswered)
{
    See({[](DialogView& view) {
        const auto answer = [&](UINT code, HDITEMW* item) {
            NMHEADERW told{};
            told.hdr = {HeaderOf(view), 0, code};
            told.pitem = item;
            return SendMessageW(view.List(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&told));
        };
        for (const UINT code : {HDN_ITEMCHANGINGW, HDN_ITEMCHANGINGA})
        {
            HDITEMW narrow = WidthOf(19);
            HDITEMW wide = WidthOf(20);
            HDITEMW format{};
            format.mask = HDI_FORMAT;
            EXPECT_EQ(answer(code, &narrow), 1);
            EXPECT_EQ(answer(code, &wide), 0);
            EXPECT_EQ(answer(code, &format), 0);
            EXPECT_EQ(answer(code, nullptr), 0);
        }
    }});
}
