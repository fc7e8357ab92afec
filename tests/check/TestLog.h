// What a GoogleTest program printed, test by test.
#pragma once

#include <string>
#include <string_view>
#include <vector>

enum class Outcome
{
    Passed,
    Skipped,
    Failed
};

struct TestResult
{
    std::string name; ///< "Suite.Test"
    Outcome outcome = Outcome::Passed;
    std::string output; ///< from the mark of its begin to that of its end
};

struct TestLog
{
    int announced = -1; ///< how many tests the program said that it runs; -1 if it said nothing
    std::vector<TestResult> results;
    std::string begun;       ///< the test in which the output ends; empty if each has an end
    std::string begunOutput; ///< what that test printed
    std::string output;      ///< what is outside of every test
    bool ended = false;      ///< the program said that it was done
};

/// Reads the output of one run. A mark may stand behind other output on its line. Marks of other tests within
/// a test belong to the output of that test.
TestLog ReadTestLog(std::string_view text);
