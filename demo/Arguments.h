// The command line of the demonstration.
#pragma once

#include <filesystem>
#include <string>

struct Arguments
{
    std::filesystem::path database; ///< empty: a plant in memory
    std::filesystem::path sample;   ///< the sample data; by default the folder "sample" beside the program
    bool sampleNamed = false;       ///< the sample data were given on the command line
    bool registerModule = false;    ///< register the module for this process first
    std::filesystem::path pictures; ///< the folder for requests of pictures; empty: none
    std::wstring dialogs;           ///< only the dialogs, in this language; empty: everything, in English
    bool help = false;
    std::wstring error; ///< what is wrong with the arguments; empty: nothing
};

/// Reads the command line of the process.
Arguments ReadArguments();

/// The usage text.
std::wstring UsageText();
