// The first component of a module beside the first one of an empty module: each time the module is loaded
// anew.
#include "EmptyModule.h"

#include "qptools.h"

#include <benchmark/benchmark.h>

#include <objbase.h>
#include <windows.h>

#include <chrono>

namespace
{
void RegisterQptools()
{
    const HMODULE module = LoadLibraryW(L"qptools.dll");
    reinterpret_cast<HRESULT (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "DllRegisterServer")))();
    FreeLibrary(module);
}

/// Only CoCreateInstance is measured; the apartment's end unloads the module.
void MeasureFirst(benchmark::State& state, REFCLSID classId, const wchar_t* module)
{
    for (auto _ : state)
    {
        CoInitialize(nullptr);
        IUnknown* object = nullptr;
        const auto start = std::chrono::steady_clock::now();
        const HRESULT status = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                                                reinterpret_cast<void**>(&object));
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        if (status != S_OK)
        {
            state.SkipWithError("the component was not created");
            CoUninitialize();
            break;
        }
        object->Release();
        CoUninitialize();
    }
    if (GetModuleHandleW(module))
        state.SkipWithError("the module was not unloaded");
}

void FirstComponent(benchmark::State& state)
{
    RegisterQptools();
    MeasureFirst(state, CLSID_QPUserActionLog, L"qptools.dll");
}

void FirstOfEmptyModule(benchmark::State& state)
{
    RegisterEmptyModule();
    MeasureFirst(state, kEmptyClass, L"qp_empty.dll");
}

BENCHMARK(FirstComponent)->Name("CoCreateInstance/service")->Unit(benchmark::kMicrosecond)->UseManualTime();
BENCHMARK(FirstOfEmptyModule)
    ->Name("CoCreateInstance/empty module")
    ->Unit(benchmark::kMicrosecond)
    ->UseManualTime();
} // namespace
