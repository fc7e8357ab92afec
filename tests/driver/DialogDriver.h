// Handles the modal dialogs of the calling thread, as a user in front of them would.
#pragma once

#include "DialogView.h"
#include "ModalWatch.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// What a user does with an open dialog, or looks at.
using DialogStep = std::function<void(DialogView&)>;

/// From its construction to its end, each modal dialog of this thread gets the steps that OnDialog queued for
/// it, one after another, inside its own modal loop and each only when everything is done that the step
/// before posted. A dialog that nobody expected, that stays open after its last step or that does not answer
/// within the bound fails the test with all that it shows, and is closed, so that no test ever waits; steps
/// whose dialog never came, or that was gone before they ran, fail it, too. A step that throws, or in which
/// an ASSERT fails, is the last one. Dialogs may open dialogs. Message boxes are for BoxAnswers; with none a
/// box is unexpected. One object at a time for each thread.
class DialogDriver : private ModalWatch
{
public:
    /// `bound`: how long a dialog may take, in milliseconds.
    explicit DialogDriver(UINT bound = 20'000) : m_bound(bound) {}
    ~DialogDriver() override;

    /// What the next dialog gets that comes up.
    void OnDialog(std::vector<DialogStep> steps);

    /// True if no queued dialog is left.
    bool AllShown() const { return m_expected.empty(); }

private:
    // How a dialog is made to go that does not go by itself, from the mildest to the last.
    enum class Closing
    {
        No,
        Cancelled,
        Closed
    };

    struct OpenDialog
    {
        HWND window = nullptr;
        bool looked = false; ///< it is known whether this is a box, and what to do with it
        bool box = false;
        bool unexpected = false;
        bool running = false; ///< one of its steps is under way, further out
        std::vector<DialogStep> steps;
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
    std::deque<std::vector<DialogStep>> m_expected;
    std::vector<OpenDialog> m_open; ///< the innermost comes last
    ULONGLONG m_waitingSince = 0;
};
