// A program that runs beside the test.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// Starts the program of that name from the test's own folder.
class OtherProcess
{
public:
    OtherProcess(const std::string& program, const std::vector<std::filesystem::path>& arguments);

    /// Waits for the end. Returns the exit code, -1 if the program could not be started.
    int Wait();

private:
    std::intptr_t m_process = 0;
};
