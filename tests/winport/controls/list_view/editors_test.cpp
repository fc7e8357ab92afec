// Editors in a list view: the list's own for a label while rows are inserted and deleted, its notifications,
// and the controls that a program puts over a cell.
#include "ListViewHost.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace
{
// Writes down what the host is sent besides the notifications of the list: "edit(code,text)".
class EditorHost : public ListViewHost
{
public:
    explicit EditorHost(DWORD style = LVS_REPORT | LVS_EDITLABELS) : ListViewHost(style, 2)
    {
        Fill(4);
        SetFocus(Control());
        Trace();
        onCommand = [this](int code) {
            m_commands += std::to_string(code) + " ";
        };
        answer = [this](NMHDR& header) -> LRESULT {
            if (header.code == LVN_ENDLABELEDITW)
                param = reinterpret_cast<NMLVDISPINFOW&>(header).item.lParam;
            return header.code == LVN_ENDLABELEDITW;
        };
    }

    HWND Begin(int item)
    {
        const HWND edit = reinterpret_cast<HWND>(Send(LVM_EDITLABELW, static_cast<WPARAM>(item)));
        Trace();
        return edit;
    }
    /// Begins the edit and types over the text.
    HWND BeginTyped(int item, wchar_t text)
    {
        const HWND edit = Begin(item);
        SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(text), 1);
        m_commands.clear();
        return edit;
    }
    std::string Commands() { return std::exchange(m_commands, {}); }
    bool Edits() const { return Send(LVM_GETEDITCONTROL) != 0; }

    LPARAM param = -1; ///< that the last end of an edit carried

private:
    std::string m_commands;
};

void PressIn(HWND window, WORD key)
{
    SendMessageW(window, WM_KEYDOWN, key, 1);
}

HWND MakeEditor(const EditorHost& list)
{
    return CreateWindowExW(0, WC_EDITW, L"abc", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 84, 40, 50, 14,
                           list.Control(), reinterpret_cast<HMENU>(INT_PTR{1000}), nullptr, nullptr);
}

// What a point of the list has beneath it.
POINT BesideRow(const EditorHost& list)
{
    return {250, list.MiddleOf(2).y};
}

POINT BelowRows(const EditorHost& list)
{
    return {20, list.Client().bottom - 2};
}
} // namespace

TEST(ListViewEditors, ADeletedRowLeavesItsEditOpen)
{
    EditorHost list;
    const HWND edit = list.BeginTyped(1, L'x');
    list.Send(LVM_DELETEITEM, 1);
    EXPECT_EQ(list.Trace(), "changing(1:3>0) changed(1:3>0) delete(1)");
    EXPECT_TRUE(list.Edits());
    EXPECT_EQ(GetFocus(), edit);
}

TEST(ListViewEditors, TheEditOfADeletedRowEndsInTheRowThatFollowed)
{
    for (const bool entered : {true, false})
    {
        EditorHost list;
        const HWND edit = list.BeginTyped(1, L'x');
        list.Send(LVM_DELETEITEM, 1);
        list.Trace();
        entered ? PressIn(edit, VK_RETURN) : static_cast<void>(SetFocus(list.Window()));
        EXPECT_EQ(list.Trace(), entered ? "end(1,x) text(1) setfocus" : "end(1,x) text(1)");
        EXPECT_EQ(list.param, 2);
        EXPECT_EQ(list.Texts(), L"r0|x|r3");
        EXPECT_FALSE(IsWindow(edit));
    }
}

TEST(ListViewEditors, AnUnchangedTextIsNewToTheRowThatFollowed)
{
    EditorHost list;
    const HWND edit = list.Begin(1);
    list.Send(LVM_DELETEITEM, 1);
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.Texts(), L"r0|r1|r3");
}

TEST(ListViewEditors, EscapeAfterTheRowWasDeletedChangesNothing)
{
    EditorHost list;
    const HWND edit = list.BeginTyped(1, L'x');
    list.Send(LVM_DELETEITEM, 1);
    list.Trace();
    PressIn(edit, VK_ESCAPE);
    EXPECT_EQ(list.Trace(), "end(1,null) setfocus");
    EXPECT_EQ(list.Texts(), L"r0|r2|r3");
}

TEST(ListViewEditors, TheEditKeepsItsIndexWhenRowsBeforeItComeOrGo)
{
    EditorHost list;
    HWND edit = list.BeginTyped(1, L'x');
    list.Send(LVM_DELETEITEM, 0);
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.Texts(), L"r1|x|r3");
    edit = list.BeginTyped(1, L'y');
    list.Insert(0, L"new", 77);
    list.Trace();
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.Trace(), "end(1,y) text(1) setfocus");
    EXPECT_EQ(list.Texts(), L"new|y|x|r3");
}

TEST(ListViewEditors, AnEditWithoutRowEndsSilently)
{
    for (const WORD key : {VK_RETURN, VK_ESCAPE})
    {
        EditorHost list;
        const HWND edit = list.BeginTyped(3, L'x');
        list.Send(LVM_DELETEITEM, 3);
        list.Trace();
        PressIn(edit, key);
        EXPECT_EQ(list.Trace(), "setfocus");
        EXPECT_EQ(list.Texts(), L"r0|r1|r2");
        EXPECT_FALSE(IsWindow(edit));
    }
}

TEST(ListViewEditors, AnEmptiedListLeavesTheEditOpen)
{
    EditorHost list;
    const HWND edit = list.BeginTyped(1, L'x');
    list.Send(LVM_DELETEALLITEMS);
    EXPECT_EQ(list.Trace(), "clear delete(3) delete(2) delete(1) delete(0)");
    EXPECT_TRUE(list.Edits());
    SetFocus(list.Window());
    EXPECT_EQ(list.Trace(), "");
    EXPECT_FALSE(IsWindow(edit));
}

TEST(ListViewEditors, ATextSetMeanwhileIsWhatTheEditIsComparedWith)
{
    EditorHost list;
    const HWND edit = list.Begin(1);
    list.SetText(1, 0, L"other");
    list.Trace();
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.Trace(), "end(1,r1) text(1) setfocus");
    EXPECT_EQ(list.TextOf(1), L"r1");
}

// As a program renames in a sorted list: by another row with the new text.
TEST(ListViewEditors, TheHandlerMayReplaceTheRowAtTheEnd)
{
    EditorHost list(LVS_REPORT | LVS_EDITLABELS | LVS_SORTASCENDING);
    std::wstring seen;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code != LVN_ENDLABELEDITW)
            return 0;
        wchar_t text[20] = L"";
        GetWindowTextW(reinterpret_cast<HWND>(list.Send(LVM_GETEDITCONTROL)), text, 20);
        seen = text;
        list.Send(LVM_DELETEITEM, 1);
        list.Insert(0, L"r9", 5);
        return 0;
    };
    PressIn(list.BeginTyped(1, L'x'), VK_RETURN);
    EXPECT_EQ(seen, L"x");
    EXPECT_EQ(list.Trace(), "end(1,x) changing(1:3>0) changed(1:3>0) delete(1) insert(3) setfocus");
    EXPECT_EQ(list.Texts(), L"r0|r2|r3|r9");
    EXPECT_EQ(list.Selected(), "");
    EXPECT_EQ(list.Focused(), 1);
}

TEST(ListViewEditors, ALabelTakes259CharactersByTyping)
{
    EditorHost list;
    EXPECT_EQ(SendMessageW(list.Begin(1), EM_GETLIMITTEXT, 0, 0), 259);
}

TEST(ListViewEditors, TheFocusAndTheChangesOfALabelReachTheParent)
{
    EditorHost list;
    const HWND edit = list.Begin(1);
    EXPECT_EQ(list.Commands(), std::to_string(EN_SETFOCUS) + " ");
    const std::string changed = std::to_string(EN_CHANGE) + " ";
    SendMessageW(edit, WM_CHAR, L'x', 1);
    EXPECT_EQ(list.Commands(), changed);
    SendMessageW(edit, WM_CHAR, VK_BACK, 1);
    EXPECT_EQ(list.Commands(), changed);
    SetWindowTextW(edit, L"assigned");
    EXPECT_EQ(list.Commands(), changed);
    SendMessageW(edit, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(L"more"));
    EXPECT_EQ(list.Commands(), changed);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    EXPECT_EQ(list.Commands(), "");
}

TEST(ListViewEditors, TheEndOfALabelIsNoCommand)
{
    for (const WORD key : {VK_RETURN, VK_ESCAPE})
    {
        EditorHost list;
        PressIn(list.BeginTyped(1, L'x'), key);
        EXPECT_EQ(list.Commands(), "") << key;
    }
    EditorHost list;
    list.BeginTyped(1, L'x');
    SetFocus(list.Window());
    EXPECT_EQ(list.Commands(), "");
}

TEST(ListViewEditors, ALabelThatMayNotBeEditedSendsNoCommand)
{
    EditorHost list;
    list.answer = [](NMHDR& header) -> LRESULT {
        return header.code == LVN_BEGINLABELEDITW;
    };
    list.Begin(1);
    EXPECT_EQ(list.Commands(), "");
}

TEST(ListViewEditors, AProgramsOwnEditorNotifiesTheListAlone)
{
    EditorHost list;
    const HWND editor = MakeEditor(list);
    SetFocus(editor);
    SendMessageW(editor, WM_CHAR, L'x', 1);
    SetFocus(list.Control());
    EXPECT_EQ(list.Commands(), "");
    EXPECT_EQ(list.Trace(), "killfocus setfocus");
}

TEST(ListViewEditors, AClickBesideTheRowsTakesTheFocusFirst)
{
    for (const auto& place : {BesideRow, BelowRows})
    {
        EditorHost list;
        SetFocus(MakeEditor(list));
        list.SetState(1, LVIS_SELECTED | LVIS_FOCUSED);
        list.Trace();
        const POINT point = place(list);
        list.ClickAt(point.x, point.y);
        const std::string trace = list.Trace();
        EXPECT_EQ(trace.substr(0, trace.find(" click")), "setfocus changing(1:3>1) changed(1:3>1)");
        EXPECT_EQ(GetFocus(), list.Control());
    }
}

TEST(ListViewEditors, AClickBesideALabelTakesTheFocusFirst)
{
    EditorHost list;
    SetFocus(MakeEditor(list));
    list.SetState(1, LVIS_SELECTED | LVIS_FOCUSED);
    list.Trace();
    list.Click(2, 1);
    EXPECT_EQ(list.Trace(), "setfocus changing(1:3>1) changed(1:3>1) click(2,1)");
}

TEST(ListViewEditors, AClickOnARowSelectsItBeforeTheFocusComes)
{
    EditorHost list;
    SetFocus(MakeEditor(list));
    list.Trace();
    list.Click(2);
    EXPECT_EQ(list.Trace(), "changing(2:0>3) changed(2:0>3) setfocus click(2,0)");
    list.Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
    SetFocus(MakeEditor(list));
    list.SetState(2, 0);
    list.Trace();
    list.Click(2, 1);
    EXPECT_EQ(list.Trace(), "changing(2:0>3) changed(2:0>3) setfocus click(2,1)");
}

TEST(ListViewEditors, TheListMayBeDestroyedWhenAClickTakesTheFocus)
{
    if (RunsOnWine())
        GTEST_SKIP() << "here a list goes on with the memory that it has freed";
    EditorHost list;
    SetFocus(MakeEditor(list));
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == NM_SETFOCUS)
            DestroyWindow(list.Control());
        return 0;
    };
    const POINT point = BelowRows(list);
    list.Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    EXPECT_FALSE(IsWindow(list.Control()));
}
