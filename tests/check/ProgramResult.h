// The results of one test program, from as many runs as it needs.
#pragma once

#include "TestLog.h"

#include <cstdint>
#include <string>
#include <vector>

/// How a run of a program ended.
struct ProgramEnd
{
    enum class Way
    {
        Exited,
        Silent,    ///< it was ended after it had printed nothing for too long
        NotStarted ///< `code` is the system's error
    };
    Way way = Way::Exited;
    std::uint32_t code = 0;
};

/// A program that ends within a test costs that test alone: the program is run again without it. What a test
/// did in any run counts: a failure remains.
class ProgramResult
{
public:
    explicit ProgramResult(std::string name) : m_name(std::move(name)) {}

    /// Takes over what a run printed and how it ended.
    void Add(const TestLog& log, const ProgramEnd& end);

    /// True if tests behind one that ended the program have not been reached. `Filter` is then the argument
    /// of the next run.
    bool NeedsAnotherRun() const { return m_again; }
    std::string Filter() const;

    const std::string& Name() const { return m_name; }

    /// The tests in the order of their first run, named "Suite.Test". A failure of the program as a whole,
    /// such as tests that it did not reach, is the last one, with the name kWhole.
    std::vector<TestResult> Tests() const;
    static constexpr const char* kWhole = "(program)";

private:
    void Merge(const TestResult& result);
    void EndedWithin(const TestLog& log, const ProgramEnd& end);
    void EndedOutside(const TestLog& log, const ProgramEnd& end);

    std::string m_name;
    int m_announced = -1;
    std::vector<TestResult> m_tests;
    std::vector<std::string> m_excluded;
    std::string m_whole; ///< what failed apart from tests
    bool m_again = false;
};

/// "exit code 3", "code 0xC0000005 (access violation)".
std::string EndText(const ProgramEnd& end);
