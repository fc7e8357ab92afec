// qpdemo: runs qptools.dll in a host process on the sample plant.

#include "Arguments.h"
#include "Demo.h"
#include "Table.h"

#include "Plant.h"

#include <objbase.h>

#include <windows.h>

#include <exception>
#include <string>

namespace
{
bool HoldsSomething(const std::filesystem::path& file)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return !error && size > 0;
}

/// A new plant with the sample data. If loading fails the file is deleted, so that the next run does not take
/// it for a plant.
std::unique_ptr<refhost::Plant> MakePlant(const Arguments& arguments)
{
    auto plant =
        arguments.database.empty() ? refhost::Plant::OpenMemory() : refhost::Plant::Open(arguments.database);
    try
    {
        plant->Load(arguments.sample);
    }
    catch (const refhost::PlantError&)
    {
        plant.reset();
        std::error_code ignored;
        if (!arguments.database.empty())
            std::filesystem::remove(arguments.database, ignored);
        throw;
    }
    return plant;
}

std::unique_ptr<refhost::Plant> OpenPlant(const Arguments& arguments)
{
    if (arguments.database.empty() || !HoldsSomething(arguments.database))
        return MakePlant(arguments);
    if (arguments.sampleNamed)
        throw refhost::PlantError("the plant is there already: --sample is for a new one");
    return refhost::Plant::Open(arguments.database);
}

/// Registers the module for this process. The native registry is in memory and needs no installation.
HRESULT RegisterModule()
{
    const HMODULE module = LoadLibraryW(L"qptools.dll");
    if (!module)
        return HRESULT_FROM_WIN32(GetLastError());
    using Entry = HRESULT(STDAPICALLTYPE*)();
    const auto entry =
        reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, "DllRegisterServer")));
    return entry ? entry() : E_FAIL;
}

/// The sample data and the expected texts are English, whatever the user's language. A run of the dialogs
/// alone compares no texts.
std::wstring LanguageOf(const Arguments& arguments)
{
    return arguments.dialogs.empty() ? L"en" : arguments.dialogs;
}

int Run(const Arguments& arguments)
{
    if (arguments.registerModule && RegisterModule() != S_OK)
    {
        PrintLine(L"qpdemo: the module could not be registered");
        return 1;
    }
    CDemo demo(OpenPlant(arguments), CPictures(arguments.pictures), LanguageOf(arguments));
    const bool held = arguments.dialogs.empty() ? demo.Run() : demo.RunDialogs();
    return held ? 0 : 1;
}
} // namespace

int main()
{
    const Arguments arguments = ReadArguments();
    if (arguments.help || !arguments.error.empty())
    {
        PrintLine(arguments.help ? UsageText() : L"qpdemo: " + arguments.error + L"\n" + UsageText());
        return arguments.help ? 0 : 2;
    }
    SetEnvironmentVariableW(L"QPTOOLS_LANG", LanguageOf(arguments).c_str());
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 1;
    int result = 1;
    try
    {
        result = Run(arguments);
    }
    catch (const std::exception& failure)
    {
        PrintUtf8(std::string("qpdemo: ") + failure.what());
    }
    CoUninitialize();
    return result;
}
