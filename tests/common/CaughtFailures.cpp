#include "CaughtFailures.h"

#include <gtest/gtest-spi.h>

std::vector<std::string> CaughtFailures(const std::function<void()>& piece)
{
    testing::TestPartResultArray results;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        piece();
    }
    std::vector<std::string> failures;
    for (int index = 0; index < results.size(); ++index)
        if (results.GetTestPartResult(index).failed())
            failures.emplace_back(results.GetTestPartResult(index).message());
    return failures;
}
