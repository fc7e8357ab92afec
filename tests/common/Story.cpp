#include "Story.h"

#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>

namespace
{
constexpr std::size_t kLongest = 240;
constexpr char kIndent[] = "    ";

using Lines = std::vector<std::string>;

std::string NameOfRunningTest()
{
    const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
    return std::string(test->test_suite_name()) + "." + test->name();
}

/// On one line, and short enough to read.
std::string Shortened(std::string line)
{
    for (char& character : line)
        if (character == '\n' || character == '\t')
            character = '|';
    if (line.size() > kLongest)
        line = line.substr(0, kLongest) + " ... of " + std::to_string(line.size());
    return line;
}

/// The text before the arguments of a call.
std::string MethodOf(const std::string& call)
{
    return call.substr(0, call.find('('));
}

/// The lines under each test's name.
std::map<std::string, Lines> ReadTraces(const char* name)
{
    std::map<std::string, Lines> traces;
    std::ifstream file(BesideProgram("traces") / name, std::ios::binary);
    EXPECT_TRUE(file) << name << " cannot be read";
    Lines* lines = nullptr;
    for (std::string line; std::getline(file, line);)
        if (line.rfind(kIndent, 0) == 0 && lines)
            lines->push_back(line.substr(sizeof(kIndent) - 1));
        else
            lines = &traces[line];
    return traces;
}
} // namespace

void Story::Tell(const std::vector<std::string>& calls)
{
    std::string method;
    std::string line;
    for (const std::string& call : calls)
    {
        const bool isCall = call.back() == ')' && call.rfind("box ", 0) != 0;
        if (isCall && MethodOf(call) == method)
        {
            line += " " + call.substr(method.size());
            continue;
        }
        if (!line.empty())
            Tell(line);
        line = call;
        method = isCall ? MethodOf(call) : std::string();
    }
    if (!line.empty())
        Tell(line);
}

void Story::Tell(const std::string& line)
{
    m_lines.push_back(Shortened(line));
}

void Story::Check(const char* file) const
{
    const std::string name = NameOfRunningTest();
    if (const char* written = std::getenv("QP_WRITE_TRACES"))
    {
        std::ofstream stream(written, std::ios::binary | std::ios::app);
        stream << name << "\n";
        for (const std::string& line : m_lines)
            stream << kIndent << line << "\n";
        return;
    }
    static const std::map<std::string, Lines> traces = ReadTraces(file);
    const auto written = traces.find(name);
    if (written == traces.end())
        ADD_FAILURE() << file << " has no " << name;
    else
        EXPECT_EQ(m_lines, written->second);
}
