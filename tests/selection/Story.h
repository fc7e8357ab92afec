// All that happens in a scenario, compared with what is written down for it.
#pragma once

#include <string>
#include <vector>

/// The host calls, boxes, results and reports of one test, line by line. traces.txt has those of every test,
/// so that a call that comes, goes or changes its place is seen wherever it happens, and in both builds
/// alike.
///
/// With QP_WRITE_TRACES set to a file, Check adds what happened to that file and compares nothing.
class Story
{
public:
    /// Host calls and boxes as they were recorded. Calls of one method that follow each other become one
    /// line.
    void Tell(const std::vector<std::string>& calls);
    void Tell(const std::string& line);

    /// Fails the running test if `file`, traces.txt, has something else for it, or nothing.
    void Check(const char* file) const;

private:
    std::vector<std::string> m_lines;
};
