#include "ProgramResult.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace
{
constexpr std::size_t kMostRuns = 20;
constexpr std::uint32_t kFirstException = 0xC0000000;

const char* ExceptionName(std::uint32_t code)
{
    static const std::map<std::uint32_t, const char*> names = {
        {0xC0000005, "access violation"},       {0xC000001D, "illegal instruction"},
        {0xC00000FD, "stack overflow"},         {0xC0000135, "a library was not found"},
        {0xC0000374, "heap corruption"},        {0xC0000409, "fast fail"},
        {0xC0000139, "an entry was not found"}, {0xC0000094, "integer division by zero"}};
    const auto found = names.find(code);
    return found == names.end() ? "exception" : found->second;
}

bool AnyFailed(const TestLog& log)
{
    return std::any_of(log.results.begin(), log.results.end(),
                       [](const TestResult& result) { return result.outcome == Outcome::Failed; });
}
} // namespace

std::string EndText(const ProgramEnd& end)
{
    char text[80];
    if (end.way == ProgramEnd::Way::Silent)
        return "it printed nothing for too long and was ended";
    if (end.way == ProgramEnd::Way::NotStarted)
        std::snprintf(text, sizeof text, "it could not be started: error %u",
                      static_cast<unsigned>(end.code));
    else if (end.code >= kFirstException)
        std::snprintf(text, sizeof text, "it ended with code 0x%08X (%s)", static_cast<unsigned>(end.code),
                      ExceptionName(end.code));
    else
        std::snprintf(text, sizeof text, "it ended with exit code %u", static_cast<unsigned>(end.code));
    return text;
}

void ProgramResult::Add(const TestLog& log, const ProgramEnd& end)
{
    m_again = false;
    m_announced = std::max(m_announced, log.announced);
    for (const TestResult& result : log.results)
        Merge(result);
    if (!log.begun.empty())
        EndedWithin(log, end);
    else if (!log.ended || end.way != ProgramEnd::Way::Exited || (end.code != 0 && !AnyFailed(log)))
        EndedOutside(log, end);
}

void ProgramResult::Merge(const TestResult& result)
{
    const auto same = std::find_if(m_tests.begin(), m_tests.end(),
                                   [&](const TestResult& test) { return test.name == result.name; });
    if (same == m_tests.end())
        m_tests.push_back(result);
    else if (same->outcome != Outcome::Failed)
        *same = result;
}

void ProgramResult::EndedWithin(const TestLog& log, const ProgramEnd& end)
{
    Merge({log.begun, Outcome::Failed,
           log.begunOutput + "the program ended within this test: " + EndText(end) + "\n"});
    m_excluded.push_back(log.begun);
    m_again = m_excluded.size() < kMostRuns;
}

void ProgramResult::EndedOutside(const TestLog& log, const ProgramEnd& end)
{
    m_whole += log.output + "outside of every test: " + EndText(end) + "\n";
}

std::string ProgramResult::Filter() const
{
    std::string filter;
    for (const std::string& name : m_excluded)
        filter += (filter.empty() ? "--gtest_filter=-" : ":") + name;
    return filter;
}

std::vector<TestResult> ProgramResult::Tests() const
{
    std::vector<TestResult> tests = m_tests;
    std::string whole = m_whole;
    const int missing = m_announced - static_cast<int>(m_tests.size());
    if (missing > 0)
        whole += "tests that were not reached: " + std::to_string(missing) + "\n";
    if (!whole.empty())
        tests.push_back({kWhole, Outcome::Failed, whole});
    return tests;
}
