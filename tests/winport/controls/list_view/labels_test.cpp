// Editing the text of a row in place.
#include "ListViewHost.h"

#include <gtest/gtest.h>

namespace
{
class LabelHost : public ListViewHost
{
public:
    explicit LabelHost(DWORD style = LVS_REPORT | LVS_EDITLABELS) : ListViewHost(style, 2)
    {
        Fill(3);
        SetFocus(Control());
        Trace();
    }

    HWND Begin(int item)
    {
        const HWND edit = reinterpret_cast<HWND>(Send(LVM_EDITLABELW, static_cast<WPARAM>(item)));
        m_began = Trace();
        return edit;
    }

    /// The trace of the opening of the edit field.
    const std::string& Began() const { return m_began; }

    HWND Edit() const { return reinterpret_cast<HWND>(Send(LVM_GETEDITCONTROL)); }

    /// The trace of the end of the edit, without the lines about the focus.
    std::string End()
    {
        const std::string trace = Trace();
        const std::size_t from = trace.find("end(");
        return from == std::string::npos ? "" : trace.substr(from, trace.find(')', from) + 1 - from);
    }

    void AnswerEnd(LRESULT granted)
    {
        answer = [granted](NMHDR& header) {
            return header.code == LVN_ENDLABELEDITW ? granted : 0;
        };
    }

private:
    std::string m_began;
};

void PressIn(HWND window, WORD key)
{
    SendMessageW(window, WM_KEYDOWN, key, 1);
}

std::wstring TextOfWindow(HWND window)
{
    wchar_t text[64] = L"";
    GetWindowTextW(window, text, 64);
    return text;
}
} // namespace

TEST(ListViewLabels, AreNotEditedWithoutTheStyle)
{
    LabelHost list(LVS_REPORT);
    EXPECT_EQ(list.Begin(0), nullptr);
    EXPECT_EQ(list.Began(), "");
    EXPECT_EQ(list.Edit(), nullptr);
}

TEST(ListViewLabels, AnEditFieldWithTheTextAndTheFocusOpensInTheList)
{
    LabelHost list;
    const HWND edit = list.Begin(1);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(list.Edit(), edit);
    EXPECT_EQ(GetParent(edit), list.Control());
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(TextOfWindow(edit), L"r1");
    EXPECT_TRUE(IsWindowVisible(edit));
    wchar_t name[32] = L"";
    GetClassNameW(edit, name, 32);
    EXPECT_STREQ(name, L"Edit");
}

TEST(ListViewLabels, TheWholeTextIsMarked)
{
    LabelHost list;
    const HWND edit = list.Begin(1);
    DWORD first = 9;
    DWORD last = 9;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    EXPECT_EQ(first, 0U);
    EXPECT_EQ(last, 2U);
}

TEST(ListViewLabels, TheItemIsSelectedAndFocused)
{
    LabelHost list;
    list.SetState(0, LVIS_SELECTED | LVIS_FOCUSED);
    list.Begin(2);
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(list.Focused(), 2);
}

TEST(ListViewLabels, TheBeginningIsNotifiedWithTextAndParameter)
{
    LabelHost list;
    std::wstring text;
    LPARAM param = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_BEGINLABELEDITW)
        {
            const LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(header).item;
            text = item.pszText ? item.pszText : L"(null)";
            param = item.lParam;
        }
        return 0;
    };
    list.Begin(1);
    EXPECT_NE(list.Began().find("begin(1)"), std::string::npos) << list.Began();
    EXPECT_EQ(text, L"r1");
    EXPECT_EQ(param, 1);
}

TEST(ListViewLabels, BeginningAnsweredTrueIsRefused)
{
    LabelHost list;
    list.answer = [](NMHDR& header) -> LRESULT {
        return header.code == LVN_BEGINLABELEDITW ? TRUE : 0;
    };
    EXPECT_EQ(list.Begin(1), nullptr);
    EXPECT_EQ(list.Edit(), nullptr);
    EXPECT_EQ(GetFocus(), list.Control());
    EXPECT_EQ(list.End(), "");
}

TEST(ListViewLabels, TheEditFieldExistsWhenTheParentIsAsked)
{
    LabelHost list;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_BEGINLABELEDITW && list.Edit())
            SetWindowTextW(list.Edit(), L"suggestion");
        return 0;
    };
    const HWND edit = list.Begin(1);
    EXPECT_EQ(TextOfWindow(edit), L"suggestion");
}

TEST(ListViewLabels, EnterSendsTheTextAndGrantedItIsStored)
{
    LabelHost list;
    list.AnswerEnd(TRUE);
    const HWND edit = list.Begin(1);
    SetWindowTextW(edit, L"new");
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.End(), "end(1,new)");
    EXPECT_EQ(list.TextOf(1), L"new");
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_EQ(list.Edit(), nullptr);
    EXPECT_EQ(GetFocus(), list.Control());
}

TEST(ListViewLabels, ATextThatIsNotGrantedIsNotStored)
{
    LabelHost list;
    list.AnswerEnd(FALSE);
    const HWND edit = list.Begin(1);
    SetWindowTextW(edit, L"new");
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.End(), "end(1,new)");
    EXPECT_EQ(list.TextOf(1), L"r1");
}

TEST(ListViewLabels, EscapeSendsANullTextAndChangesNothing)
{
    LabelHost list;
    list.AnswerEnd(TRUE);
    const HWND edit = list.Begin(1);
    SetWindowTextW(edit, L"new");
    PressIn(edit, VK_ESCAPE);
    EXPECT_EQ(list.End(), "end(1,null)");
    EXPECT_EQ(list.TextOf(1), L"r1");
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_EQ(list.Edit(), nullptr);
    EXPECT_EQ(GetFocus(), list.Control());
}

TEST(ListViewLabels, LosingTheFocusSendsTheText)
{
    LabelHost list;
    list.AnswerEnd(TRUE);
    const HWND edit = list.Begin(1);
    SetWindowTextW(edit, L"new");
    SetFocus(list.Window());
    EXPECT_EQ(list.End(), "end(1,new)");
    EXPECT_EQ(list.TextOf(1), L"new");
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_EQ(GetFocus(), list.Window());
}

TEST(ListViewLabels, TheEndIsNotifiedOnce)
{
    LabelHost list;
    int ends = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        ends += header.code == LVN_ENDLABELEDITW;
        return TRUE * (header.code == LVN_ENDLABELEDITW);
    };
    const HWND edit = list.Begin(1);
    PressIn(edit, VK_RETURN);
    SetFocus(list.Window());
    EXPECT_EQ(ends, 1);
}

TEST(ListViewLabels, TheEndCarriesTheParameterOfTheItem)
{
    LabelHost list;
    LPARAM param = 0;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_ENDLABELEDITW)
            param = reinterpret_cast<NMLVDISPINFOW&>(header).item.lParam;
        return 0;
    };
    PressIn(list.Begin(2), VK_RETURN);
    EXPECT_EQ(param, 2);
}

TEST(ListViewLabels, ASecondEditEndsTheFirst)
{
    LabelHost list;
    list.AnswerEnd(TRUE);
    const HWND first = list.Begin(0);
    SetWindowTextW(first, L"new");
    const HWND second = reinterpret_cast<HWND>(list.Send(LVM_EDITLABELW, 2));
    EXPECT_EQ(list.End(), "end(0,new)");
    EXPECT_EQ(list.TextOf(0), L"new");
    EXPECT_NE(second, nullptr);
    EXPECT_EQ(list.Edit(), second);
    EXPECT_EQ(TextOfWindow(second), L"r2");
}

TEST(ListViewLabels, TheHandlerMayDeleteTheItemAtTheEnd)
{
    LabelHost list;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_ENDLABELEDITW)
            list.Send(LVM_DELETEALLITEMS);
        return header.code == LVN_ENDLABELEDITW;
    };
    PressIn(list.Begin(1), VK_RETURN);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.Edit(), nullptr);
}

TEST(ListViewLabels, AnItemThatDoesNotExistIsNotEdited)
{
    LabelHost list;
    EXPECT_EQ(list.Begin(3), nullptr);
    EXPECT_EQ(list.Began().find("begin"), std::string::npos);
}

TEST(ListViewLabels, DestroyingTheListEndsTheEditSilently)
{
    LabelHost list;
    const HWND edit = list.Begin(1);
    SetWindowTextW(edit, L"new");
    DestroyWindow(list.Control());
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_EQ(list.Trace(), "clear delete(2) delete(1) delete(0)");
}

TEST(ListViewLabels, HidingTheParentEndsTheEditWithTheText)
{
    LabelHost list;
    const HWND edit = list.Begin(1);
    SetWindowTextW(edit, L"new");
    ShowWindow(list.Window(), SW_HIDE);
    EXPECT_EQ(list.End(), "end(1,new)");
    EXPECT_FALSE(IsWindow(edit));
}

TEST(ListViewLabels, TheHandlerMayDestroyTheListAtTheEnd)
{
    LabelHost list;
    list.answer = [&](NMHDR& header) -> LRESULT {
        if (header.code == LVN_ENDLABELEDITW)
            DestroyWindow(list.Control());
        return header.code == LVN_ENDLABELEDITW;
    };
    const HWND edit = list.Begin(1);
    SetWindowTextW(edit, L"new");
    PressIn(edit, VK_RETURN);
    EXPECT_FALSE(IsWindow(list.Control()));
    EXPECT_FALSE(IsWindow(edit));
}

TEST(ListViewLabels, TheEditFieldTakesAllKeysFromADialog)
{
    LabelHost list;
    const LRESULT wanted = SendMessageW(list.Begin(1), WM_GETDLGCODE, 0, 0);
    EXPECT_NE(wanted & DLGC_WANTALLKEYS, 0);
    EXPECT_NE(wanted & DLGC_WANTARROWS, 0);
}

TEST(ListViewLabels, TheListNotifiesOfTheEditFieldsFocus)
{
    LabelHost list;
    list.SetState(1, LVIS_SELECTED | LVIS_FOCUSED);
    list.Trace();
    const HWND edit = list.Begin(1);
    EXPECT_EQ(list.Began(), "begin(1) killfocus");
    list.AnswerEnd(TRUE);
    SetWindowTextW(edit, L"new");
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.Trace(), "end(1,new) text(1) setfocus");
}

TEST(ListViewLabels, IndexMinusOneEndsTheEdit)
{
    LabelHost list;
    const HWND edit = list.Begin(1);
    EXPECT_EQ(list.Begin(-1), nullptr);
    EXPECT_NE(list.Began().find("end(1,"), std::string::npos) << list.Began();
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_EQ(list.Edit(), nullptr);
}

TEST(ListViewLabels, AClickOnAnotherRowEndsTheEdit)
{
    LabelHost list;
    list.AnswerEnd(TRUE);
    const HWND edit = list.Begin(0);
    SetWindowTextW(edit, L"new");
    list.Click(2);
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_EQ(list.TextOf(0), L"new");
    EXPECT_EQ(list.Selected(), "2");
}

TEST(ListViewLabels, ScrollingEndsTheEdit)
{
    LabelHost list;
    const HWND edit = list.Begin(1);
    constexpr WPARAM kLineDown = 1;
    list.Send(WM_VSCROLL, kLineDown, 0);
    EXPECT_EQ(list.End().substr(0, 5), "end(1");
    EXPECT_FALSE(IsWindow(edit));
}

TEST(ListViewLabels, ALongTextIsEditedWhole)
{
    LabelHost list;
    list.AnswerEnd(TRUE);
    const HWND edit = list.Begin(1);
    const std::wstring text(200, L'x');
    SetWindowTextW(edit, text.c_str());
    PressIn(edit, VK_RETURN);
    EXPECT_EQ(list.TextOf(1), text);
}

TEST(ListViewLabels, TheEditFieldLiesOverTheLabel)
{
    LabelHost list;
    const HWND edit = list.Begin(1);
    RECT rect{};
    GetWindowRect(edit, &rect);
    POINT middle{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    MapWindowPoints(nullptr, list.Control(), &middle, 1);
    const LVHITTESTINFO hit = list.Hit(middle.x, middle.y);
    EXPECT_EQ(hit.iItem, 1);
    EXPECT_EQ(hit.flags, LVHT_ONITEMLABEL);
}
