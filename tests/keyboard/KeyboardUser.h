// A user in front of modal dialogs and message boxes who has nothing but a keyboard.
#pragma once

#include "DialogView.h"
#include "KeyRequest.h"
#include "ModalWatch.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Something that a user sees, in words for a test's message.
struct Sight
{
    std::string words;
    std::function<bool(const DialogView&)> isSeen;
};

Sight FocusOn(int control);
Sight RowSelected(int row);
/// The selected row shows this in its first column.
Sight Selected(const std::wstring& text);
/// A message box is in front.
Sight Box(const std::wstring& title);

/// From its construction to its end, what is queued is done inside the modal loops of this thread: keys are
/// typed on the real keyboard, and the next ones not before it is seen what came of them. What does not come
/// within the bound, and a dialog that stays when nothing is left to do, fails the test with all that is
/// shown; everything is closed then, so that no test ever waits. One object at a time for each thread.
class KeyboardUser : private ModalWatch
{
public:
    /// `bound`: how long anything may take, in milliseconds.
    explicit KeyboardUser(ULONGLONG bound = 20'000) : m_bound(bound) {}
    ~KeyboardUser() override;

    /// Waits until this is seen in the dialog in front.
    KeyboardUser& Sees(Sight sight);

    /// Types keys (see KeyRequest) and waits until this is seen. It fails the test if it is seen before,
    /// since nobody could tell then that the keys arrived.
    KeyboardUser& Types(const std::string& keys, Sight sight);

    /// Types keys and waits until the dialog in front is gone.
    KeyboardUser& Ends(const std::string& keys);

    /// Tab leads through these controls and back to the first, which has the keyboard at the beginning, and
    /// Shift+Tab the same way back.
    KeyboardUser& GoesRound(const std::vector<int>& controls);

    /// Calls this when everything before is done.
    KeyboardUser& Notes(std::function<void(const DialogView&)> note);

private:
    struct Step
    {
        std::string keys;
        Sight sight;
        bool ends = false;
    };

    void OnActivated(HWND dialog) override;
    void OnGoing(HWND window) override;
    void OnCall() override {}
    void OnTimeUp() override;

    void Begin();
    bool IsDone() const;
    void NextStep();
    void Fail(const std::string& reason);
    void CloseHarder();

    const ULONGLONG m_bound;
    std::deque<Step> m_steps;
    std::vector<HWND> m_open; ///< the innermost comes last
    bool m_begun = false;
    bool m_gone = false; ///< the dialog that the step is about
    bool m_failed = false;
    std::optional<KeyRequest> m_request;
    ULONGLONG m_since = 0;
    int m_closings = 0;
};
