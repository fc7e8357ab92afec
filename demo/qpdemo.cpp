// qpdemo: qptools.dll at work in a host's process, on the sample plant.

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
std::unique_ptr<refhost::Plant> OpenPlant(const Arguments& arguments)
{
    const bool kept = !arguments.database.empty();
    const bool existed = kept && std::filesystem::exists(arguments.database);
    auto plant = kept ? refhost::Plant::Open(arguments.database) : refhost::Plant::OpenMemory();
    if (!existed)
        plant->Load(arguments.sample);
    return plant;
}

/// Registers the module for this process, which wants no registry of the machine's where that is in memory.
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

int Run(const Arguments& arguments)
{
    if (arguments.registerModule && RegisterModule() != S_OK)
    {
        PrintLine(L"qpdemo: the module could not be registered");
        return 1;
    }
    CDemo demo(OpenPlant(arguments));
    return demo.Run() ? 0 : 1;
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
