#include "Options.h"

#include <cstdlib>
#include <string_view>

const char* const kUsage =
    "usage: check [--no-pictures | --only-pictures] [--at-once COUNT] [--patience SECONDS]\n"
    "  --no-pictures        run the tests, take no pictures of the dialogs\n"
    "  --only-pictures      take the pictures, run no tests\n"
    "  --at-once COUNT      so many programs at the same time; otherwise one for each processor\n"
    "  --patience SECONDS   end a program that printed nothing for so long (180)\n"
    "exit code: 0 no news, 1 failures that were not expected, 2 the kit could not run\n";

Options ReadOptions(int count, char** words)
{
    Options options;
    for (int index = 1; index < count; ++index)
    {
        const std::string_view word = words[index];
        const int number = index + 1 < count ? std::atoi(words[index + 1]) : 0;
        if (word == "--no-pictures")
            options.pictures = false;
        else if (word == "--only-pictures")
            options.programs = false;
        else if (word == "--at-once" && number > 0)
            options.atOnce = static_cast<unsigned>(number), ++index;
        else if (word == "--patience" && number > 0)
            options.patience = static_cast<unsigned>(number), ++index;
        else
            options.error = "unknown or incomplete argument: " + std::string(word);
    }
    return options;
}
