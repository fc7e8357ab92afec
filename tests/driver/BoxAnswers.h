// Answers the message boxes of the calling thread, as a user in front of it would.
#pragma once

#include "ModalWatch.h"
#include "ShownBox.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// From its construction to its end, each message box of this thread is answered by the next expectation,
/// within the box's own modal loop. A box that nobody expected, or with another title or text or without the
/// wanted button, fails the test and is dismissed, so that no test ever waits; an expectation whose box never
/// came fails it at the end. One object at a time for each thread.
class BoxAnswers : private ModalWatch
{
public:
    BoxAnswers();
    ~BoxAnswers() override;

    /// The next box has this title and text and is answered with the button `answer` (IDOK, IDYES ...).
    /// `meanwhile`, if there is one, runs while the box is up.
    void Expect(std::wstring title, std::wstring text, int answer, std::function<void()> meanwhile = {});

    /// The next box, whatever it says, is answered so. For a user who reads another language.
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
        bool any = false; ///< title and text are of no matter
    };

    void OnActivated(HWND dialog) override;
    void OnGoing(HWND window) override;
    void OnCall() override;
    int Answer(const ShownBox& box, const std::vector<int>& buttons);
    bool IsAsExpected(const ShownBox& box, const std::vector<int>& buttons) const;

    std::deque<Expectation> m_expected;
    std::vector<ShownBox> m_shown;
    std::vector<HWND> m_up;    ///< dialogs that came up: each is activated again when its owner was
    std::deque<HWND> m_unseen; ///< those of them that were not looked at yet
};
