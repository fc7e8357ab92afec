// Editors over the cells of a list: how their keys and notifications reach them, and how they end.
#include "GridDialog.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace
{
class DialogEditors : public testing::Test
{
protected:
    /// Runs the dialog with these steps and then closes it.
    void Run(Steps steps)
    {
        steps.push_back([](DialogView& view) { view.Close(); });
        driver.OnDialog(std::move(steps));
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_EQ(CLiveWindow::Count(), 0);
    }
    /// What has happened since the last call.
    Events Happened() { return std::exchange(dialog.events, {}); }

    const DialogModule module;
    const CUiState state;
    DialogDriver driver;
    GridDialog dialog;
};
} // namespace

TEST_F(DialogEditors, AnEditorIsCreatedWithTheTextGivenAndTheFocus)
{
    Run({[this](DialogView&) {
        CellEdit& editor = dialog.OpenEdit();
        EXPECT_TRUE(editor.HasFocus());
        EXPECT_FALSE(dialog.list.HasFocus());
        EXPECT_EQ(editor.GetWindowText(), L"old");
        EXPECT_EQ(GetParent(editor.m_hWnd), dialog.list.m_hWnd);
        EXPECT_EQ(GetDlgCtrlID(editor.m_hWnd), static_cast<int>(kEditor));
        EXPECT_EQ(editor.SendMessage(EM_GETSEL), MAKELONG(0, 3));
    }});
}

TEST_F(DialogEditors, AnEditorTakesTheFontOfItsList)
{
    Run({[this](DialogView&) {
        const HFONT font = dialog.list.GetFont();
        ASSERT_NE(font, nullptr);
        for (const CWnd* editor :
             {static_cast<CWnd*>(&dialog.OpenEdit()), static_cast<CWnd*>(&dialog.OpenPicker())})
        {
            EXPECT_NE(editor->GetFont(), font);
            editor->SetFont(font);
            EXPECT_EQ(editor->GetFont(), font);
        }
    }});
}

TEST_F(DialogEditors, EnterEndsTheEditorAndNotTheDialog)
{
    Run({[this](DialogView& view) {
             dialog.OpenEdit();
             view.Press(VK_RETURN);
         },
         [this](DialogView&) {
             EXPECT_EQ(Happened(), (Events{"list gets old", "closed"}));
             EXPECT_TRUE(dialog.list.HasFocus());
         }});
}

TEST_F(DialogEditors, EscapeEndsTheEditorWithoutAText)
{
    Run({[this](DialogView& view) {
             dialog.OpenEdit();
             view.Press(VK_ESCAPE);
         },
         [this](DialogView&) {
             EXPECT_EQ(Happened(), (Events{"list gets nothing", "closed"}));
             EXPECT_TRUE(dialog.list.HasFocus());
         }});
}

TEST_F(DialogEditors, KeysThatAnEditorLeavesReachItsListAndThenTheDialog)
{
    Run({[this](DialogView& view) {
             dialog.OpenEdit();
             view.Press(L'A');
         },
         [this](DialogView& view) {
             EXPECT_EQ(Happened(), Events{"list sees 65"});
             view.Press(VK_TAB);
         },
         [this](DialogView&) {
             const Events ended = Happened();
             ASSERT_EQ(ended.size(), 3U);
             EXPECT_EQ(ended[0], "list sees 9");
             EXPECT_TRUE(ended[1] == "list gets a" || ended[1] == "list gets A") << ended[1];
             EXPECT_EQ(ended[2], "closed");
         }});
}

TEST_F(DialogEditors, EnterInAPickerEndsItByItsOwnMessage)
{
    Run({[this](DialogView& view) {
             CellPicker& editor = dialog.OpenPicker();
             editor.SetTime(SYSTEMTIME{2024, 2, 4, 29});
             editor.SetFocus();
             view.Press(VK_RETURN);
         },
         [this](DialogView&) {
             EXPECT_EQ(Happened(), (Events{"list gets 2/29/2024", "closed"}));
             EXPECT_TRUE(dialog.list.HasFocus());
         }});
}

TEST_F(DialogEditors, APickerInAListReceivesItsOwnNotifications)
{
    Run({[this](DialogView& view) {
             dialog.OpenPicker().SetFocus();
             view.Press(VK_UP);
         },
         [this](DialogView&) {
             EXPECT_EQ(Happened(), (Events{"list sees 38", "date changed"}));
         }});
}

// Every way in which an editor loses the focus, at once and by a message of its own.
TEST_F(DialogEditors, AnEditorEndsHoweverItLosesTheFocus)
{
    const std::function<void()> ways[] = {
        [this] { dialog.list.SetFocus(); },
        [this] { dialog.list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 30)); },
        [this] { ::SetFocus(dialog.m_hWnd); },
        [this] { ::SetFocus(nullptr); },
    };
    Steps steps;
    for (const auto& leave : ways)
        for (const bool posts : {false, true})
        {
            steps.push_back([this, &leave, posts](DialogView&) {
                CellPicker& editor = dialog.OpenPicker(posts);
                editor.SetTime(SYSTEMTIME{2024, 2, 4, 29});
                editor.SetFocus();
                ASSERT_TRUE(editor.HasFocus());
                leave();
            });
            steps.push_back([this](DialogView&) {
                EXPECT_EQ(Happened(), (Events{"list gets 2/29/2024", "closed"}));
            });
        }
    Run(std::move(steps));
}

TEST_F(DialogEditors, HidingAndDisablingTheListLeavesTheFocusInItsEditor)
{
    Run({[this](DialogView&) {
        const CellEdit& editor = dialog.OpenEdit();
        dialog.list.ShowWindow(SW_HIDE);
        EXPECT_TRUE(editor.HasFocus());
        dialog.list.EnableWindow(false);
        EXPECT_TRUE(editor.HasFocus());
        EXPECT_EQ(Happened(), Events{});
    }});
}

TEST_F(DialogEditors, OpenEditorsEndWithTheirDialog)
{
    Run({[this](DialogView&) {
        dialog.OpenPicker();
        dialog.OpenEdit();
    }});
    // The editor with the focus loses it first.
    EXPECT_EQ(dialog.events, (Events{"Cancel", "list gets old", "closed", "closed"}));
    EXPECT_EQ(dialog.editors[0]->m_hWnd, nullptr);
    EXPECT_EQ(dialog.editors[1]->m_hWnd, nullptr);
}

TEST_F(DialogEditors, TheEditorOfAnOwnedDialogReportsItsTextAtTheEnd)
{
    const HWND owner = CreateWindowExW(0, WC_STATICW, L"owner", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                       nullptr, nullptr, nullptr);
    GridDialog owned(owner);
    driver.OnDialog({[&owned](DialogView& view) {
        owned.OpenEdit();
        view.Close();
    }});
    EXPECT_EQ(owned.DoModal(), IDCANCEL);
    EXPECT_EQ(owned.events, (Events{"Cancel", "list gets old", "closed"}));
    DestroyWindow(owner);
}

TEST_F(DialogEditors, AnEditorMayBeDeletedWhileItHasTheFocus)
{
    Run({[this](DialogView&) {
        const HWND window = dialog.OpenEdit().m_hWnd;
        dialog.editors.clear();
        EXPECT_FALSE(IsWindow(window));
    }});
}
