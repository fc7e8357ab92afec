// The report of a run of the kit.
#pragma once

#include "KnownDifferences.h"
#include "ProgramResult.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

/// A machine as the report describes it.
struct MachineFacts
{
    std::vector<std::pair<std::string, std::string>> lines; ///< "Windows", "10.0 build 19045"
    std::set<std::string> conditions;                       ///< see KnownDifferences
};

struct PictureResult
{
    bool wanted = true;
    std::string impossible; ///< why no picture can be taken on this machine; empty if it can
    int taken = 0;
    int wine = 0;                      ///< pictures taken under Wine
    std::vector<std::string> failures; ///< each a sentence
};

struct CheckResult
{
    std::string version;
    MachineFacts machine;
    std::vector<ProgramResult> programs;
    std::vector<std::pair<std::string, std::string>> leftOut; ///< names and reasons
    PictureResult pictures;
};

/// The results of all programs, sorted into news and expected differences.
class Report
{
public:
    Report(CheckResult result, const KnownDifferences& known);

    /// The number of failures that were not expected.
    int News() const;

    /// UTF-8, lines end in LF.
    std::string Text() const;

private:
    struct Failure
    {
        std::string name; ///< "program.Suite.Test"
        std::string output;
        std::string reason; ///< why it was expected; empty for news
    };

    void Sort(const ProgramResult& program);
    std::string ReasonOf(const std::string& name);

    std::string Summary() const;
    std::string PictureLine() const;
    std::string NewsPart() const;
    std::string ExpectedPart() const;
    std::string NotOccurredPart() const;
    std::string PairsPart(const char* title,
                          const std::vector<std::pair<std::string, std::string>>& pairs) const;
    std::string SkippedPart() const;
    std::string OutputPart() const;

    CheckResult m_result;
    std::vector<KnownDifference> m_known;
    std::set<std::string> m_occurred; ///< patterns
    std::vector<Failure> m_failures;
    std::vector<std::pair<std::string, std::string>> m_skipped;
    int m_tests = 0;
    int m_passed = 0;
    int m_expected = 0;
};

/// "12 of 70  copy_dialog_tests                 63 tests, all passed". `known` are the differences that may
/// occur here.
std::string ProgressLine(std::size_t number, std::size_t count, const ProgramResult& program,
                         const std::vector<KnownDifference>& known);
