// A header by itself: items and their rectangles.
#include "ControlHost.h"

#include <gtest/gtest.h>

namespace
{
class HeaderHost : public ControlHost
{
public:
    HeaderHost() : ControlHost(WC_HEADERW, HDS_HORZ | HDS_BUTTONS | HDS_FULLDRAG, 300, 24) {}

    int Insert(int index, const wchar_t* text, int width, LPARAM param = 0) const
    {
        HDITEMW item{};
        item.mask = HDI_TEXT | HDI_WIDTH | HDI_FORMAT | HDI_LPARAM;
        item.pszText = const_cast<LPWSTR>(text);
        item.cxy = width;
        item.fmt = HDF_LEFT | HDF_STRING;
        item.lParam = param;
        return static_cast<int>(
            Send(HDM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)));
    }

    HDITEMW Get(int index, UINT mask) const
    {
        HDITEMW item{};
        item.mask = mask;
        if (!Send(HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)))
            item.mask = 0;
        return item;
    }

    BOOL Set(int index, HDITEMW item) const
    {
        return static_cast<BOOL>(
            Send(HDM_SETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)));
    }

    std::wstring TextOf(int index) const
    {
        wchar_t text[32] = L"";
        HDITEMW item{};
        item.mask = HDI_TEXT;
        item.pszText = text;
        item.cchTextMax = 32;
        Send(HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        return text;
    }

    RECT Rect(int index) const
    {
        RECT rect{-1, -1, -1, -1};
        Send(HDM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        return rect;
    }

    int Count() const { return static_cast<int>(Send(HDM_GETITEMCOUNT)); }

    /// The number of notifications with a code since the last call.
    int Told(UINT code)
    {
        int count = 0;
        for (const int told : Codes())
            count += told == static_cast<int>(code);
        return count;
    }
};

HDITEMW Width(int width)
{
    HDITEMW item{};
    item.mask = HDI_WIDTH;
    item.cxy = width;
    return item;
}
} // namespace

TEST(Header, ItemsAreInsertedByIndexOrAppended)
{
    const HeaderHost header;
    EXPECT_EQ(header.Insert(0, L"b", 10), 0);
    EXPECT_EQ(header.Insert(0, L"a", 10), 0);
    EXPECT_EQ(header.Insert(9, L"c", 10), 2);
    EXPECT_EQ(header.Count(), 3);
    EXPECT_EQ(header.TextOf(0), L"a");
    EXPECT_EQ(header.TextOf(1), L"b");
    EXPECT_EQ(header.TextOf(2), L"c");
}

TEST(Header, ItemsKeepWidthFormatAndParameter)
{
    const HeaderHost header;
    header.Insert(0, L"a", 42, 7);
    const HDITEMW item = header.Get(0, HDI_WIDTH | HDI_FORMAT | HDI_LPARAM);
    EXPECT_EQ(item.cxy, 42);
    EXPECT_EQ(item.fmt, HDF_LEFT | HDF_STRING);
    EXPECT_EQ(item.lParam, 7);
}

TEST(Header, ItemsThatDoNotExistAreRefused)
{
    const HeaderHost header;
    header.Insert(0, L"a", 42);
    EXPECT_EQ(header.Get(1, HDI_WIDTH).mask, 0U);
    EXPECT_FALSE(header.Set(1, Width(10)));
    RECT rect{};
    EXPECT_FALSE(header.Send(HDM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&rect)));
}

TEST(Header, ItemsLieSideBySide)
{
    const HeaderHost header;
    header.Insert(0, L"a", 10);
    header.Insert(1, L"b", 0);
    header.Insert(2, L"c", 30);
    RECT client{};
    GetClientRect(header.Control(), &client);
    EXPECT_EQ(header.Rect(0).right, 10);
    EXPECT_EQ(header.Rect(1).left, 10);
    EXPECT_EQ(header.Rect(1).right, 10);
    EXPECT_EQ(header.Rect(2).left, 10);
    EXPECT_EQ(header.Rect(2).right, 40);
    EXPECT_EQ(header.Rect(2).top, 0);
    EXPECT_EQ(header.Rect(2).bottom, client.bottom);
}

TEST(Header, AChangeIsNotifiedBeforeAndAfterAndMayBeRefused)
{
    HeaderHost header;
    header.Insert(0, L"a", 10);
    header.Codes();
    EXPECT_TRUE(header.Set(0, Width(20)));
    std::vector<int> codes = header.Codes();
    ASSERT_EQ(codes.size(), 2U);
    EXPECT_EQ(codes[0], static_cast<int>(HDN_ITEMCHANGINGW));
    EXPECT_EQ(codes[1], static_cast<int>(HDN_ITEMCHANGEDW));
    header.onNotify = [](NMHDR& told) -> LRESULT {
        return told.code == HDN_ITEMCHANGINGW;
    };
    EXPECT_FALSE(header.Set(0, Width(30)));
    EXPECT_EQ(header.Told(HDN_ITEMCHANGEDW), 0);
    EXPECT_EQ(header.Get(0, HDI_WIDTH).cxy, 20);
}

TEST(Header, AChangeNotifiesOfItemAndNewValue)
{
    HeaderHost header;
    header.Insert(0, L"a", 10);
    header.Insert(1, L"b", 10);
    int item = -1;
    int width = -1;
    header.onNotify = [&](NMHDR& told) -> LRESULT {
        const NMHEADERW& change = reinterpret_cast<NMHEADERW&>(told);
        item = change.iItem;
        width = change.pitem->cxy;
        return 0;
    };
    header.Set(1, Width(33));
    EXPECT_EQ(item, 1);
    EXPECT_EQ(width, 33);
}

TEST(Header, ANewTextReplacesTheOld)
{
    const HeaderHost header;
    header.Insert(0, L"a", 10);
    wchar_t text[] = L"new";
    HDITEMW item{};
    item.mask = HDI_TEXT;
    item.pszText = text;
    EXPECT_TRUE(header.Set(0, item));
    EXPECT_EQ(header.TextOf(0), L"new");
    EXPECT_EQ(header.Get(0, HDI_WIDTH).cxy, 10);
}

TEST(Header, AClickIsNotifiedForTheItemUnderThePointer)
{
    HeaderHost header;
    header.Insert(0, L"a", 60);
    header.Insert(1, L"b", 60);
    int item = -1;
    header.onNotify = [&](NMHDR& told) -> LRESULT {
        if (told.code == HDN_ITEMCLICKW)
            item = reinterpret_cast<NMHEADERW&>(told).iItem;
        return 0;
    };
    header.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG(90, 8));
    header.Send(WM_LBUTTONUP, 0, MAKELONG(90, 8));
    EXPECT_EQ(item, 1);
    EXPECT_EQ(header.Told(HDN_ITEMCLICKW), 1);
}

TEST(Header, AClickRightOfTheItemsIsNotNotified)
{
    HeaderHost header;
    header.Insert(0, L"a", 60);
    header.Codes();
    header.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG(200, 8));
    header.Send(WM_LBUTTONUP, 0, MAKELONG(200, 8));
    EXPECT_EQ(header.Told(HDN_ITEMCLICKW), 0);
}

TEST(Header, PullingADividerChangesTheWidth)
{
    HeaderHost header;
    header.Insert(0, L"a", 60);
    header.Insert(1, L"b", 60);
    header.Codes();
    header.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG(59, 8));
    header.Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELONG(79, 8));
    header.Send(WM_LBUTTONUP, 0, MAKELONG(79, 8));
    EXPECT_EQ(header.Get(0, HDI_WIDTH).cxy, 80);
    EXPECT_GE(header.Told(HDN_ITEMCHANGEDW), 1);
}
