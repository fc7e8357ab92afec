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
/// A process has 1,088 TLS slots: a module that loses one at each load ends its host before this.
/// QP_UNLOAD_CYCLES holds another number for a long run.
int Cycles()
{
    const char* asked = std::getenv("QP_UNLOAD_CYCLES");
    return asked ? std::atoi(asked) : 1'250;
}

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

TEST_F(Unload, LeavesTheProcessAsItWas)
{
    UnloadingHost host;
    ProcessCounts before = {};
    const int cycles = Cycles();
    for (int cycle = 0; cycle < cycles; ++cycle)
    {
        if (cycle == 100)
            before = ProcessCounts::Take();
        host.Work(cycle % 25 == 0);
        ASSERT_TRUE(UnloadingHost::IsLoaded());
        ASSERT_TRUE(UnloadingHost::Unload()) << "cycle " << cycle;
    }
    ExpectSame(before, ProcessCounts::Take());
}

TEST_F(Unload, LeavesNothingInThreadsThatLiveOn)
{
    CallingThread threads[4];
    ProcessCounts before = {};
    for (int round = 0; round < 40; ++round)
    {
        if (round == 5)
            before = ProcessCounts::Take();
        const LoadedModule module(ModulePath());
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
        const LoadedModule module(ModulePath());
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
        const LoadedModule module(ModulePath());
        thread.Call(module);
    }
    ExpectSame(before, ProcessCounts::Take());
}

TEST_F(Unload, OfOneCopyLeavesTheOtherAtWork)
{
    namespace fs = std::filesystem;
    const fs::path copy =
        fs::temp_directory_path() / ("qptools-copy-" + std::to_string(GetCurrentProcessId()) + ".dll");
    fs::copy_file(ModulePath(), copy, fs::copy_options::overwrite_existing);
    {
        const LoadedModule first(ModulePath());
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

TEST_F(Unload, IsNotNeededBeforeTheProcessEnds)
{
    for (const char* way : {"return", "exit", "other thread", "terminate"})
        EXPECT_EQ(OtherProcess("unload_process_end", {way}).Wait(), 7) << way;
}
