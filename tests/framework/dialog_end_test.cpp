// A dialog that is ended from outside by the system's EndDialog, given its window handle only.
#include "TestDialog.h"

#include "DialogDriver.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{
/// The host's window, with the focus in a control of its own.
class OwnerWindow
{
public:
    OwnerWindow()
        : m_window(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr,
                                   nullptr, nullptr))
    {
        SetActiveWindow(m_window);
        SetFocus(m_window);
    }
    ~OwnerWindow() { DestroyWindow(m_window); }
    OwnerWindow(const OwnerWindow&) = delete;
    OwnerWindow& operator=(const OwnerWindow&) = delete;

    HWND get() const { return m_window; }

    void ExpectUsable() const
    {
        EXPECT_TRUE(IsWindowEnabled(m_window));
        EXPECT_EQ(GetActiveWindow(), m_window);
        EXPECT_EQ(GetFocus(), m_window);
    }

private:
    HWND m_window;
};

class SystemEndDialog : public testing::Test
{
protected:
    void EndByDialog(INT_PTR code = IDOK) { EXPECT_TRUE(::EndDialog(dialog.m_hWnd, code)); }

    /// The dialog was cancelled, and no value was read from it.
    void ExpectCancelled(INT_PTR result, const Events& events)
    {
        EXPECT_EQ(result, IDCANCEL);
        EXPECT_EQ(dialog.events, events);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
        EXPECT_EQ(CLiveWindow::Count(), 0);
        owner.ExpectUsable();
    }

    const DialogModule module;
    const CUiState state;
    const OwnerWindow owner;
    std::optional<DialogDriver> driver{std::in_place};
    TestDialog dialog{300, owner.get()};
};
} // namespace

TEST_F(SystemEndDialog, CancelsWhateverItsCode)
{
    for (const INT_PTR code : {INT_PTR{IDOK}, INT_PTR{IDCANCEL}, INT_PTR{0}, INT_PTR{-1}})
    {
        dialog.events.clear();
        driver->OnDialog({[&](DialogView&) {
            EndByDialog(code);
        }});
        ExpectCancelled(dialog.DoModal(), {"init"});
    }
}

TEST_F(SystemEndDialog, CancelsInsideANotification)
{
    dialog.onApply = [this] {
        EndByDialog();
        EXPECT_FALSE(IsWindowVisible(dialog.m_hWnd));
    };
    driver->OnDialog({Presses(kApply)});
    ExpectCancelled(dialog.DoModal(), {"init", "apply"});
}

TEST_F(SystemEndDialog, CancelsWhileTheDialogOpens)
{
    bool shown = true;
    dialog.onInit = [&] {
        EndByDialog();
        shown = IsWindowVisible(dialog.m_hWnd);
        return true;
    };
    ExpectCancelled(dialog.DoModal(), {"init"});
    EXPECT_FALSE(shown);
}

TEST_F(SystemEndDialog, CancelsFromATimerOfTheHost)
{
    driver.reset(); // no step is run in this dialog
    static HWND window;
    dialog.onInit = [this] {
        window = dialog.m_hWnd;
        SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR timer, DWORD) {
            KillTimer(nullptr, timer);
            EXPECT_TRUE(IsWindowVisible(window));
            ::EndDialog(window, IDOK);
        });
        return true;
    };
    ExpectCancelled(dialog.DoModal(), {"init"});
}

TEST_F(SystemEndDialog, TwiceCancelsOnce)
{
    dialog.onApply = [this] {
        EndByDialog(1);
        EndByDialog(3);
    };
    driver->OnDialog({Presses(kApply)});
    ExpectCancelled(dialog.DoModal(), {"init", "apply"});
}

TEST_F(SystemEndDialog, AfterTheDialogsOwnEndChangesNothing)
{
    dialog.onApply = [this] {
        dialog.EndDialog(9);
        EndByDialog(3);
    };
    driver->OnDialog({Presses(kApply)});
    EXPECT_EQ(dialog.DoModal(), 9);
    owner.ExpectUsable();
}

TEST_F(SystemEndDialog, CancelsTheInnerOfTwo)
{
    TestDialog inner(300, nullptr);
    INT_PTR innerResult = 0;
    dialog.onApply = [&] {
        driver->OnDialog({[&](DialogView&) {
            ::EndDialog(inner.m_hWnd, IDOK);
        }});
        innerResult = inner.DoModal();
        EXPECT_TRUE(IsWindowEnabled(dialog.m_hWnd));
        EXPECT_EQ(GetActiveWindow(), dialog.m_hWnd);
    };
    driver->OnDialog({Presses(kApply), Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(innerResult, IDCANCEL);
    owner.ExpectUsable();
}

TEST_F(SystemEndDialog, CancelsTheOuterOfTwoOnceTheInnerEnded)
{
    TestDialog inner(300, nullptr);
    dialog.onApply = [&] {
        driver->OnDialog({[&](DialogView& view) {
            EndByDialog();
            view.Click(IDOK);
        }});
        EXPECT_EQ(inner.DoModal(), IDOK);
    };
    driver->OnDialog({Presses(kApply)});
    ExpectCancelled(dialog.DoModal(), {"init", "apply"});
}

TEST_F(SystemEndDialog, IsNoCancelAgainAtTheNextRun)
{
    driver->OnDialog({[&](DialogView&) {
        EndByDialog();
    }});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    driver->OnDialog({Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(SystemEndDialog, IsDistinguishedFromHidingTheDialog)
{
    driver->OnDialog({[&](DialogView&) { ::ShowWindow(dialog.m_hWnd, SW_HIDE); },
                      [&](DialogView&) { ::ShowWindow(dialog.m_hWnd, SW_SHOW); }, Presses(IDOK)});
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(SystemEndDialog, IsDistinguishedFromTheEndOfTheWindow)
{
    driver->OnDialog({[&](DialogView&) {
        ::DestroyWindow(dialog.m_hWnd);
    }});
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
}

TEST_F(SystemEndDialog, IsDistinguishedFromTheEndOfTheOwner)
{
    const HWND other = CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr,
                                       nullptr, nullptr);
    TestDialog owned(300, other);
    driver->OnDialog({[&](DialogView&) {
        ::DestroyWindow(other);
    }});
    EXPECT_EQ(owned.DoModal(), -1);
    EXPECT_EQ(owned.m_hWnd, nullptr);
    EXPECT_EQ(CLiveWindow::Count(), 0);
}

TEST_F(SystemEndDialog, IsDistinguishedFromTheEndOfTheProgram)
{
    driver.reset(); // no step is run in this dialog
    dialog.onInit = [] {
        SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR timer, DWORD) {
            KillTimer(nullptr, timer);
            PostQuitMessage(4);
        });
        return true;
    };
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.events, (Events{"init"}));
    EXPECT_TRUE(IsWindowEnabled(owner.get()));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0))
        DispatchMessageW(&message); // what was posted before the end
    EXPECT_EQ(message.wParam, 4u) << "the host's loop is told";
}
