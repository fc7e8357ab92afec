#include "BoxAnswers.h"

#ifdef _WIN32
#include "BoxHookWindows.h"
#else
#include "BoxHookNative.h"
#endif

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace
{
bool Has(const std::vector<int>& buttons, int button)
{
    return std::find(buttons.begin(), buttons.end(), button) != buttons.end();
}

// What a careful user presses who did not expect the box.
int Dismissal(const std::vector<int>& buttons)
{
    for (const int careful : {IDCANCEL, IDNO, IDABORT, IDOK})
        if (Has(buttons, careful))
            return careful;
    return buttons.empty() ? IDCANCEL : buttons.back();
}
} // namespace

BoxAnswers::BoxAnswers() : m_hook(std::make_unique<Hook>(*this)) {}

BoxAnswers::~BoxAnswers()
{
    for (const Expectation& missing : m_expected)
        ADD_FAILURE() << Describe({.title = missing.title, .text = missing.text}) << " was never shown";
}

void BoxAnswers::Expect(std::wstring title, std::wstring text, int answer, std::function<void()> meanwhile)
{
    m_expected.push_back({std::move(title), std::move(text), answer, std::move(meanwhile)});
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
    const bool same = box.title == next.title && box.text == next.text;
    EXPECT_TRUE(same) << Describe(box) << " came instead of "
                      << Describe({.title = next.title, .text = next.text});
    return same && Has(buttons, next.answer);
}

int BoxAnswers::Answer(const ShownBox& box, const std::vector<int>& buttons)
{
    m_shown.push_back(box);
    const bool expected = IsAsExpected(box, buttons);
    Expectation next{.answer = Dismissal(buttons)};
    if (!m_expected.empty())
    {
        next = expected ? std::move(m_expected.front()) : std::move(next);
        m_expected.pop_front();
    }
    if (next.meanwhile)
        next.meanwhile();
    return next.answer;
}
