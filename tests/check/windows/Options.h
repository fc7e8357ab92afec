// The command line of the kit.
#pragma once

#include <string>

struct Options
{
    bool programs = true;
    bool pictures = true;
    unsigned atOnce = 0;     ///< programs that run at the same time; 0: as many as there are processors
    unsigned patience = 180; ///< seconds without output after which a program is ended
    std::string error;       ///< what is wrong with the command line; empty: nothing
};

Options ReadOptions(int count, char** words);

extern const char* const kUsage;
