#include "BoxAnswers.h"

#include "BoxWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace
{
thread_local int t_listening = 0;

template <class List, class Value>
bool Has(const List& list, Value value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

template <class List>
void Remove(List& list, HWND window)
{
    list.erase(std::remove(list.begin(), list.end(), window), list.end());
}
} // namespace

BoxAnswers::BoxAnswers()
{
    ++t_listening;
}

bool BoxAnswers::Listening()
{
    return t_listening != 0;
}

BoxAnswers::~BoxAnswers()
{
    --t_listening;
    for (const Expectation& missing : m_expected)
    {
        const std::string box =
            missing.any ? "a box" : Describe({.title = missing.title, .text = missing.text});
        ADD_FAILURE() << box << " was never shown";
    }
}

void BoxAnswers::Expect(std::wstring title, std::wstring text, int answer, std::function<void()> meanwhile)
{
    m_expected.push_back({std::move(title), std::move(text), answer, std::move(meanwhile)});
}

void BoxAnswers::ExpectAny(int answer, std::function<void()> meanwhile)
{
    m_expected.push_back({.answer = answer, .meanwhile = std::move(meanwhile), .any = true});
}

bool BoxAnswers::IsAsExpected(const ShownBox& box, const std::vector<int>& buttons) const
{
    if (m_expected.empty())
    {
        ADD_FAILURE() << "nobody expected " << Describe(box);
        return false;
    }
    const Expectation& next = m_expected.front();
    EXPECT_TRUE(Has(buttons, next.answer)) << Describe(box) << " has no button " << next.answer;
    const bool same = next.any || (box.title == next.title && box.text == next.text);
    EXPECT_TRUE(same) << Describe(box) << " came instead of "
                      << Describe({.title = next.title, .text = next.text});
    return same && Has(buttons, next.answer);
}

int BoxAnswers::Answer(const ShownBox& box, const std::vector<int>& buttons)
{
    m_shown.push_back(box);
    const bool expected = IsAsExpected(box, buttons);
    Expectation next{.answer = CarefulButton(buttons)};
    if (!m_expected.empty())
    {
        next = expected ? std::move(m_expected.front()) : std::move(next);
        m_expected.pop_front();
    }
    if (next.meanwhile)
        next.meanwhile();
    return next.answer;
}

void BoxAnswers::OnActivated(HWND dialog)
{
    if (Has(m_up, dialog))
        return;
    m_up.push_back(dialog);
    m_unseen.push_back(dialog);
    CallLater();
}

void BoxAnswers::OnGoing(HWND window)
{
    Remove(m_up, window);
    Remove(m_unseen, window);
}

// The box is read in a message that its own loop delivers, when all its controls exist.
void BoxAnswers::OnCall()
{
    while (!m_unseen.empty())
    {
        const HWND box = m_unseen.front();
        m_unseen.pop_front();
        if (!IsMessageBox(box))
            continue;
        const int answer = Answer(ReadBox(box), BoxButtons(box));
        if (IsWindow(box))
            PressBoxButton(box, answer);
    }
}
