// A record of calls, one line per call, as the hosts of the tests keep it.
#pragma once

#include <string>
#include <vector>

using Calls = std::vector<std::string>;

inline Calls operator+(Calls first, const Calls& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}
