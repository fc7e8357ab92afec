// What the module reports while a test runs.
#pragma once

#include "LogFolder.h"

#include <sstream>
#include <string>
#include <vector>

class LogBook
{
public:
    /// The entries so far, each from its kind to its text with a tab between the fields.
    std::vector<std::string> Entries() const
    {
        std::vector<std::string> entries;
        std::istringstream lines(m_folder.Bytes("logbook.log"));
        for (std::string line; std::getline(lines, line);)
            entries.push_back(line.substr(line.find('\t') + 1));
        return entries;
    }

    /// The entry of a failed host call as this module's choosers report it.
    static std::string HostCall(const std::string& status, int line, const std::string& text)
    {
        return "host call\tQPTools\t-\t" + std::to_string(line) + "\t" + status + "\ttrue,false\t" + text;
    }

private:
    LogFolder m_folder;
};

using Entries = std::vector<std::string>;
