// A module that is unloaded leaves nothing behind in its host's process.
#include "BuiltFiles.h"
#include "LogFolder.h"
#include "OtherProcess.h"
#include "ProcessCounts.h"
#include "UnloadingHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <thread>
#include <vector>

namespace
{
/// QP_UNLOAD_CYCLES holds the number of cycles for a long run.
int CyclesOr(int usual)
{
    const char* asked = std::getenv("QP_UNLOAD_CYCLES");
    return asked ? std::atoi(asked) : usual;
}

/// Loads the common controls that the module asks for in its manifest, as a host with windows has them.
/// Without it they are loaded and unloaded with the module, which takes most of a cycle's time.
class CommonControls
{
public:
    CommonControls()
    {
        const std::wstring path = BuiltModulePath();
        ACTCTXW request = {};
        request.cbSize = sizeof(request);
        request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
        request.lpSource = path.c_str();
        request.lpResourceName = MAKEINTRESOURCEW(2);
        const HANDLE context = CreateActCtxW(&request);
        ULONG_PTR cookie = 0;
        EXPECT_TRUE(context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie));
        m_library = LoadLibraryW(L"comctl32.dll");
        EXPECT_NE(m_library, nullptr);
        DeactivateActCtx(0, cookie);
        ReleaseActCtx(context);
    }
    ~CommonControls() { FreeLibrary(m_library); }
    CommonControls(const CommonControls&) = delete;
    CommonControls& operator=(const CommonControls&) = delete;

private:
    HMODULE m_library;
};

/// What the process holds apart from memory and atoms is to the piece what it was.
void ExpectSame(const ProcessCounts& before, const ProcessCounts& after)
{
    EXPECT_EQ(after.tlsSlots, before.tlsSlots);
    EXPECT_EQ(after.flsSlots, before.flsSlots);
    EXPECT_EQ(after.nextHandle, before.nextHandle);
    // Atoms belong to the desktop: those of a process that ended earlier may be deleted during the test.
    EXPECT_LE(after.atoms, before.atoms);
    EXPECT_LE(after.heapBytes, before.heapBytes + 8'192);
}

/// Has the module loaded, used and unloaded `cycles` times. Compares the process with what it was after the
/// first `settling` cycles, in which the system fills its caches.
void Repeat(int cycles, int settling)
{
    UnloadingHost host;
    ProcessCounts before = {};
    for (int cycle = 0; cycle < cycles; ++cycle)
    {
        if (cycle == settling)
            before = ProcessCounts::Take();
        host.Work(cycle % 25 == 0);
        ASSERT_TRUE(UnloadingHost::IsLoaded());
        ASSERT_TRUE(UnloadingHost::Unload()) << "cycle " << cycle;
    }
    ExpectSame(before, ProcessCounts::Take());
}

class Unload : public testing::Test
{
protected:
    Unload() { SetEnvironmentVariableW(L"QPTOOLS_LANG", L"de"); }
    ~Unload() override { SetEnvironmentVariableW(L"QPTOOLS_LANG", nullptr); }

    LogFolder logs;
};

/// A thread of the host that calls the module on request and keeps running.
class CallingThread
{
public:
    CallingThread() : m_thread(&CallingThread::Run, this) {}
    ~CallingThread()
    {
        m_module = nullptr;
        SetEvent(m_start);
        m_thread.join();
        CloseHandle(m_start);
        CloseHandle(m_done);
    }
    CallingThread(const CallingThread&) = delete;
    CallingThread& operator=(const CallingThread&) = delete;

    /// The module catches an exception on this thread.
    void Call(const LoadedModule& module)
    {
        m_module = &module;
        SetEvent(m_start);
        WaitForSingleObject(m_done, INFINITE);
    }

private:
    void Run()
    {
        while (WaitForSingleObject(m_start, INFINITE) == WAIT_OBJECT_0 && m_module)
        {
            m_module->CatchException();
            SetEvent(m_done);
        }
    }

    const HANDLE m_start = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE m_done = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const LoadedModule* m_module = nullptr;
    std::thread m_thread;
};
} // namespace

// A process has 64 + 1,024 TLS slots, some of which are taken: a module that loses one at each load ends its
// host before the 1,088th. The usual 1,150 loads are beyond that. The free slots of both kinds are counted as
// well, so that a single one lost in the 1,050 cycles after the first 100 is seen.
TEST_F(Unload, LeavesTheProcessAsItWas)
{
    const CommonControls held;
    Repeat(CyclesOr(1'150), 100);
}

// Here the common controls come and go with the module. How many slots there are was shown above.
TEST_F(Unload, TakesAlongTheLibrariesThatCameWithIt)
{
    Repeat(CyclesOr(100), 30);
}

TEST_F(Unload, LeavesNothingInThreadsThatLiveOn)
{
    CallingThread threads[4];
    ProcessCounts before = {};
    for (int round = 0; round < 40; ++round)
    {
        if (round == 5)
            before = ProcessCounts::Take();
        const LoadedModule module(BuiltModulePath());
        module.CatchException();
        for (CallingThread& thread : threads)
            thread.Call(module);
    }
    ASSERT_FALSE(UnloadingHost::IsLoaded());
    ExpectSame(before, ProcessCounts::Take());
}

TEST_F(Unload, LeavesNothingOfThreadsThatEndedBefore)
{
    ProcessCounts before = {};
    for (int round = 0; round < 25; ++round)
    {
        if (round == 5)
            before = ProcessCounts::Take();
        const LoadedModule module(BuiltModulePath());
        CallingThread threads[2]; // end first
        for (CallingThread& thread : threads)
            thread.Call(module);
    }
    ASSERT_FALSE(UnloadingHost::IsLoaded());
    ExpectSame(before, ProcessCounts::Take());
}

TEST_F(Unload, LetsThreadsEndAfterIt)
{
    ProcessCounts before = {};
    for (int round = 0; round < 20; ++round)
    {
        if (round == 5)
            before = ProcessCounts::Take();
        CallingThread thread; // ends last
        const LoadedModule module(BuiltModulePath());
        thread.Call(module);
    }
    ExpectSame(before, ProcessCounts::Take());
}

TEST_F(Unload, OfOneCopyLeavesTheOtherAtWork)
{
    namespace fs = std::filesystem;
    const fs::path copy =
        fs::temp_directory_path() / ("qptools-copy-" + std::to_string(GetCurrentProcessId()) + ".dll");
    fs::copy_file(BuiltModulePath(), copy, fs::copy_options::overwrite_existing);
    {
        const LoadedModule first(BuiltModulePath());
        CallingThread thread;
        for (int round = 0; round < 10; ++round)
        {
            const LoadedModule second(copy.wstring());
            ASSERT_NE(first.Handle(), second.Handle());
            for (const LoadedModule* module : {&first, &second, &first})
            {
                module->CatchException();
                thread.Call(*module);
            }
        }
        first.CatchException();
        thread.Call(first);
    }
    fs::remove(copy);
}

TEST_F(Unload, ReleasesTheHostsObjectsOfCopyDialogsThatWereKept)
{
    CountedList objects;
    CountedList others;
    {
        const LoadedModule module(BuiltModulePath());
        module.KeepCopyDialog(objects);
        module.KeepCopyDialog(others);
        EXPECT_EQ(objects.references, 1);
        EXPECT_EQ(others.references, 1);
    }
    ASSERT_FALSE(UnloadingHost::IsLoaded());
    EXPECT_EQ(objects.references, 0);
    EXPECT_EQ(others.references, 0);
}

TEST_F(Unload, LeavesNothingOfCopyDialogsThatWereKept)
{
    ProcessCounts before = {};
    for (int round = 0; round < 40; ++round)
    {
        if (round == 5)
            before = ProcessCounts::Take();
        CountedList objects;
        const LoadedModule module(BuiltModulePath());
        module.KeepCopyDialog(objects);
        module.KeepCopyDialog(objects);
    }
    ExpectSame(before, ProcessCounts::Take());
}

TEST_F(Unload, IsNotNeededBeforeTheProcessEnds)
{
    for (const char* way : {"return", "exit", "other thread", "terminate"})
        EXPECT_EQ(OtherProcess("unload_process_end", {way}).Wait(), 7) << way;
}
