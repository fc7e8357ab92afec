// The modal run of a dialog.
#include "TestDialog.h"

#include "BoxAnswers.h"
#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <new>

namespace
{
class DialogModal : public testing::Test
{
protected:
    const DialogModule module;
    const CUiState state;
    DialogDriver driver;
    TestDialog dialog;
};

/// A top-level window as a host has it.
class HostWindow
{
public:
    HostWindow()
        : m_window(CreateWindowExW(0, L"Static", L"the host", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                                   nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        SetActiveWindow(m_window);
    }
    ~HostWindow() { DestroyWindow(m_window); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND get() const { return m_window; }

private:
    HWND m_window;
};
} // namespace

TEST_F(DialogModal, EndsWithOneByTheDefaultButton)
{
    driver.OnDialog({Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.events, (Events{"init", "ok"}));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(DialogModal, EndsWithTwoByCancel)
{
    driver.OnDialog({Presses(IDCANCEL)});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.events, (Events{"init", "cancel"}));
}

TEST_F(DialogModal, TakesEnterForTheDefaultButton)
{
    driver.OnDialog({Types("Return")});
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(DialogModal, TakesEscapeForCancel)
{
    driver.OnDialog({Types("Escape")});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(DialogModal, TakesTheCloseBoxForCancel)
{
    driver.OnDialog({Closes()});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(DialogModal, EndsWithTheCodeGivenLast)
{
    dialog.onApply = [this] {
        dialog.EndDialog(10);
        dialog.EndDialog(11);
    };
    driver.OnDialog({Presses(kApply)});
    EXPECT_EQ(dialog.DoModal(), 11);
}

TEST_F(DialogModal, IgnoresAnEndBeforeItsRun)
{
    dialog.EndDialog(7);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) && !message.hwnd)
        << "a message for no window";
    driver.OnDialog({Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(DialogModal, FailsWithoutATemplate)
{
    TestDialog missing(999);
    EXPECT_EQ(missing.DoModal(), -1);
    EXPECT_TRUE(missing.events.empty());
}

TEST_F(DialogModal, IsNeverShownIfItEndsWhileItOpens)
{
    bool visible = true;
    dialog.onInit = [&] {
        dialog.EndDialog(7);
        visible = IsWindowVisible(dialog.m_hWnd) != FALSE;
        return true;
    };
    EXPECT_EQ(dialog.DoModal(), 7);
    EXPECT_FALSE(visible);
    EXPECT_EQ(CLiveWindow::Count(), 0);
}

TEST_F(DialogModal, RunsAgainAfterItsEnd)
{
    driver.OnDialog({Presses(IDOK)});
    driver.OnDialog({Presses(IDCANCEL)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST_F(DialogModal, RefusesASecondRunInsideItsOwn)
{
    INT_PTR second = 0;
    dialog.onApply = [&] {
        second = dialog.DoModal();
        dialog.EndDialog(5);
    };
    driver.OnDialog({Presses(kApply)});
    EXPECT_EQ(dialog.DoModal(), 5);
    EXPECT_EQ(second, -1);
}

TEST_F(DialogModal, DisablesItsParentWhileItRuns)
{
    const HostWindow host;
    TestDialog child(300, host.get());
    bool enabled = true;
    HWND owner = nullptr;
    driver.OnDialog({[&](DialogView& view) {
        enabled = IsWindowEnabled(host.get()) != FALSE;
        owner = GetWindow(view.Window(), GW_OWNER);
        view.Click(IDOK);
    }});
    EXPECT_EQ(child.DoModal(), IDOK);
    EXPECT_FALSE(enabled);
    EXPECT_EQ(owner, host.get());
    EXPECT_TRUE(IsWindowEnabled(host.get()));
    EXPECT_EQ(GetActiveWindow(), host.get());
}

TEST_F(DialogModal, BelongsToTheActiveWindowIfItHasNoParent)
{
    const HostWindow host;
    HWND owner = nullptr;
    driver.OnDialog({[&](DialogView& view) {
        owner = GetWindow(view.Window(), GW_OWNER);
        view.Click(IDOK);
    }});
    dialog.DoModal();
    EXPECT_EQ(owner, host.get());
    EXPECT_TRUE(IsWindowEnabled(host.get()));
}

TEST_F(DialogModal, KeepsAParentDisabledThatWasDisabledBefore)
{
    const HostWindow host;
    EnableWindow(host.get(), FALSE);
    TestDialog child(300, host.get());
    driver.OnDialog({Presses(IDOK)});
    child.DoModal();
    EXPECT_FALSE(IsWindowEnabled(host.get()));
}

TEST_F(DialogModal, Nests)
{
    TestDialog inner;
    INT_PTR innerCode = 0;
    bool outerEnabled = true;
    dialog.onApply = [&] {
        driver.OnDialog({[&](DialogView& view) {
            outerEnabled = IsWindowEnabled(dialog.m_hWnd) != FALSE;
            view.Click(IDCANCEL);
        }});
        innerCode = inner.DoModal();
    };
    driver.OnDialog({Presses(kApply), Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(innerCode, IDCANCEL);
    EXPECT_FALSE(outerEnabled);
}

TEST_F(DialogModal, PassesOnWhatAHandlerThrew)
{
    dialog.onApply = [] {
        throw std::bad_alloc();
    };
    driver.OnDialog({Presses(kApply)});
    EXPECT_THROW(dialog.DoModal(), std::bad_alloc);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(CLiveWindow::Count(), 0);
}

TEST_F(DialogModal, PassesOnWhatItsOpeningThrew)
{
    dialog.onInit = []() -> bool {
        throw std::bad_alloc();
    };
    EXPECT_THROW(dialog.DoModal(), std::bad_alloc);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(DialogModal, EndsOnlyTheInnerDialogWhoseHandlerThrew)
{
    TestDialog inner;
    dialog.onApply = [&] {
        inner.onApply = [] {
            throw std::bad_alloc();
        };
        driver.OnDialog({Presses(kApply)});
        EXPECT_THROW(inner.DoModal(), std::bad_alloc);
    };
    driver.OnDialog({Presses(kApply), Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(DialogModal, EndsWhenItsWindowIsDestroyed)
{
    dialog.onApply = [this] {
        dialog.DestroyWindow();
    };
    driver.OnDialog({Presses(kApply)});
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST_F(DialogModal, EndsWithTheProgramAndPassesTheQuitMessageOn)
{
    dialog.onApply = [] {
        PostQuitMessage(3);
    };
    driver.OnDialog({Presses(kApply)});
    EXPECT_EQ(dialog.DoModal(), -1);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0))
        DispatchMessageW(&message); // what was posted before the end
    EXPECT_EQ(message.wParam, 3u);
}

TEST_F(DialogModal, KeepsTheModuleWhileItLives)
{
    HRESULT answer = S_OK;
    driver.OnDialog({[&](DialogView& view) {
        answer = CWinApp::Get()->CanUnloadNow();
        view.Click(IDOK);
    }});
    dialog.DoModal();
    EXPECT_EQ(answer, S_FALSE);
    EXPECT_EQ(CWinApp::Get()->CanUnloadNow(), S_OK);
}

TEST_F(DialogModal, GivesTheFocusToTheFirstControl)
{
    int focus = 0;
    driver.OnDialog({[&](DialogView& view) {
        focus = view.Focus();
        view.Click(IDOK);
    }});
    dialog.DoModal();
    EXPECT_EQ(focus, kNameEdit);
}

TEST_F(DialogModal, LeavesTheFocusWhereTheOpeningPutIt)
{
    dialog.onInit = [this] {
        SetFocus(dialog.GetDlgItem(kList));
        return false;
    };
    int focus = 0;
    driver.OnDialog({[&](DialogView& view) {
        focus = view.Focus();
        view.Click(IDOK);
    }});
    dialog.DoModal();
    EXPECT_EQ(focus, kList);
}

TEST_F(DialogModal, WithoutAControlIsLeftByTheCloseBox)
{
    TestDialog empty(301);
    driver.OnDialog({Closes()});
    EXPECT_EQ(empty.DoModal(), IDCANCEL);
}
