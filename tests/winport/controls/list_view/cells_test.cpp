// What a program that edits the cells of a list by controls of its own relies on.
#include "ListViewHost.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD kGridStyle = LVS_EX_GRIDLINES | LVS_EX_REGIONAL;

LONG g_asked = 0;

/// Records the style that an edit control is created with.
LRESULT CALLBACK OnHook(int code, WPARAM window, LPARAM parameter)
{
    wchar_t name[20] = L"";
    if (code == HCBT_CREATEWND)
        GetClassNameW(reinterpret_cast<HWND>(window), name, 20);
    if (std::wstring(name) == WC_EDITW)
        g_asked = reinterpret_cast<const CBT_CREATEWNDW*>(parameter)->lpcs->style;
    return CallNextHookEx(nullptr, code, window, parameter);
}

/// Two columns and an editor over the second cell of the first row.
class CellHost : public FilledHost
{
public:
    explicit CellHost(const wchar_t* className = WC_EDITW, DWORD style = kEditStyle)
        : FilledHost(30, LVS_REPORT, 2)
    {
        Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kGridStyle);
        const RECT cell = SubItemRect(0, 1);
        editor = CreateWindowExW(0, className, L"", style, cell.left, cell.top, cell.right - cell.left,
                                 cell.bottom - cell.top, Control(), reinterpret_cast<HMENU>(INT_PTR{1000}),
                                 nullptr, nullptr);
        Trace();
    }
    RECT EditorPlace() const
    {
        RECT place{};
        GetWindowRect(editor, &place);
        return place;
    }

    HWND editor = nullptr;
};

bool AreEqual(const RECT& one, const RECT& other)
{
    return one.left == other.left && one.top == other.top && one.right == other.right &&
           one.bottom == other.bottom;
}
} // namespace

TEST(ListViewCells, AnEditIsAskedForWithTheBorderThatItThenDrawsItself)
{
    const HHOOK hook = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
    const CellHost list;
    UnhookWindowsHookEx(hook);
    EXPECT_EQ(static_cast<DWORD>(g_asked), 0x50800080U);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(list.editor, GWL_STYLE)), 0x50000080U);
    EXPECT_EQ(GetDlgCtrlID(list.editor), 1000);
}

TEST(ListViewCells, APickerKeepsTheStyleOfItsAlignment)
{
    for (const DWORD alignment : {0U, 1U, 2U})
    {
        const CellHost list(DATETIMEPICK_CLASSW, alignment | 0x50000001U);
        EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(list.editor, GWL_STYLE)), alignment | 0x50000001U);
    }
}

TEST(ListViewCells, ASecondColumnWithoutFullRowsIsHitByNothing)
{
    const CellHost list;
    const POINT point = list.MiddleOf(1, 1);
    EXPECT_EQ(list.Hit(point.x, point.y).iItem, -1);
    EXPECT_EQ(list.Hit(20, point.y).iItem, 1);
}

TEST(ListViewCells, AClickInTheSecondColumnKeepsTheFocusOfTheRow)
{
    CellHost list;
    list.SelectAndFocus(1);
    list.Click(1, 1);
    EXPECT_EQ(list.Trace(), "changing(1:3>1) changed(1:3>1) click(1,1)");
    EXPECT_EQ(list.Focused(), 1);
    list.Click(2, 1);
    EXPECT_EQ(list.Focused(), 1);
    EXPECT_EQ(list.Selected(), "");
}

TEST(ListViewCells, AClickTakesTheFocusFromAnEditorFirst)
{
    CellHost list;
    SetFocus(list.editor);
    list.SetState(1, LVIS_FOCUSED | LVIS_SELECTED);
    list.Trace();
    list.Click(1, 1);
    EXPECT_EQ(list.Trace(), "setfocus changing(1:3>1) changed(1:3>1) click(1,1)");
    EXPECT_EQ(GetFocus(), list.Control());
}

TEST(ListViewCells, AnEditorStaysWhereItIsWhenTheListScrolls)
{
    CellHost list;
    list.Send(LVM_SETCOLUMNWIDTH, 1, 500);
    SetFocus(list.editor);
    const RECT place = list.EditorPlace();
    list.Send(LVM_SCROLL, 30, 0);
    EXPECT_EQ(list.ItemRect(0).left, -30);
    EXPECT_EQ(list.SubItemRect(0, 1).left, 50);
    list.Send(WM_VSCROLL, 1);
    list.Send(WM_HSCROLL, 1);
    EXPECT_LT(list.ItemRect(0).left, -30);
    EXPECT_EQ(list.Top(), 1);
    EXPECT_TRUE(AreEqual(list.EditorPlace(), place));
    EXPECT_EQ(GetFocus(), list.editor);
}

TEST(ListViewCells, AnEditorKeepsItsPlaceAndTheFocusWhenTheListIsResized)
{
    const CellHost list;
    SetFocus(list.editor);
    const RECT place = list.EditorPlace();
    SetWindowPos(list.Control(), nullptr, 0, 0, 90, 60, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_TRUE(AreEqual(list.EditorPlace(), place));
    EXPECT_EQ(GetFocus(), list.editor);
}

TEST(ListViewCells, ADisabledListTakesRowsButNoFocus)
{
    CellHost list;
    EnableWindow(list.Control(), FALSE);
    EXPECT_NE(GetFocus(), list.Control());
    SetFocus(list.Control());
    EXPECT_NE(GetFocus(), list.Control());
    SetFocus(list.editor);
    EXPECT_NE(GetFocus(), list.editor);
    EXPECT_EQ(list.Insert(0, L"new"), 0);
    EXPECT_TRUE(list.SetText(0, 1, L"value"));
    EXPECT_EQ(list.TextOf(0, 1), L"value");
}

TEST(ListViewCells, AnEditorThatIsClosedGivesTheFocusToTheList)
{
    for (const wchar_t* className : {WC_EDITW, DATETIMEPICK_CLASSW})
    {
        CellHost list(className, WS_CHILD | WS_VISIBLE);
        SetFocus(list.editor);
        list.Trace();
        SendMessageW(list.editor, WM_CLOSE, 0, 0);
        EXPECT_FALSE(IsWindow(list.editor));
        EXPECT_EQ(GetFocus(), list.Control());
        EXPECT_EQ(list.Trace(), "setfocus");
    }
}

TEST(ListViewCells, AnEditorHasTheFontThatItIsGiven)
{
    for (const wchar_t* className : {WC_EDITW, DATETIMEPICK_CLASSW})
    {
        const CellHost list(className, WS_CHILD | WS_VISIBLE);
        const auto font = reinterpret_cast<WPARAM>(&list);
        SendMessageW(list.editor, WM_SETFONT, font, TRUE);
        EXPECT_EQ(static_cast<WPARAM>(SendMessageW(list.editor, WM_GETFONT, 0, 0)), font);
    }
}
