// Ends with the module loaded, after exceptions in it on several threads and with a copy dialog that is kept,
// in the way that the argument names. The exit code is 7 unless the end goes wrong: 8 if the dialog is freed.
#include "BuiltFiles.h"
#include "UnloadingHost.h"

#include <cstring>
#include <thread>

namespace
{
constexpr int kEnd = 7;
constexpr int kFreed = 8;
} // namespace

int main(int, char** arguments)
{
    const char* way = arguments[1];
    const LoadedModule& module = *new LoadedModule(BuiltModulePath()); // never unloaded
    module.CatchException();
    CountedList& objects = *new CountedList; // never deleted
    objects.exitCode = kFreed;
    module.KeepCopyDialog(objects);
    if (objects.references != 1)
        return kFreed;
    const HANDLE called = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    std::thread([&] {
        module.CatchException();
        SetEvent(called);
        Sleep(INFINITE);
    }).detach();
    WaitForSingleObject(called, INFINITE);
    if (std::strcmp(way, "exit") == 0)
        ExitProcess(kEnd);
    if (std::strcmp(way, "terminate") == 0)
        TerminateProcess(GetCurrentProcess(), kEnd);
    if (std::strcmp(way, "other thread") == 0)
    {
        std::thread([&] {
            module.CatchException();
            ExitProcess(kEnd);
        }).join();
    }
    return kEnd;
}
