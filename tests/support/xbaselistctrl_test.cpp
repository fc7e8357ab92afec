#include "XBaseListCtrl.h"

#include "BorrowedValues.h"
#include "CountedUnknown.h"

#include <gtest/gtest.h>

namespace
{
using Columns = std::vector<XQPComVariant>;

/// A list with two columns, the second hidden, in a window of its own.
class BaseList : public testing::Test
{
protected:
    BaseList()
        : m_window(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr,
                                   GetModuleHandleW(nullptr), nullptr))
    {
        EXPECT_TRUE(list.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, {10, 10, 210, 110}, m_window, 202));
        list.InsertColumn(0, L"Name", LVCFMT_LEFT, 190);
        list.InsertColumn(1, L"", LVCFMT_LEFT, 0);
    }
    ~BaseList() override { DestroyWindow(m_window); }

    /// What the first cell shows of a value.
    std::wstring Shown(const VARIANT& value)
    {
        list.Empty();
        EXPECT_TRUE(list.AddEntry({XQPComVariant(value)}, 0, -1));
        return list.GetItemText(0, 0);
    }

    XBaseListCtrl list;
    HWND m_window;
};

/// Counts the notifications of deleted rows from lists in it. Subclasses an existing window.
class Listener : public CWnd
{
public:
    int goneRows = 0;

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {OnNotify<&Listener::OnDeleteItem>(LVN_DELETEITEM, 202)};
        static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
        return map;
    }

private:
    void OnDeleteItem(NMHDR*, LRESULT*) { ++goneRows; }
};

WNDPROC g_list = nullptr;

/// The procedure of a list without memory for another row.
LRESULT CALLBACK InsertsNothing(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == LVM_INSERTITEMW)
        return -1;
    return CallWindowProcW(g_list, window, message, wParam, lParam);
}
} // namespace

TEST_F(BaseList, IsAReportWithOneSelectedRowOverItsWholeWidth)
{
    const DWORD style = list.GetStyle();
    EXPECT_EQ(style & LVS_TYPEMASK, LVS_REPORT);
    EXPECT_TRUE(style & LVS_SINGLESEL);
    EXPECT_TRUE(style & LVS_SHOWSELALWAYS);
    EXPECT_FALSE(style & LVS_NOCOLUMNHEADER);
    EXPECT_TRUE(style & WS_BORDER) << "what its creator gave stays";
    EXPECT_TRUE(style & WS_TABSTOP) << "the keyboard reaches it";
    EXPECT_TRUE(list.SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE) & LVS_EX_FULLROWSELECT);
    EXPECT_EQ(GetDlgCtrlID(list.m_hWnd), 202);
}

TEST_F(BaseList, TakesThePlaceOfAControlAndHidesIt)
{
    const CRect place(20, 30, 220, 130);
    const HWND frame =
        CreateWindowExW(0, L"Static", L"", WS_CHILD | WS_VISIBLE, place.left, place.top, place.Width(),
                        place.Height(), m_window, reinterpret_cast<HMENU>(INT_PTR{206}), nullptr, nullptr);
    Listener dialog;
    ASSERT_TRUE(dialog.SubclassWindow(m_window));
    XBaseListCtrl other;
    ASSERT_TRUE(other.CreateInPlaceOf(dialog, 206, WS_CHILD | WS_VISIBLE, 203));
    const CRect shown = dialog.ScreenToClient(other.GetWindowRect());
    EXPECT_EQ(shown.left, place.left);
    EXPECT_EQ(shown.top, place.top);
    EXPECT_EQ(shown.right, place.right);
    EXPECT_EQ(shown.bottom, place.bottom);
    EXPECT_EQ(GetDlgCtrlID(other.m_hWnd), 203);
    EXPECT_FALSE(IsWindowVisible(frame));
    EXPECT_EQ(other.GetStyle() & LVS_TYPEMASK, LVS_REPORT);
}

TEST_F(BaseList, HasNoSizeInPlaceOfAControlThatDoesNotExist)
{
    Listener dialog;
    ASSERT_TRUE(dialog.SubclassWindow(m_window));
    XBaseListCtrl other;
    ASSERT_TRUE(other.CreateInPlaceOf(dialog, 206, WS_CHILD | WS_VISIBLE, 203));
    EXPECT_EQ(other.GetWindowRect().Width(), 0);
}

TEST_F(BaseList, IsNotMadeWithoutAParent)
{
    XBaseListCtrl orphan;
    EXPECT_FALSE(orphan.Create(WS_CHILD, {0, 0, 10, 10}, nullptr, 1));
    EXPECT_FALSE(orphan.AddEntry({XQPComVariant(L"a")}, 0, -1));
    XQPComVariant value(L"kept");
    EXPECT_FALSE(orphan.GetSelData(0, value));
    EXPECT_STREQ(value.GetString(), L"kept");
}

TEST_F(BaseList, ShowsTextsAndKeepsTheValuesOfTheSelectedRow)
{
    EXPECT_TRUE(list.AddEntry({XQPComVariant(L"first"), XQPComVariant(NumberValue(1))}, 0, -1));
    EXPECT_TRUE(list.AddEntry({XQPComVariant(L"second"), XQPComVariant(NumberValue(2))}, 1, -1));
    EXPECT_EQ(list.GetItemText(0, 0), L"first");
    EXPECT_EQ(list.GetItemText(1, 1), L"2");
    list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    XQPComVariant value;
    EXPECT_TRUE(list.GetSelData(1, value));
    EXPECT_EQ(value.Type(), VT_I4);
    EXPECT_EQ(value.GetInt(), 2);
    EXPECT_TRUE(list.GetSelData(0, value));
    EXPECT_STREQ(value.GetString(), L"second");
}

TEST_F(BaseList, ARowMayBePutBeforeOthersAndAddedBehindTheLast)
{
    list.AddEntry({XQPComVariant(L"b"), XQPComVariant(NumberValue(2))}, 0, -1);
    list.AddEntry({XQPComVariant(L"a"), XQPComVariant(NumberValue(1))}, 0, -1);
    list.AddEntry({XQPComVariant(L"c"), XQPComVariant(NumberValue(3))}, 99, -1);
    for (int row = 0; row < 3; ++row)
    {
        list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
        XQPComVariant value;
        ASSERT_TRUE(list.GetSelData(1, value));
        EXPECT_EQ(value.GetInt(), row + 1);
    }
}

TEST_F(BaseList, GivesNothingWithoutASelectionOrTheColumn)
{
    list.AddEntry({XQPComVariant(L"only")}, 0, -1);
    XQPComVariant value(L"kept");
    EXPECT_FALSE(list.GetSelData(0, value));
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_FALSE(list.GetSelData(1, value));
    EXPECT_FALSE(list.GetSelData(-1, value));
    EXPECT_STREQ(value.GetString(), L"kept");
    EXPECT_TRUE(list.GetSelData(0, value));
}

TEST_F(BaseList, RefusesARowWithoutValues)
{
    EXPECT_FALSE(list.AddEntry({}, 0, -1));
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(BaseList, ShowsNothingOfValuesWithoutAText)
{
    VARIANT value{};
    EXPECT_EQ(Shown(value), L"");
    value.vt = VT_NULL;
    EXPECT_EQ(Shown(value), L"");
    value.vt = VT_ERROR;
    EXPECT_EQ(Shown(value), L"");
    value.vt = VT_UNKNOWN;
    value.punkVal = nullptr;
    EXPECT_EQ(Shown(value), L"");
    value.vt = VT_BSTR;
    value.bstrVal = nullptr;
    EXPECT_EQ(Shown(value), L"");
}

TEST_F(BaseList, ShowsNothingOfANullTextOfTheHost)
{
    XQPComVariant value;
    VARIANT* const result = &value;
    result->vt = VT_BSTR;
    result->bstrVal = nullptr;
    Columns columns;
    columns.push_back(std::move(value)); // a copy would be an empty text
    ASSERT_EQ(columns[0].Value().bstrVal, nullptr);
    EXPECT_TRUE(list.AddEntry(std::move(columns), 0, -1));
    EXPECT_EQ(list.GetItemText(0, 0), L"");
}

TEST_F(BaseList, ShowsNothingOfAValueThatCannotBeConverted)
{
    VARIANT value{};
    value.vt = VT_ARRAY | VT_I4;
    value.parray = SafeArrayCreateVector(VT_I4, 0, 1);
    EXPECT_EQ(Shown(value), L"");
    SafeArrayDestroy(value.parray);
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    XQPComVariant found;
    EXPECT_TRUE(list.GetSelData(0, found));
    EXPECT_EQ(found.Type(), VT_ARRAY | VT_I4) << "it is kept";
}

TEST_F(BaseList, KeepsNothingOfARowThatCannotBeInserted)
{
    CountedUnknown object;
    VARIANT value{};
    value.vt = VT_UNKNOWN;
    value.punkVal = &object;
    const int before = object.References();
    g_list = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(list.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&InsertsNothing)));
    EXPECT_FALSE(list.AddEntry({XQPComVariant(L"refused"), XQPComVariant(value)}, 0, -1));
    EXPECT_EQ(object.References(), before);
    SetWindowLongPtrW(list.m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_list));
    EXPECT_TRUE(list.AddEntry({XQPComVariant(L"taken"), XQPComVariant(NumberValue(1))}, 0, -1));
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    XQPComVariant found;
    EXPECT_TRUE(list.GetSelData(1, found));
    EXPECT_EQ(found.GetInt(), 1);
}

TEST_F(BaseList, GivesNothingOfARowThatItDidNotAdd)
{
    list.InsertItem(0, L"inserted by its user");
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    XQPComVariant value(L"kept");
    EXPECT_FALSE(list.GetSelData(0, value));
    EXPECT_STREQ(value.GetString(), L"kept");
}

TEST_F(BaseList, ShowsNumbersAndDatesAsConverted)
{
    EXPECT_EQ(Shown(NumberValue(-7)), L"-7");
    VARIANT date{};
    date.vt = VT_DATE;
    date.date = 40000.5;
    XQPComVariant expected;
    ASSERT_EQ(expected.ChangeType(VT_BSTR, &date), S_OK);
    EXPECT_EQ(Shown(date), expected.GetString());
    EXPECT_FALSE(Shown(date).empty());
}

TEST_F(BaseList, HoldsAnObjectAsLongAsItsRow)
{
    CountedUnknown object;
    VARIANT value{};
    value.vt = VT_UNKNOWN;
    value.punkVal = &object;
    const int before = object.References();
    list.AddEntry({XQPComVariant(L"with an object"), XQPComVariant(value)}, 0, -1);
    EXPECT_EQ(object.References(), before + 1);
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    {
        XQPComVariant found;
        EXPECT_TRUE(list.GetSelData(1, found));
        EXPECT_EQ(found.Value().punkVal, &object);
        EXPECT_EQ(object.References(), before + 2);
    }
    list.Empty();
    EXPECT_EQ(object.References(), before);
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(BaseList, DoesNotTellOfEachRowWhenAllOfThemGo)
{
    Listener listener;
    ASSERT_TRUE(listener.SubclassWindow(m_window));
    const auto fill = [this] {
        for (const wchar_t* text : {L"a", L"b", L"c"})
            ASSERT_TRUE(list.AddEntry({XQPComVariant(text)}, 99, -1));
    };
    fill();
    EXPECT_TRUE(list.DeleteItem(0));
    EXPECT_EQ(listener.goneRows, 1);
    list.Empty();
    fill();
    EXPECT_TRUE(list.DestroyWindow());
    EXPECT_EQ(listener.goneRows, 1);
}

TEST_F(BaseList, TextsOfAnyScriptAndLengthAreShownWhole)
{
    const std::wstring longText(10'000, L'W');
    for (const std::wstring& text :
         {std::wstring(L"\u05e9\u05dc\u05d5\u05dd"), std::wstring(L"\u5de5\u5e8f"), longText})
    {
        list.Empty();
        ASSERT_TRUE(list.AddEntry({XQPComVariant(text.c_str())}, 0, -1));
        list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
        XQPComVariant value;
        ASSERT_TRUE(list.GetSelData(0, value));
        EXPECT_EQ(value.GetString(), text);
    }
}
