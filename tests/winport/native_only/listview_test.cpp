// List views and headers end the run with the name of a message or style that they do not support.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
constexpr UINT kSetImageList = LVM_FIRST + 3;
constexpr UINT kHitTestHeader = HDM_FIRST + 6;
constexpr DWORD kListMode = 0x3;
constexpr DWORD kCheckBoxes = 0x4;
constexpr UINT kIndent = 0x10;
constexpr UINT kChecked = 0x2000;
constexpr UINT kBelow = 0x200;
constexpr int kIcon = 1;
constexpr int kImageFormat = 0x800;
constexpr UINT kColumnImage = 0x10;
constexpr UINT kHeadingOrder = 0x80;
constexpr int kDrawnByOwner = 0x8000;

void AskRect(const ListViewHost& list, int part)
{
    RECT rect{part, 0, 0, 0};
    list.Send(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect));
}

void InsertPart(const ListViewHost& list, UINT mask, UINT state = 0)
{
    LVITEMW item{};
    item.mask = mask;
    item.state = item.stateMask = state;
    list.Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void SetHeading(const ListViewHost& list, UINT mask, int format = 0)
{
    HDITEMW item{};
    item.mask = mask;
    item.fmt = format;
    SendMessageW(list.Header(), HDM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void AskColumn(const ListViewHost& list, UINT mask)
{
    LVCOLUMNW column{};
    column.mask = mask;
    list.Send(LVM_GETCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
}
} // namespace

// The windows belong to the thread of the death test.
TEST(NativeOnly_ListView, AnUnsupportedMessageEndsTheRun)
{
    EXPECT_DEATH(ListViewHost().Send(kSetImageList),
                 "winport has no message 0x1003 for this window:\nSysListView32");
}

TEST(NativeOnly_ListView, AnUnsupportedModeEndsTheRun)
{
    EXPECT_DEATH(ListViewHost{kListMode}, "winport has no list view mode 0x3");
}

TEST(NativeOnly_ListView, AnUnsupportedExtendedStyleEndsTheRun)
{
    EXPECT_DEATH(ListViewHost().Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kCheckBoxes),
                 "winport has no extended list view style 0x4");
}

TEST(NativeOnly_ListView, UnsupportedPartsOfAnItemEndTheRun)
{
    EXPECT_DEATH(InsertPart(ListViewHost(), kIndent), "winport has no part of a list view item 0x10");
    EXPECT_DEATH(InsertPart(ListViewHost(), LVIF_STATE, kChecked),
                 "winport has no state of a list view item 0x2000");
    EXPECT_DEATH(ListViewHost().Insert(0, LPSTR_TEXTCALLBACKW),
                 "winport has no text that the parent is asked for");
}

TEST(NativeOnly_ListView, SearchesByPlaceEndTheRun)
{
    EXPECT_DEATH(ListViewHost().Next(-1, kBelow), "winport has no list view search flag 0x200");
}

TEST(NativeOnly_ListView, UnsupportedRectanglesEndTheRun)
{
    EXPECT_DEATH(AskRect(ListViewHost(), kIcon), "winport has no part of a list view item 0x1");
    EXPECT_DEATH(AskRect(ListViewHost(LVS_ICON, 0), LVIR_BOUNDS),
                 "winport has no places in list view mode 0x0");
}

TEST(NativeOnly_ListView, ColumnsThatFitThemselvesOrHaveMoreEndTheRun)
{
    EXPECT_DEATH(ListViewHost().Send(LVM_SETCOLUMNWIDTH, 0, -1), "winport has no column width");
    EXPECT_DEATH(ListViewHost().InsertColumn(0, L"", 0, kImageFormat),
                 "winport has no format of a list view column 0x800");
    EXPECT_DEATH(AskColumn(ListViewHost(), kColumnImage), "winport has no part of a list view column 0x10");
}

TEST(NativeOnly_Header, AnUnsupportedMessageEndsTheRun)
{
    EXPECT_DEATH(SendMessageW(ListViewHost().Header(), kHitTestHeader, 0, 0),
                 "winport has no message 0x1206 for this window:\nSysHeader32");
}

TEST(NativeOnly_Header, UnsupportedPartsOfAHeadingEndTheRun)
{
    EXPECT_DEATH(SetHeading(ListViewHost(), kHeadingOrder), "winport has no part of a heading 0x80");
    EXPECT_DEATH(SetHeading(ListViewHost(), HDI_FORMAT, kDrawnByOwner),
                 "winport has no format of a heading 0x8000");
}
