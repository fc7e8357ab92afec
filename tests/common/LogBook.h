// What the module reports in its log book while a test runs.
#pragma once

#include "LogFolder.h"

#include <sstream>
#include <string>
#include <vector>

class LogBook
{
public:
    /// The entries so far without their times: kind to text, separated by tabs.
    std::vector<std::string> Entries() const
    {
        std::vector<std::string> entries;
        std::istringstream lines(m_folder.Book());
        for (std::string line; std::getline(lines, line);)
            entries.push_back(line.substr(line.find('\t') + 1));
        return entries;
    }

    /// The entry of a failed host call as the module's dialogs report it.
    static std::string HostCall(const std::string& status, int line, const std::string& text)
    {
        return "host call\tQPTools\t-\t" + std::to_string(line) + "\t" + status + "\ttrue,false\t" + text;
    }

private:
    LogFolder m_folder;
};

using Entries = std::vector<std::string>;
