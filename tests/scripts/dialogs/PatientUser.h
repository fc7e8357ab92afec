// A user who takes what comes, for dialogs that may end at any moment.
#pragma once

#include "ModalWatch.h"

#include <functional>
#include <utility>
#include <vector>

/// Runs the steps while the first dialog is open, one at a time, and answers every message box by OK or Yes.
/// A dialog that ends before its last step is no failure.
class PatientUser : private ModalWatch
{
public:
    using Steps = std::vector<std::function<void(HWND dialog)>>;

    explicit PatientUser(Steps steps) : m_steps(std::move(steps)) {}

private:
    void OnActivated(HWND window) override
    {
        if (!m_dialog)
            m_dialog = window;
        else if (window != m_dialog)
            m_box = window;
        CallLater();
    }
    void OnCall() override
    {
        if (HWND box = std::exchange(m_box, nullptr); box && IsWindow(box))
        {
            const HWND yes = GetDlgItem(box, IDYES);
            SendMessageW(yes ? yes : GetDlgItem(box, IDOK), BM_CLICK, 0, 0);
        }
        else if (IsWindow(m_dialog) && m_next < m_steps.size())
        {
            // The dialog may have ended before the next step.
            CallLater();
            m_steps[m_next++](m_dialog);
        }
    }

    HWND m_dialog = nullptr;
    HWND m_box = nullptr;
    Steps m_steps;
    std::size_t m_next = 0;
};
