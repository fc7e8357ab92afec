// Handles the modal dialogs of the calling thread, as a user in front of them would.
#pragma once

#include "ModalWatch.h"
#include "Steps.h"

#include <deque>
#include <string>
#include <vector>

/// Runs the steps that OnDialog queued for a modal dialog of this thread inside the dialog's own loop. A step
/// runs when all that the step before posted is done. The test fails, with all that the dialog shows, if a
/// dialog was not expected, stays open after its last step or does not answer within the bound; the dialog
/// is then closed, so that no test hangs. It also fails if a dialog never opened, or closed before its last
/// step. No step runs after one that throws or in which an ASSERT fails. Dialogs may open dialogs. BoxAnswers
/// answers message boxes; without it a box is unexpected. One object at a time for each thread.
class DialogDriver : private ModalWatch
{
public:
    /// `bound`: how long a dialog may take, in milliseconds.
    explicit DialogDriver(UINT bound = 20'000) : m_bound(bound) {}
    ~DialogDriver() override;

    /// The steps of the next dialog that opens.
    void OnDialog(Steps steps);

    /// True if no queued dialog is left.
    bool AllShown() const { return m_expected.empty(); }

private:
    // The steps taken so far to close a dialog that does not close by itself.
    enum class Closing
    {
        No,
        Cancelled,
        Closed
    };

    struct OpenDialog
    {
        HWND window = nullptr;
        bool looked = false; ///< box, unexpected and steps are set
        bool box = false;
        bool unexpected = false;
        bool running = false; ///< one of its steps has not returned yet
        Steps steps;
        std::size_t done = 0;
        Closing closing = Closing::No;
    };

    void OnActivated(HWND dialog) override;
    void OnGoing(HWND window) override;
    void OnCall() override;
    void OnTimeUp() override;

    OpenDialog* Find(HWND window);
    void LookAtNewOnes();
    void LookAt(OpenDialog& dialog);
    void Continue();
    void Serve(OpenDialog& dialog);
    void RunNextStep(OpenDialog& dialog);
    void CloseHarder(OpenDialog& dialog);
    UINT Bound() const;

    UINT m_bound;
    std::deque<Steps> m_expected;
    std::vector<OpenDialog> m_open; ///< the innermost comes last
    ULONGLONG m_waitingSince = 0;
};
