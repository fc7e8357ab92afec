// Editors over the cells of a list: how their keys and notifications reach them, and how they end.
#include "DateTimeCtrl.h"
#include "Edit.h"
#include "TestDialog.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace
{
using Events = std::vector<std::string>;

constexpr UINT kTemplate = 302;
constexpr int kGrid = 310;
constexpr UINT kEditor = 1000;
constexpr DWORD kEditStyle = WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL;
constexpr DWORD kPickerStyle = WS_CHILD | WS_VISIBLE | DTS_UPDOWN;
const RECT kCell{104, 20, 196, 40};

std::string Narrow(const std::wstring& text)
{
    return {text.begin(), text.end()};
}

/// Records the ends of its editors.
class Grid : public CListCtrl
{
public:
    explicit Grid(Events& events) : m_events(events) {}

    bool PreTranslateMessage(MSG& message) override
    {
        if (message.message == WM_KEYDOWN)
            m_events.emplace_back("list sees " + std::to_string(message.wParam));
        return false;
    }

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {OnReflected<&Grid::OnEndLabelEdit>(LVN_ENDLABELEDITW)};
        static const CMessageMap map{&CListCtrl::ClassMessageMap(), entries};
        return map;
    }

private:
    void OnEndLabelEdit(NMHDR* header, LRESULT* result)
    {
        const LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
        m_events.emplace_back("list gets " + (item.pszText ? Narrow(item.pszText) : "nothing"));
        *result = 0;
    }

    Events& m_events;
};

/// An editor that notifies the list when it loses the focus, and then destroys its window: at once, or by a
/// message that it posts to itself.
template <class Base>
class CellEditor : public Base
{
public:
    CellEditor(Events& events, bool posts) : m_events(events), m_posts(posts) {}

    bool PreTranslateMessage(MSG& message) override
    {
        const bool own =
            message.message == WM_KEYDOWN && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE);
        if (!own)
            return false;
        TranslateMessage(&message);
        DispatchMessageW(&message);
        return true;
    }

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {
            OnMessage<&CellEditor::OnKillFocus>(WM_KILLFOCUS),
            OnMessage<&CellEditor::OnKeyDown>(WM_KEYDOWN),
            OnReflected<&CellEditor::OnDateChange>(DTN_DATETIMECHANGE),
        };
        static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
        return map;
    }
    void PostNcDestroy() override { m_events.emplace_back("closed"); }

private:
    LRESULT OnKillFocus(WPARAM, LPARAM)
    {
        const LRESULT result = this->Default();
        Notify();
        if (m_posts)
            this->PostMessage(WM_CLOSE);
        else
            this->DestroyWindow();
        return result;
    }
    LRESULT OnKeyDown(WPARAM key, LPARAM)
    {
        m_cancelled = key == VK_ESCAPE;
        if (key != VK_RETURN && key != VK_ESCAPE)
            return this->Default();
        ::SetFocus(GetParent(this->m_hWnd));
        return 0;
    }
    void OnDateChange(NMHDR*, LRESULT*) { m_events.emplace_back("date changed"); }

    void Notify()
    {
        const HWND list = GetParent(this->m_hWnd);
        std::wstring text = this->GetWindowText();
        NMLVDISPINFOW end{};
        end.hdr = {list, kEditor, LVN_ENDLABELEDITW};
        end.item.mask = LVIF_TEXT;
        end.item.pszText = m_cancelled ? nullptr : text.data();
        ::SendMessageW(GetParent(list), WM_NOTIFY, static_cast<WPARAM>(GetDlgCtrlID(list)),
                       reinterpret_cast<LPARAM>(&end));
    }

    Events& m_events;
    bool m_posts;
    bool m_cancelled = false;
};

using CellEdit = CellEditor<CEdit>;
using CellPicker = CellEditor<CDateTimeCtrl>;

class GridDialog : public CDialog
{
public:
    explicit GridDialog(HWND parent = nullptr) : CDialog(kTemplate, parent) {}

    Events events;
    Grid list{events};
    std::vector<std::unique_ptr<CWnd>> editors;

    CellEdit& OpenEdit()
    {
        auto& editor = Add<CellEdit>(false);
        EXPECT_TRUE(editor.Create(kEditStyle, kCell, list.m_hWnd, kEditor));
        editor.SetWindowText(L"old");
        editor.SetFocus();
        editor.SetSel(0, -1);
        return editor;
    }
    CellPicker& OpenPicker(bool posts = true)
    {
        auto& editor = Add<CellPicker>(posts);
        EXPECT_TRUE(editor.Create(kPickerStyle, kCell, list.m_hWnd, kEditor));
        return editor;
    }

protected:
    // The list is bound twice on purpose: as often as a dialog may do so, nothing happens.
    void DoDataExchange(CDataExchange* pDX) override
    {
        DDX_Control(pDX, kGrid, list);
        DDX_Control(pDX, kGrid, list);
    }
    bool OnInitDialog() override
    {
        CDialog::OnInitDialog();
        list.InsertColumn(0, L"Name", LVCFMT_LEFT, 100);
        list.InsertColumn(1, L"Value", LVCFMT_LEFT, 100);
        list.InsertItem(0, L"row");
        return true;
    }
    void OnOK() override { events.emplace_back("OK"); }
    void OnCancel() override
    {
        events.emplace_back("Cancel");
        CDialog::OnCancel();
    }

private:
    template <class Editor>
    Editor& Add(bool posts)
    {
        auto editor = std::make_unique<Editor>(events, posts);
        Editor& added = *editor;
        editors.push_back(std::move(editor));
        return added;
    }
};

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

TEST_F(DialogEditors, ATextIsAsWideAsItsCharacters)
{
    Run({[this](DialogView&) {
        const CListCtrl& list = dialog.list;
        EXPECT_EQ(list.TextExtent(L"").cx, 0);
        const SIZE one = list.TextExtent(L"m");
        EXPECT_GT(one.cx, 0);
        EXPECT_GT(one.cy, 0);
        EXPECT_EQ(list.TextExtent(L"mmm").cx, 3 * one.cx);
        EXPECT_EQ(list.TextExtent(L"mmm").cy, one.cy);
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

TEST_F(DialogEditors, RowsTellTheirStatesAndAListItsColumns)
{
    Run({[this](DialogView&) {
        const CListCtrl& list = dialog.list;
        constexpr UINT both = LVIS_FOCUSED | LVIS_SELECTED;
        list.SetItemState(0, LVIS_FOCUSED, both);
        EXPECT_EQ(list.GetItemState(0, both), static_cast<UINT>(LVIS_FOCUSED));
        EXPECT_EQ(list.GetItemState(0, LVIS_SELECTED), 0U);
        EXPECT_EQ(list.GetItemState(1, both), 0U);
        EXPECT_EQ(list.GetColumnCount(), 2);
    }});
}
