#include "TestLog.h"

#include <cstdlib>
#include <utility>

namespace
{
constexpr std::string_view kFrame = "[==========] Running ";
constexpr std::string_view kBegin = "[ RUN      ] ";
constexpr std::string_view kPassed = "[       OK ] ";
constexpr std::string_view kSkipped = "[  SKIPPED ] ";
constexpr std::string_view kFailed = "[  FAILED  ] ";
constexpr std::string_view kEnd = " ran. (";

class LogReader
{
public:
    void Line(std::string_view line);
    TestLog Finish();

private:
    void OutsideOfTests(std::string_view line);
    void End(Outcome outcome);
    bool EndsWith(std::string_view line, std::string_view mark, std::string_view behind) const;

    TestLog m_log;
    std::string m_name;
    std::string m_output;
};

void LogReader::Line(std::string_view line)
{
    if (const std::size_t at = line.find(kBegin); m_name.empty() && at != line.npos)
    {
        m_name = line.substr(at + kBegin.size());
        m_output.clear();
    }
    if (m_name.empty())
        return OutsideOfTests(line);
    m_output.append(line) += '\n';
    if (EndsWith(line, kPassed, " ("))
        End(Outcome::Passed);
    else if (EndsWith(line, kSkipped, " ("))
        End(Outcome::Skipped);
    else if (EndsWith(line, kFailed, " (") || EndsWith(line, kFailed, ", where "))
        End(Outcome::Failed);
}

void LogReader::OutsideOfTests(std::string_view line)
{
    if (line.substr(0, kFrame.size()) == kFrame)
        m_log.announced = std::atoi(std::string(line.substr(kFrame.size())).c_str());
    else if (line.substr(0, 13) == "[==========] " && line.find(kEnd) != line.npos)
        m_log.ended = true;
    m_log.output.append(line) += '\n';
}

bool LogReader::EndsWith(std::string_view line, std::string_view mark, std::string_view behind) const
{
    return line.find(std::string(mark) + m_name + std::string(behind)) != line.npos;
}

void LogReader::End(Outcome outcome)
{
    m_log.results.push_back({m_name, outcome, m_output});
    m_name.clear();
}

TestLog LogReader::Finish()
{
    m_log.begun = m_name;
    if (!m_name.empty())
        m_log.begunOutput = m_output;
    return std::move(m_log);
}
} // namespace

TestLog ReadTestLog(std::string_view text)
{
    LogReader reader;
    while (!text.empty())
    {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        reader.Line(line);
    }
    return reader.Finish();
}
