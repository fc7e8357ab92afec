// What the demonstration was asked to do.
#pragma once

#include <filesystem>
#include <string>

struct Arguments
{
    std::filesystem::path database; ///< empty: a plant in memory
    std::filesystem::path sample;   ///< the sample data; the folder "sample" beside the program unless named
    bool sampleNamed = false;       ///< the sample data were named
    bool registerModule = false;    ///< register the module for this process before it is used
    std::filesystem::path pictures; ///< where pictures are asked for; empty: nowhere
    std::wstring dialogs; ///< show the dialogs alone, in this language; empty: everything, in English
    bool help = false;
    std::wstring error; ///< what is wrong with the arguments, if anything is
};

/// Reads the command line of the process.
Arguments ReadArguments();

/// How the program is called.
std::wstring UsageText();
