// The header of a list view: its own child, whose notifications the list view hands on.
#include "ListViewHost.h"

#include <gtest/gtest.h>

#include <utility>

namespace
{
RECT HeadingRect(const ListViewHost& list, int item)
{
    RECT rect{};
    SendMessageW(list.Header(), HDM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&rect));
    return rect;
}

void ClickHeading(const ListViewHost& list, int item)
{
    const RECT rect = HeadingRect(list, item);
    const LPARAM point = MAKELONG((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    SendMessageW(list.Header(), WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(list.Header(), WM_LBUTTONUP, 0, point);
}

int FormatOf(const ListViewHost& list, int item)
{
    HDITEMW heading{};
    heading.mask = HDI_FORMAT;
    SendMessageW(list.Header(), HDM_GETITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&heading));
    return heading.fmt;
}

BOOL SetFormat(const ListViewHost& list, int item, int format)
{
    HDITEMW heading{};
    heading.mask = HDI_FORMAT;
    heading.fmt = format;
    return static_cast<BOOL>(SendMessageW(list.Header(), HDM_SETITEMW, static_cast<WPARAM>(item),
                                          reinterpret_cast<LPARAM>(&heading)));
}

BOOL SetWidth(const ListViewHost& list, int item, int width)
{
    HDITEMW heading{};
    heading.mask = HDI_WIDTH;
    heading.cxy = width;
    return static_cast<BOOL>(SendMessageW(list.Header(), HDM_SETITEMW, static_cast<WPARAM>(item),
                                          reinterpret_cast<LPARAM>(&heading)));
}

int WidthOf(const ListViewHost& list, int item)
{
    return static_cast<int>(list.Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(item)));
}
// A list whose window procedure is replaced by one that records the header's notifications and refuses
// widths.
class SpiedHost : public ListViewHost
{
public:
    SpiedHost() : ListViewHost(LVS_REPORT, 2)
    {
        SetWindowLongPtrW(Control(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        m_before = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(Control(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Spy)));
    }

    /// Since the last call: changing(item,width) and changed(item,width), - for what is no width.
    std::string Told() { return std::exchange(m_told, {}); }

    int leastWidth = 0;

private:
    static LRESULT CALLBACK Spy(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        auto* host = reinterpret_cast<SpiedHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_NOTIFY && host->Refuses(*reinterpret_cast<NMHEADERW*>(lParam)))
            return TRUE;
        return CallWindowProcW(host->m_before, window, message, wParam, lParam);
    }

    bool Refuses(const NMHEADERW& told)
    {
        const bool changing = told.hdr.code == HDN_ITEMCHANGINGW;
        if (!changing && told.hdr.code != HDN_ITEMCHANGEDW)
            return false;
        const bool width = told.pitem->mask & HDI_WIDTH;
        m_told += (changing ? "changing(" : "changed(") + std::to_string(told.iItem) + "," +
                  (width ? std::to_string(told.pitem->cxy) : "-") + ") ";
        return changing && width && told.pitem->cxy < leastWidth;
    }

    WNDPROC m_before = nullptr;
    std::string m_told;
};
} // namespace

TEST(ListViewHeader, IsAChildOfTheListWithIdentifierZero)
{
    const ListViewHost list;
    ASSERT_NE(list.Header(), nullptr);
    EXPECT_EQ(GetParent(list.Header()), list.Control());
    EXPECT_EQ(GetDlgCtrlID(list.Header()), 0);
    EXPECT_EQ(GetDlgItem(list.Control(), 0), list.Header());
    wchar_t name[32] = L"";
    GetClassNameW(list.Header(), name, 32);
    EXPECT_STREQ(name, L"SysHeader32");
    EXPECT_TRUE(IsWindowVisible(list.Header()));
}

TEST(ListViewHeader, IsHiddenWhereNoneIsWanted)
{
    const ListViewHost list(LVS_REPORT | LVS_NOCOLUMNHEADER, 2);
    ASSERT_NE(list.Header(), nullptr);
    EXPECT_EQ(list.ColumnCount(), 2);
    RECT rect{};
    GetWindowRect(list.Header(), &rect);
    EXPECT_TRUE(!IsWindowVisible(list.Header()) || rect.bottom == rect.top);
}

TEST(ListViewHeader, HasOneItemPerColumnWithTextAndWidth)
{
    const ListViewHost list(LVS_REPORT, 2);
    EXPECT_EQ(list.ColumnCount(), 2);
    wchar_t text[16] = L"";
    HDITEMW heading{};
    heading.mask = HDI_TEXT | HDI_WIDTH;
    heading.pszText = text;
    heading.cchTextMax = 16;
    EXPECT_TRUE(SendMessageW(list.Header(), HDM_GETITEMW, 1, reinterpret_cast<LPARAM>(&heading)));
    EXPECT_STREQ(text, L"c1");
    EXPECT_EQ(heading.cxy, 80);
}

TEST(ListViewHeader, AClickOnAHeadingNotifiesForTheListAndTheHeader)
{
    ListViewHost list(LVS_REPORT, 3);
    ClickHeading(list, 1);
    EXPECT_EQ(list.Trace(), "column(1) hdrclick(1)");
}

TEST(ListViewHeader, TheClickIsTheHeadersAndTheColumnClickTheLists)
{
    ListViewHost list(LVS_REPORT, 3);
    int seen = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == HDN_ITEMCLICKW)
        {
            EXPECT_EQ(header.hwndFrom, list.Header());
            EXPECT_EQ(header.idFrom, 0U);
            ++seen;
        }
        if (header.code == LVN_COLUMNCLICK)
        {
            EXPECT_EQ(header.hwndFrom, list.Control());
            EXPECT_EQ(reinterpret_cast<NMLISTVIEW&>(header).iItem, -1);
            EXPECT_EQ(reinterpret_cast<NMLISTVIEW&>(header).iSubItem, 2);
            ++seen;
        }
        return 0;
    };
    ClickHeading(list, 2);
    EXPECT_EQ(seen, 2);
}

TEST(ListViewHeader, AClickNotifiesOfTheLeftButton)
{
    ListViewHost list(LVS_REPORT, 2);
    int button = -1;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == HDN_ITEMCLICKW)
            button = reinterpret_cast<NMHEADERW&>(header).iButton;
        return 0;
    };
    ClickHeading(list, 0);
    EXPECT_EQ(button, 0);
}

TEST(ListViewHeader, AHeadingThatIsReleasedElsewhereIsNotClicked)
{
    ListViewHost list(LVS_REPORT, 3);
    const RECT first = HeadingRect(list, 0);
    const RECT third = HeadingRect(list, 2);
    const int y = (first.top + first.bottom) / 2;
    SendMessageW(list.Header(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG((first.left + first.right) / 2, y));
    SendMessageW(list.Header(), WM_LBUTTONUP, 0, MAKELONG((third.left + third.right) / 2, y));
    EXPECT_EQ(list.Trace().find("hdrclick"), std::string::npos);
}

TEST(ListViewHeader, AWidthSetInTheListIsNotifiedByTheHeader)
{
    SpiedHost list;
    list.Send(LVM_SETCOLUMNWIDTH, 1, 55);
    EXPECT_EQ(list.Told(), "changing(1,55) changed(1,55) ");
}

TEST(ListViewHeader, AWidthSetInTheHeaderIsTheColumns)
{
    SpiedHost list;
    list.Fill(1);
    EXPECT_TRUE(SetWidth(list, 0, 55));
    EXPECT_EQ(list.Told(), "changing(0,55) changed(0,55) ");
    EXPECT_EQ(WidthOf(list, 0), 55);
    EXPECT_EQ(list.SubItemRect(0, 1).left, 55);
    EXPECT_EQ(list.ItemRect(0).right, 135);
}

TEST(ListViewHeader, AWidthMayBeRefused)
{
    SpiedHost list;
    list.Fill(1);
    list.leastWidth = 20;
    EXPECT_FALSE(SetWidth(list, 0, 19));
    EXPECT_EQ(list.Told(), "changing(0,19) ");
    EXPECT_EQ(WidthOf(list, 0), 80);
    EXPECT_EQ(list.SubItemRect(0, 1).left, 80);
    EXPECT_TRUE(SetWidth(list, 0, 20));
    EXPECT_EQ(WidthOf(list, 0), 20);
}

TEST(ListViewHeader, ADividerIsPulledNoFurtherThanAllowed)
{
    SpiedHost list;
    list.leastWidth = 20;
    const int y = HeadingRect(list, 0).bottom / 2;
    SendMessageW(list.Header(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELONG(79, y));
    SendMessageW(list.Header(), WM_MOUSEMOVE, MK_LBUTTON, MAKELONG(29, y));
    EXPECT_EQ(WidthOf(list, 0), 30);
    SendMessageW(list.Header(), WM_MOUSEMOVE, MK_LBUTTON, MAKELONG(9, y));
    SendMessageW(list.Header(), WM_LBUTTONUP, 0, MAKELONG(9, y));
    EXPECT_EQ(WidthOf(list, 0), 30);
    EXPECT_EQ(WidthOf(list, 1), 80);
}

TEST(ListViewHeader, AChangeOfTheFormatIsNotifiedToo)
{
    SpiedHost list;
    SetFormat(list, 1, HDF_STRING | HDF_SORTUP);
    EXPECT_EQ(list.Told(), "changing(1,-) changed(1,-) ");
}

TEST(ListViewHeader, TheParentIsNotifiedOfWidthChangesAndMayRefuseThem)
{
    if (RunsOnWine())
        GTEST_SKIP() << "here a list keeps the changes of its header to itself";
    ListViewHost list(LVS_REPORT, 2);
    int refused = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code != HDN_ITEMCHANGINGW)
            return 0;
        EXPECT_EQ(header.hwndFrom, list.Header());
        EXPECT_EQ(header.idFrom, 0U);
        const bool tooSmall = reinterpret_cast<NMHEADERW&>(header).pitem->cxy < 20;
        refused += tooSmall;
        return tooSmall;
    };
    EXPECT_FALSE(list.Send(LVM_SETCOLUMNWIDTH, 1, 19));
    EXPECT_TRUE(list.Send(LVM_SETCOLUMNWIDTH, 1, 20));
    EXPECT_EQ(list.Trace(), "hdrchanging(1,19) hdrchanging(1,20) hdrchanged(1,20)");
    EXPECT_EQ(refused, 1);
    EXPECT_EQ(WidthOf(list, 1), 20);
}

TEST(ListViewHeader, SortArrowsAreKeptInTheFormat)
{
    const ListViewHost list(LVS_REPORT, 2);
    EXPECT_TRUE(SetFormat(list, 0, HDF_STRING | HDF_SORTUP));
    EXPECT_TRUE(SetFormat(list, 1, HDF_STRING | HDF_SORTDOWN));
    EXPECT_EQ(FormatOf(list, 0), 0x4400);
    EXPECT_EQ(FormatOf(list, 1), 0x4200);
    EXPECT_TRUE(SetFormat(list, 0, HDF_STRING));
    EXPECT_EQ(FormatOf(list, 0), 0x4000);
    EXPECT_EQ(list.Headings(), L"c0|c1");
}

TEST(ListViewHeader, TheListMayBeDestroyedByTheHandlerOfAHeadingsClick)
{
    ListViewHost list(LVS_REPORT, 2);
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == HDN_ITEMCLICKW)
            DestroyWindow(list.Control());
        return 0;
    };
    ClickHeading(list, 0);
    EXPECT_FALSE(IsWindow(list.Control()));
}

TEST(ListViewHeader, GoesWithTheList)
{
    const ListViewHost list;
    const HWND header = list.Header();
    DestroyWindow(list.Control());
    EXPECT_FALSE(IsWindow(header));
}
