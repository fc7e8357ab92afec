#include "Report.h"

#include <algorithm>
#include <cstdio>

namespace
{
std::string Headed(const std::string& title, const std::string& content)
{
    return "\n" + title + "\n" + std::string(title.size(), '-') + "\n" +
           (content.empty() ? "none\n" : content);
}

std::string Padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size() + 1, width), ' ');
    return text;
}

std::string Indented(const std::string& text)
{
    std::string indented;
    bool begins = true;
    for (const char character : text)
    {
        if (begins && character != '\n')
            indented += "    ";
        indented += character;
        begins = character == '\n';
    }
    return indented;
}

bool IsKnown(const std::vector<KnownDifference>& known, const std::string& name)
{
    return std::any_of(known.begin(), known.end(), [&](const KnownDifference& difference) {
        return MatchesPattern(difference.pattern, name);
    });
}

/// What a test that was skipped says of it.
std::string SkipReason(const TestResult& test)
{
    const std::size_t from = test.output.find("Skipped\n");
    if (from == std::string::npos)
        return "skipped by itself";
    const std::size_t start = from + 8;
    return test.output.substr(start, test.output.find('\n', start) - start);
}
} // namespace

Report::Report(CheckResult result, const KnownDifferences& known)
    : m_result(std::move(result)), m_known(known.On(m_result.machine.conditions))
{
    for (const ProgramResult& program : m_result.programs)
        Sort(program);
}

void Report::Sort(const ProgramResult& program)
{
    for (const TestResult& test : program.Tests())
    {
        const std::string name = program.Name() + "." + test.name;
        m_tests += test.name != ProgramResult::kWhole;
        if (test.outcome == Outcome::Skipped)
            m_skipped.emplace_back(name, SkipReason(test));
        else if (test.outcome == Outcome::Passed)
            ++m_passed;
        else
            m_failures.push_back({name, test.output, ReasonOf(name)});
    }
}

std::string Report::ReasonOf(const std::string& name)
{
    std::string reason;
    for (const KnownDifference& difference : m_known)
        if (MatchesPattern(difference.pattern, name))
        {
            m_occurred.insert(difference.pattern);
            reason = difference.reason;
        }
    m_expected += !reason.empty();
    return reason;
}

int Report::News() const
{
    return static_cast<int>(m_failures.size()) - m_expected +
           static_cast<int>(m_result.pictures.failures.size());
}

std::string Report::Text() const
{
    const std::string title = "qptools " + m_result.version + ": the tests on this machine";
    return title + "\n" + std::string(title.size(), '=') + "\n\n" + Summary() + NewsPart() + ExpectedPart() +
           NotOccurredPart() + SkippedPart() + PairsPart("Left out of the kit", m_result.leftOut) +
           PairsPart("This machine", m_result.machine.lines) + OutputPart();
}

std::string Report::Summary() const
{
    const int failed = static_cast<int>(m_failures.size());
    const int news = News();
    std::string text = news == 0 ? "No news: everything is as expected.\n\n"
                       : news == 1
                           ? "NEWS: one failure that was not expected.\n\n"
                           : "NEWS: " + std::to_string(news) + " failures that were not expected.\n\n";
    const std::pair<const char*, int> counts[] = {{"programs", static_cast<int>(m_result.programs.size())},
                                                  {"tests", m_tests},
                                                  {"passed", m_passed},
                                                  {"skipped", static_cast<int>(m_skipped.size())},
                                                  {"failed as expected", m_expected},
                                                  {"failed, not expected", failed - m_expected}};
    for (const auto& [name, count] : counts)
        text += Padded(name, 24) + std::to_string(count) + "\n";
    return text + Padded("pictures", 24) + PictureLine() + "\n";
}

std::string Report::PictureLine() const
{
    const PictureResult& pictures = m_result.pictures;
    if (!pictures.wanted)
        return "not asked for";
    if (!pictures.impossible.empty())
        return "none: " + pictures.impossible;
    return std::to_string(pictures.taken) + " taken, of " + std::to_string(pictures.wine) +
           " under Wine; see pictures.html";
}

std::string Report::NewsPart() const
{
    std::string names;
    for (const Failure& failure : m_failures)
        if (failure.reason.empty())
            names += failure.name + "\n";
    for (const std::string& failure : m_result.pictures.failures)
        names += "pictures: " + failure + "\n";
    return Headed("News: failures that were not expected", names);
}

std::string Report::ExpectedPart() const
{
    std::string lines;
    for (const Failure& failure : m_failures)
        if (!failure.reason.empty())
            lines += failure.name + "\n    " + failure.reason + "\n";
    return Headed("Expected differences that occurred", lines);
}

std::string Report::NotOccurredPart() const
{
    std::string lines;
    for (const KnownDifference& difference : m_known)
        if (!m_occurred.count(difference.pattern))
            lines += difference.pattern + "\n    " + difference.reason + "\n";
    return Headed("Expected differences that did not occur", lines);
}

std::string Report::PairsPart(const char* title,
                              const std::vector<std::pair<std::string, std::string>>& pairs) const
{
    std::string lines;
    for (const auto& [name, text] : pairs)
        lines += Padded(name, 24) + text + "\n";
    return Headed(title, lines);
}

std::string Report::SkippedPart() const
{
    std::string lines;
    for (const auto& [name, reason] : m_skipped)
        lines += name + "\n    " + reason + "\n";
    return Headed("Tests that skip themselves here", lines);
}

std::string Report::OutputPart() const
{
    std::string text;
    for (const Failure& failure : m_failures)
        text += (text.empty() ? "" : "\n") + failure.name + (failure.reason.empty() ? "" : " (expected)") +
                "\n" + Indented(failure.output);
    return Headed("Output of the failures", text);
}

std::string ProgressLine(std::size_t number, std::size_t count, const ProgramResult& program,
                         const std::vector<KnownDifference>& known)
{
    std::size_t tests = 0;
    int failed = 0;
    int expected = 0;
    for (const TestResult& test : program.Tests())
    {
        tests += test.name != ProgramResult::kWhole;
        failed += test.outcome == Outcome::Failed;
        expected += test.outcome == Outcome::Failed && IsKnown(known, program.Name() + "." + test.name);
    }
    char text[200];
    std::snprintf(text, sizeof text, "%3zu of %zu  %-32s%4zu tests, ", number, count, program.Name().c_str(),
                  tests);
    if (failed == 0)
        return text + std::string("all passed");
    return text + std::to_string(failed) + " failed" +
           (expected == 0        ? ""
            : expected == failed ? ", as expected"
                                 : ", " + std::to_string(expected) + " of them as expected");
}
