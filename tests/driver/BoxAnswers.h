// Answers the message boxes of the calling thread.
#pragma once

#include "ModalWatch.h"
#include "ShownBox.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// While it lives, each message box of this thread is answered by the next expectation, inside the box's own
/// modal loop. A box that was not expected, or has another title or text or lacks the button, fails the test
/// and is dismissed, so that no test hangs; the destructor fails it for each box that was never shown. One
/// object at a time for each thread.
class BoxAnswers : private ModalWatch
{
public:
    BoxAnswers();
    ~BoxAnswers() override;

    /// The next box has this title and text and is answered by the button `answer` (IDOK, IDYES ...).
    /// `meanwhile`, if given, runs while the box is shown.
    void Expect(std::wstring title, std::wstring text, int answer, std::function<void()> meanwhile = {});

    /// The next box is answered whatever its texts are. For tests of another language.
    void ExpectAny(int answer, std::function<void()> meanwhile = {});

    /// True if no expectation is left.
    bool AllShown() const { return m_expected.empty(); }

    /// The boxes shown so far, expected or not.
    const std::vector<ShownBox>& Shown() const { return m_shown; }

    /// True while an object answers the boxes of this thread.
    static bool Listening();

private:
    struct Expectation
    {
        std::wstring title;
        std::wstring text;
        int answer;
        std::function<void()> meanwhile;
        bool any = false; ///< title and text are not compared
    };

    void OnActivated(HWND dialog) override;
    void OnGoing(HWND window) override;
    void OnCall() override;
    int Answer(const ShownBox& box, const std::vector<int>& buttons);
    bool IsAsExpected(const ShownBox& box, const std::vector<int>& buttons) const;

    std::deque<Expectation> m_expected;
    std::vector<ShownBox> m_shown;
    std::vector<HWND> m_up;    ///< open dialogs: each is activated again when its owner was
    std::deque<HWND> m_unseen; ///< those not read yet
};
