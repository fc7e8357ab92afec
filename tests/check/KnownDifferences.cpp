#include "KnownDifferences.h"

#include "Lines.h"

#include <stdexcept>

namespace
{
bool IsCondition(std::string_view word)
{
    return word == "windows" || word == "wine" || word == "session" || word == "elevated";
}
} // namespace

KnownDifferences KnownDifferences::Read(std::string_view text)
{
    KnownDifferences read;
    for (const std::string& line : ContentLines(text))
    {
        const std::vector<std::string> columns = Columns(line, '|');
        if (columns.size() != 3 || columns[0].empty() || columns[2].empty() || !IsCondition(columns[1]))
            throw std::runtime_error("known differences: not understood: " + line);
        read.m_all.push_back({columns[0], columns[1], columns[2]});
    }
    return read;
}

std::vector<KnownDifference> KnownDifferences::On(const std::set<std::string>& conditions) const
{
    std::vector<KnownDifference> applicable;
    for (const KnownDifference& difference : m_all)
        if (conditions.count(difference.when))
            applicable.push_back(difference);
    return applicable;
}

bool MatchesPattern(std::string_view pattern, std::string_view name)
{
    if (pattern.empty())
        return name.empty();
    if (pattern.front() == '*')
        return MatchesPattern(pattern.substr(1), name) ||
               (!name.empty() && MatchesPattern(pattern, name.substr(1)));
    return !name.empty() && pattern.front() == name.front() &&
           MatchesPattern(pattern.substr(1), name.substr(1));
}
