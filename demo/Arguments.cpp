#include "Arguments.h"

#include "Paths.h"

#include "Resources.h"

#include <windows.h>

#include <shellapi.h>

#include <vector>

namespace
{
std::vector<std::wstring> CommandLineWords()
{
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!words)
        return {};
    std::vector<std::wstring> result(words, words + count);
    LocalFree(words);
    return result;
}

std::filesystem::path ProgramFolder()
{
    return ToPath(ModulePath(nullptr)).parent_path();
}
} // namespace

Arguments ReadArguments()
{
    Arguments arguments;
    arguments.sample = ProgramFolder() / "sample";
    const std::vector<std::wstring> words = CommandLineWords();
    for (size_t index = 1; index < words.size(); ++index)
    {
        const std::wstring& word = words[index];
        const bool hasValue = index + 1 < words.size();
        if (word == L"--db" && hasValue)
            arguments.database = ToPath(words[++index]);
        else if (word == L"--sample" && hasValue)
        {
            arguments.sample = ToPath(words[++index]);
            arguments.sampleNamed = true;
        }
        else if (word == L"--pictures" && hasValue)
            arguments.pictures = ToPath(words[++index]);
        else if (word == L"--dialogs" && hasValue)
            arguments.dialogs = words[++index];
        else if (word == L"--register")
            arguments.registerModule = true;
        else if (word == L"--help")
            arguments.help = true;
        else
            arguments.error = L"unknown or incomplete argument: " + word;
    }
    return arguments;
}

std::wstring UsageText()
{
    return LR"(usage: qpdemo [--db FILE] [--sample FOLDER] [--pictures FOLDER]
              [--dialogs LANGUAGE] [--register]
  --db FILE           keep the plant in FILE: a new or empty file gets the sample data, a plant
                      that is there already is used as it is and gets nothing
  --sample FOLDER     load the sample data of FOLDER instead of those beside the program; not
                      together with a plant that is there already
  --pictures FOLDER   ask for a picture of each dialog and message: NAME.request appears in
                      FOLDER, and the demonstration goes on when it is gone
  --dialogs LANGUAGE  show the dialogs and messages alone, in that language (en, de)
  --register          register the module for this process first
  --help              this text
exit code: 0 everything held, 1 something did not or could not be done, 2 wrong arguments)";
}
