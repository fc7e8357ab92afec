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

int SelectedRow(const DialogView& view)
{
    return IsMessageBox(view.Window()) ? -1 : view.SelectedRow(view.List());
}
} // namespace

Sight FocusOn(int control)
{
    return {"the keyboard belongs to " + std::to_string(control), [control](const DialogView& view) {
                return view.Focus() == control;
            }};
}

Sight RowSelected(int row)
{
    return {"row " + std::to_string(row) + " is selected", [row](const DialogView& view) {
                return SelectedRow(view) == row;
            }};
}

Sight Selected(const std::wstring& text)
{
    return {"\"" + Utf8Text(text) + "\" is selected", [text](const DialogView& view) {
                const int row = SelectedRow(view);
                return row >= 0 && view.Cell(view.List(), row, 0) == text;
            }};
}

Sight Box(const std::wstring& title)
{
    return {"the box \"" + Utf8Text(title) + "\" is in front", [title](const DialogView& view) {
                return IsMessageBox(view.Window()) && view.Title() == title;
            }};
}

KeyboardUser::~KeyboardUser()
{
    EXPECT_TRUE(m_steps.empty()) << "no dialog was there for \"" << m_steps.front().keys << "\" and until "
                                 << m_steps.front().sight.words;
}

KeyboardUser& KeyboardUser::Sees(Sight sight)
{
    m_steps.push_back({{}, std::move(sight)});
    return *this;
}

KeyboardUser& KeyboardUser::Types(const std::string& keys, Sight sight)
{
    m_steps.push_back({keys, std::move(sight)});
    return *this;
}

KeyboardUser& KeyboardUser::Ends(const std::string& keys)
{
    m_steps.push_back({keys, {"the dialog is gone", {}}, true});
    return *this;
}

KeyboardUser& KeyboardUser::GoesRound(const std::vector<int>& controls)
{
    Sees(FocusOn(controls.front()));
    for (std::size_t next = 1; next <= controls.size(); ++next)
        Types("Tab", FocusOn(controls[next % controls.size()]));
    for (std::size_t left = controls.size(); left > 0; --left)
        Types("shift+Tab", FocusOn(controls[left - 1]));
    return *this;
}

KeyboardUser& KeyboardUser::Notes(std::function<void(const DialogView&)> note)
{
    return Sees({"noted", [note = std::move(note)](const DialogView& view) {
                     note(view);
                     return true;
                 }});
}

// Steps of an outer dialog go on when those of an inner one are done and it is gone.
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
    const Step& step = m_steps.front();
    m_begun = true;
    m_gone = false;
    m_since = GetTickCount64();
    if (step.keys.empty())
        return;
    if (!step.ends && step.sight.isSeen(DialogView(m_open.back())))
        Fail("this was to be seen before the keys were typed");
    else
        m_request.emplace(m_open.back(), step.keys);
}

// A dialog may be gone before the key that ended it is let go.
bool KeyboardUser::IsDone() const
{
    const Step& step = m_steps.front();
    if (step.ends)
        return m_gone;
    return (!m_request || m_request->IsAnswered()) && !m_open.empty() &&
           step.sight.isSeen(DialogView(m_open.back()));
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
    const Step step = m_steps.empty() ? Step{} : m_steps.front();
    ADD_FAILURE() << "keys \"" << step.keys << "\", until " << step.sight.words << ": " << reason << "\n"
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
