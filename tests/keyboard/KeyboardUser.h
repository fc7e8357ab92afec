// A user in front of modal dialogs and message boxes who has nothing but a keyboard.
#pragma once

#include "KeyRequest.h"
#include "ModalWatch.h"
#include "Steps.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

/// Runs steps inside the modal loops of this thread: keys are typed on the real keyboard, and no step begins
/// before the sight of the last one has come true. A sight that does not come true within the bound, and a
/// dialog that is open when no step is left, fail the test with all that is shown. Everything is then closed,
/// so that no test hangs. One object at a time for each thread.
class KeyboardUser : private ModalWatch
{
public:
    /// `bound`: how long a step may take, in milliseconds.
    explicit KeyboardUser(ULONGLONG bound = 20'000) : m_bound(bound) {}
    ~KeyboardUser() override;

    /// Queues steps. Those of a box or a dialog that a step opens follow that step in the same list. Steps
    /// that a keyboard cannot do (Presses, Selects ...), and keys without a sight after them, fail the test,
    /// because it would not show whether they arrived.
    void Does(const Steps& steps);

private:
    void OnActivated(HWND dialog) override;
    void OnGoing(HWND window) override;
    void OnCall() override {}
    void OnTimeUp() override;

    void Begin();
    bool IsDone() const;
    bool IsSeen(const DialogStep& step) const;
    void NextStep();
    void Fail(const std::string& reason);
    void CloseHarder();

    const ULONGLONG m_bound;
    std::deque<DialogStep> m_steps;
    std::vector<HWND> m_open; ///< the innermost comes last
    bool m_begun = false;
    bool m_gone = false; ///< a dialog was destroyed since the step began
    bool m_failed = false;
    std::optional<KeyRequest> m_request;
    ULONGLONG m_since = 0;
    int m_closings = 0;
};
