#include "KeyboardUser.h"

#include "BoxWindow.h"
#include "WindowTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace
{
constexpr UINT kBetweenLooks = 20; // milliseconds
constexpr ULONGLONG kBetweenClosings = 1'000;

std::string Describe(const DialogStep& step)
{
    const std::string until = step.Ends()   ? "the dialog is gone"
                              : step.Seen() ? step.Seen()->words
                                            : "it is noted";
    return "keys \"" + step.Keys() + "\", until " + until;
}
} // namespace

KeyboardUser::~KeyboardUser()
{
    EXPECT_TRUE(m_steps.empty()) << "no dialog was there for " << Describe(m_steps.front());
}

void KeyboardUser::Does(const Steps& steps)
{
    for (const DialogStep& step : steps)
    {
        if (step.IsByMouse() || (!step.Keys().empty() && !step.Ends() && !step.Seen()))
            ADD_FAILURE() << "not for a keyboard: " << step.Words();
        else
            m_steps.push_back(step);
    }
}

// Steps of an outer dialog continue when those of an inner one are done and it is destroyed.
void KeyboardUser::OnActivated(HWND dialog)
{
    if (std::find(m_open.begin(), m_open.end(), dialog) != m_open.end())
        return;
    m_open.push_back(dialog);
    m_since = GetTickCount64();
    SetBound(kBetweenLooks);
}

void KeyboardUser::OnGoing(HWND window)
{
    const auto found = std::find(m_open.begin(), m_open.end(), window);
    if (found == m_open.end())
        return;
    m_open.erase(found);
    m_gone = true;
    if (m_begun && IsDone())
        NextStep();
    if (m_open.empty())
        SetBound(0);
}

void KeyboardUser::OnTimeUp()
{
    if (m_open.empty())
        return;
    SetBound(kBetweenLooks);
    if (m_failed)
        CloseHarder();
    else if (!m_steps.empty() && !m_begun)
        Begin();
    else if (!m_steps.empty() && IsDone())
        NextStep();
    else if (GetTickCount64() - m_since > m_bound)
        Fail(m_steps.empty()                         ? "there was nothing left to do"
             : m_request && !m_request->IsAnswered() ? "the window never got the keyboard"
                                                     : "it did not come to this");
}

void KeyboardUser::Begin()
{
    const DialogStep& step = m_steps.front();
    m_begun = true;
    m_gone = false;
    m_since = GetTickCount64();
    if (step.Keys().empty())
        return;
    if (!step.Ends() && IsSeen(step))
        Fail("this was to be seen before the keys were typed");
    else
        m_request.emplace(m_open.back(), step.Keys());
}

// A dialog may be destroyed before the key that ended it is released.
bool KeyboardUser::IsDone() const
{
    const DialogStep& step = m_steps.front();
    if (step.Ends())
        return m_gone;
    return (!m_request || m_request->IsAnswered()) && !m_open.empty() && IsSeen(step);
}

// A step of a test's own is done by being run.
bool KeyboardUser::IsSeen(const DialogStep& step) const
{
    DialogView view(m_open.back());
    if (step.Seen())
        return step.Seen()->isSeen(view);
    step.Do(view);
    return true;
}

void KeyboardUser::NextStep()
{
    m_steps.pop_front();
    m_request.reset();
    m_begun = false;
    m_since = GetTickCount64();
}

void KeyboardUser::Fail(const std::string& reason)
{
    ADD_FAILURE() << (m_steps.empty() ? "" : Describe(m_steps.front()) + ": ") << reason << "\n"
                  << DialogView(m_open.back()).Dump();
    m_failed = true;
    m_begun = false;
    m_request.reset();
    m_steps.clear();
    m_since = 0;
}

// Cancelled first, then destroyed, which no loop survives.
void KeyboardUser::CloseHarder()
{
    if (GetTickCount64() - m_since < kBetweenClosings)
        return;
    m_since = GetTickCount64();
    const HWND window = m_open.back();
    if (m_closings++ > 0)
        DestroyWindow(window);
    else
        PressBoxButton(window, IsMessageBox(window) ? CarefulButton(BoxButtons(window)) : IDCANCEL);
}
