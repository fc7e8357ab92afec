// The failures of a piece of a test, instead of failing the test.
#pragma once

#include <functional>
#include <string>
#include <vector>

std::vector<std::string> CaughtFailures(const std::function<void()>& piece);
