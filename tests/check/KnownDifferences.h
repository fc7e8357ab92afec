// Tests that are known to fail on some machines, and why.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

struct KnownDifference
{
    std::string pattern; ///< "program.Suite.Test"; * stands for any characters
    std::string when;    ///< the condition of the machine under which it applies
    std::string reason;
};

class KnownDifferences
{
public:
    /// Reads lines "PATTERN | WHEN | REASON". WHEN is windows, wine, session (the user's language or regional
    /// format is not American English) or elevated. Throws std::runtime_error, with the line, for another
    /// form.
    static KnownDifferences Read(std::string_view text);

    /// Those whose condition the machine fulfils.
    std::vector<KnownDifference> On(const std::set<std::string>& conditions) const;

private:
    std::vector<KnownDifference> m_all;
};

/// True if the pattern, in which * stands for any characters, is the whole name.
bool MatchesPattern(std::string_view pattern, std::string_view name);
