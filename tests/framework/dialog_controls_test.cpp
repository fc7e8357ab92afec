// Controls of a dialog with classes of their own: in-place editors, lists with a header, common controls of a
// template.
#include "DateTimeCtrl.h"
#include "Edit.h"
#include "TestDialog.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace
{
constexpr UINT kCommonControls = 302; // the template
constexpr int kGrid = 310;
constexpr int kPicker = 311;
constexpr UINT kEditor = 1000;

/// How many editors of a test live, and what they did.
struct EditorLog
{
    int alive = 0;
    Events events;
};

/// An editor over a cell of a list. It destroys its window when it loses the focus and deletes itself with
/// it.
template <class Base>
class InPlace : public Base
{
public:
    explicit InPlace(EditorLog& log) : m_log(log) { ++m_log.alive; }
    ~InPlace() override { --m_log.alive; }

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {
            OnMessage<&InPlace::OnKillFocus>(WM_KILLFOCUS),
            OnMessage<&InPlace::OnKeyDown>(WM_KEYDOWN),
            OnReflected<&InPlace::OnCloseUp>(DTN_CLOSEUP),
        };
        static const CMessageMap map{&CWnd::ClassMessageMap(), entries};
        return map;
    }
    void PostNcDestroy() override
    {
        m_log.events.emplace_back("deleted");
        delete this;
    }

private:
    LRESULT OnKillFocus(WPARAM, LPARAM)
    {
        const LRESULT result = this->Default();
        m_log.events.emplace_back("focus lost");
        this->DestroyWindow();
        return result;
    }
    LRESULT OnKeyDown(WPARAM key, LPARAM)
    {
        if (key != VK_RETURN)
            return this->Default();
        ::SetFocus(GetParent(this->m_hWnd));
        return 0;
    }
    void OnCloseUp(NMHDR*, LRESULT*) { this->DestroyWindow(); }

    EditorLog& m_log;
};

using InPlaceEdit = InPlace<CEdit>;
using InPlaceDate = InPlace<CDateTimeCtrl>;

/// A list that answers what its header notifies, and lets the header's own list have it, too.
class HeadedList : public CListCtrl
{
public:
    Events events;
    int leastWidth = 20;

protected:
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {
            OnNotify<&HeadedList::OnClick>(HDN_ITEMCLICKW, 0),
            OnNotify<&HeadedList::OnChanging>(HDN_ITEMCHANGINGW, 0),
        };
        static const CMessageMap map{&CListCtrl::ClassMessageMap(), entries};
        return map;
    }

private:
    void OnClick(NMHDR* header, LRESULT* result)
    {
        events.emplace_back("click " + std::to_string(reinterpret_cast<NMHEADERW*>(header)->iItem));
        *result = Default();
    }
    void OnChanging(NMHDR* header, LRESULT* result)
    {
        const HDITEMW* item = reinterpret_cast<NMHEADERW*>(header)->pitem;
        const bool refused = item && (item->mask & HDI_WIDTH) && item->cxy < leastWidth;
        *result = refused ? TRUE : Default();
    }
};

/// The dialog of common controls.
class ControlsDialog : public CDialog
{
public:
    ControlsDialog() : CDialog(kCommonControls) {}

    std::function<void(ControlsDialog&)> onInit;
    HeadedList list;
    CDateTimeCtrl picker;
    Events events;

    /// A new editor of that class over the list.
    template <class Editor>
    Editor* Open(LPCWSTR className, DWORD style, EditorLog& log)
    {
        auto* editor = new Editor(log);
        editor->Create(className, L"text", WS_CHILD | WS_VISIBLE | style, {10, 10, 60, 26}, list.m_hWnd,
                       kEditor);
        return editor;
    }

protected:
    bool OnInitDialog() override
    {
        CDialog::OnInitDialog();
        list.SubclassDlgItem(kGrid, m_hWnd);
        picker.SubclassDlgItem(kPicker, m_hWnd);
        if (list.m_hWnd)
        {
            list.InsertColumn(0, L"Name", LVCFMT_LEFT, 100);
            list.InsertColumn(1, L"Value", LVCFMT_LEFT, 100);
        }
        if (onInit)
            onInit(*this);
        return true;
    }
    const CMessageMap& GetMessageMap() const override
    {
        static const CMessageMapEntry entries[] = {
            OnNotify<&ControlsDialog::OnColumnClick>(LVN_COLUMNCLICK, kGrid),
        };
        static const CMessageMap map{&CDialog::ClassMessageMap(), entries};
        return map;
    }

private:
    void OnColumnClick(NMHDR* header, LRESULT*)
    {
        events.emplace_back("column " + std::to_string(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem));
    }
};

class DialogControls : public testing::Test
{
protected:
    /// Runs the dialog, and in it the body, once.
    void Run(std::function<void(ControlsDialog&)> body)
    {
        driver.OnDialog({[&](DialogView& view) {
            body(dialog);
            view.Close();
        }});
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_EQ(CLiveWindow::Count(), 0);
    }

    const DialogModule module;
    const CUiState state;
    DialogDriver driver;
    ControlsDialog dialog;
    EditorLog log;
};

void ClickHeader(HWND header, int x)
{
    SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 5));
    SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(x, 5));
}
} // namespace

// The program itself never calls InitCommonControlsEx.
TEST_F(DialogControls, AListAndADatePickerComeFromTheTemplate)
{
    Run([](ControlsDialog& run) {
        ASSERT_NE(run.list.m_hWnd, nullptr);
        ASSERT_NE(run.picker.m_hWnd, nullptr);
        EXPECT_EQ(run.list.InsertItem(0, L"row"), 0);
        EXPECT_EQ(run.list.GetItemText(0, 0), L"row");
        SYSTEMTIME time{};
        EXPECT_TRUE(run.picker.GetTime(time));
        EXPECT_GT(time.wYear, 2000);
    });
}

TEST_F(DialogControls, AnEditorDeletesItselfWhenItLosesTheFocus)
{
    Run([this](ControlsDialog& run) {
        auto* editor = run.Open<InPlaceEdit>(WC_EDITW, ES_AUTOHSCROLL, log);
        const HWND window = editor->m_hWnd;
        editor->SetFocus();
        run.list.SetFocus();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(log.events, (Events{"focus lost", "deleted"}));
        EXPECT_EQ(log.alive, 0);
    });
}

TEST_F(DialogControls, AnEditorDeletesItselfInsideAKeyOfItsOwn)
{
    Run([this](ControlsDialog& run) {
        auto* editor = run.Open<InPlaceEdit>(WC_EDITW, ES_AUTOHSCROLL, log);
        const HWND window = editor->m_hWnd;
        editor->SetFocus();
        EXPECT_EQ(SendMessageW(window, WM_KEYDOWN, VK_RETURN, 1), 0);
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(GetFocus(), run.list.m_hWnd);
        EXPECT_EQ(log.events, (Events{"focus lost", "deleted"}));
    });
}

TEST_F(DialogControls, APickerDeletesItselfWhenItLosesTheFocus)
{
    Run([this](ControlsDialog& run) {
        auto* editor = run.Open<InPlaceDate>(DATETIMEPICK_CLASSW, DTS_UPDOWN, log);
        const HWND window = editor->m_hWnd;
        editor->SetFocus();
        run.list.SetFocus();
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(log.events, (Events{"focus lost", "deleted"}));
    });
}

TEST_F(DialogControls, APickerDeletesItselfInsideAReflectedNotification)
{
    Run([this](ControlsDialog& run) {
        auto* editor = run.Open<InPlaceDate>(DATETIMEPICK_CLASSW, DTS_UPDOWN, log);
        const HWND window = editor->m_hWnd;
        NMHDR closed{window, kEditor, DTN_CLOSEUP};
        run.list.SendMessage(WM_NOTIFY, kEditor, reinterpret_cast<LPARAM>(&closed));
        EXPECT_FALSE(IsWindow(window));
        EXPECT_EQ(log.events, Events{"deleted"});
        EXPECT_EQ(log.alive, 0);
    });
}

TEST_F(DialogControls, AnOpenEditorIsDeletedOnceWithItsDialog)
{
    Run([this](ControlsDialog& run) {
        run.Open<InPlaceEdit>(WC_EDITW, ES_AUTOHSCROLL, log)->SetFocus();
        run.Open<InPlaceDate>(DATETIMEPICK_CLASSW, DTS_UPDOWN, log);
        EXPECT_EQ(log.alive, 2);
    });
    EXPECT_EQ(log.alive, 0);
}

TEST_F(DialogControls, AHeadersClickIsAnsweredByTheClassOfItsList)
{
    Run([](ControlsDialog& run) {
        ClickHeader(run.list.GetHeader(), 150);
        EXPECT_EQ(run.list.events, Events{"click 1"});
        EXPECT_EQ(run.events, Events{"column 1"});
    });
}

TEST_F(DialogControls, AWidthIsRefusedByTheClassOfTheList)
{
    Run([](ControlsDialog& run) {
        EXPECT_FALSE(run.list.SendMessage(LVM_SETCOLUMNWIDTH, 1, 19));
        EXPECT_EQ(run.list.GetColumnWidth(1), 100);
        EXPECT_TRUE(run.list.SendMessage(LVM_SETCOLUMNWIDTH, 1, 20));
        EXPECT_EQ(run.list.GetColumnWidth(1), 20);
    });
}

TEST_F(DialogControls, AWidthThatIsPulledIsRefusedToo)
{
    Run([](ControlsDialog& run) {
        const HWND header = run.list.GetHeader();
        SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(99, 5));
        SendMessageW(header, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(9, 5));
        SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(9, 5));
        EXPECT_GE(run.list.GetColumnWidth(0), 20);
    });
}
