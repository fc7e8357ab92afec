#include "Lines.h"

namespace
{
constexpr const char* kBlanks = " \t\r";

std::string Trimmed(std::string_view text)
{
    const std::size_t from = text.find_first_not_of(kBlanks);
    if (from == text.npos)
        return {};
    return std::string(text.substr(from, text.find_last_not_of(kBlanks) + 1 - from));
}
} // namespace

std::vector<std::string> Columns(std::string_view line, char separator)
{
    std::vector<std::string> columns;
    for (;;)
    {
        const std::size_t end = line.find(separator);
        columns.push_back(Trimmed(line.substr(0, end)));
        if (end == line.npos)
            return columns;
        line.remove_prefix(end + 1);
    }
}

std::vector<std::string> ContentLines(std::string_view text)
{
    std::vector<std::string> lines;
    for (const std::string& line : Columns(text, '\n'))
        if (!line.empty() && line.front() != '#')
            lines.push_back(line);
    return lines;
}
