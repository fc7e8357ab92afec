// All that happens in a scenario, compared with a file of traces.
#pragma once

#include <string>
#include <vector>

/// The host calls, boxes, results and reports of one test, line by line. A traces file holds those of every
/// test of a program: a call that is added, removed or reordered fails the test in which it happens, in both
/// builds.
///
/// With QP_WRITE_TRACES set to a file, Check appends the lines to that file and compares nothing.
class Story
{
public:
    /// Adds host calls and boxes as recorded. Consecutive calls of one method become one line.
    void Tell(const std::vector<std::string>& calls);
    void Tell(const std::string& line);

    /// Fails the running test if the file `file` in the folder "traces" beside the program has other lines
    /// for it, or none.
    void Check(const char* file) const;

private:
    std::vector<std::string> m_lines;
};
