// Runs something again and again with another allocation failing each time.
#pragma once

#include <gtest/gtest.h>

#include <string>

/// Fails every allocation in turn, of which there are `least` or more: `run(n)` fails the n-th one and
/// returns a result whose `struck` tells whether there was one, which `check` then judges. Ends at the first
/// failure of the test.
template <class Run, class Check>
void FailEachAllocation(long least, const Run& run, const Check& check)
{
    long n = 1;
    for (; !testing::Test::HasFailure(); ++n)
    {
        SCOPED_TRACE("allocation " + std::to_string(n));
        const auto result = run(n);
        if (!result.struck)
            break;
        check(result);
    }
    EXPECT_GT(n, least) << "hardly an allocation was found";
}
