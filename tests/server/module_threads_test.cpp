// The thread functions that the module brings for its C++ runtime, under names of their own beside those of
// this program.
#include "ModuleThreadNames.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{
BOOL g_entryResult = TRUE;
std::vector<DWORD> g_entryReasons;

template <class Body>
void OnThreads(int count, Body body)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back(body);
    for (std::thread& thread : threads)
        thread.join();
}

int FreeFlsSlots()
{
    std::vector<DWORD> slots;
    for (DWORD slot = FlsAlloc(nullptr); slot != FLS_OUT_OF_INDEXES; slot = FlsAlloc(nullptr))
        slots.push_back(slot);
    for (const DWORD slot : slots)
        FlsFree(slot);
    return static_cast<int>(slots.size());
}

/// A key whose destructor counts, deleted at the end by the module's entry point.
class ModuleKey : public testing::Test
{
protected:
    ModuleKey()
    {
        s_destroyed = 0;
        g_entryResult = TRUE;
        g_entryReasons.clear();
        EXPECT_EQ(module_key_create(&key, [](void*) { ++s_destroyed; }), 0);
    }
    ~ModuleKey() override { ModuleEntry(nullptr, DLL_PROCESS_DETACH, nullptr); }

    static inline std::atomic<int> s_destroyed{0};
    const int freeSlots = FreeFlsSlots(); ///< before the key is created
    module_key_t key = 0;
    int value = 0;
};
} // namespace

/// The compiler's entry point for DLLs, which programs lack.
extern "C" BOOL WINAPI DllMainCRTStartup(HINSTANCE, DWORD reason, LPVOID)
{
    g_entryReasons.push_back(reason);
    return g_entryResult;
}

TEST(ModuleMutex, LetsOneThreadInAtATime)
{
    module_mutex_t mutex = kModuleMutex;
    int count = 0;
    OnThreads(4, [&] {
        for (int i = 0; i < 20'000; ++i)
        {
            module_mutex_lock(&mutex);
            ++count;
            module_mutex_unlock(&mutex);
        }
    });
    EXPECT_EQ(count, 80'000);
    EXPECT_EQ(mutex, kModuleMutex);
}

TEST(ModuleMutex, MayBeLockedAgainByItsOwnerIfRecursive)
{
    module_mutex_t mutex = kModuleRecursiveMutex;
    std::atomic<bool> entered{false};
    module_mutex_lock(&mutex);
    module_mutex_lock(&mutex);
    module_mutex_unlock(&mutex);
    std::thread other([&] {
        module_mutex_lock(&mutex);
        entered = true;
        module_mutex_unlock(&mutex);
    });
    Sleep(50);
    EXPECT_FALSE(entered);
    module_mutex_unlock(&mutex);
    other.join();
    EXPECT_TRUE(entered);
    EXPECT_EQ(mutex, kModuleRecursiveMutex);
}

TEST(ModuleMutex, InitialisedAnywhereIsFree)
{
    module_mutex_t mutex = 12345;
    EXPECT_EQ(module_mutex_init(&mutex, nullptr), 0);
    EXPECT_EQ(module_mutex_lock(&mutex), 0);
    EXPECT_EQ(module_mutex_unlock(&mutex), 0);
    EXPECT_EQ(module_mutex_destroy(&mutex), 0);
}

TEST(ModuleCondition, WakesAllThatWait)
{
    module_mutex_t mutex = kModuleMutex;
    module_cond_t condition = kModuleCondition;
    int waiting = 0;
    bool open = false;
    std::thread opener([&] {
        for (int seen = 0; seen < 3; Sleep(1))
        {
            module_mutex_lock(&mutex);
            seen = waiting;
            module_mutex_unlock(&mutex);
        }
        module_mutex_lock(&mutex);
        open = true;
        module_cond_broadcast(&condition);
        module_mutex_unlock(&mutex);
    });
    OnThreads(3, [&] {
        module_mutex_lock(&mutex);
        ++waiting;
        while (!open)
            module_cond_wait(&condition, &mutex);
        --waiting;
        module_mutex_unlock(&mutex);
    });
    opener.join();
    EXPECT_EQ(waiting, 0);
    EXPECT_EQ(mutex, kModuleMutex);
}

TEST(ModuleOnce, RunsOnceAndLetsTheOthersWait)
{
    static std::atomic<int> runs{0};
    static std::atomic<bool> done{false};
    module_once_t once = 0;
    std::atomic<int> early{0};
    OnThreads(6, [&] {
        module_once(&once, [] {
            ++runs;
            Sleep(30);
            done = true;
        });
        early += !done;
    });
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(early, 0);
}

TEST(ModuleOnce, RunsAgainAfterAnException)
{
    module_once_t once = 0;
    EXPECT_THROW(module_once(&once, [] { throw std::runtime_error("first"); }), std::runtime_error);
    static bool ran = false;
    module_once(&once, [] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST_F(ModuleKey, HoldsAValueForEachThread)
{
    module_setspecific(key, &value);
    OnThreads(3, [&] {
        int own = 0;
        EXPECT_EQ(module_getspecific(key), nullptr);
        EXPECT_EQ(module_setspecific(key, &own), 0);
        EXPECT_EQ(module_getspecific(key), &own);
    });
    EXPECT_EQ(s_destroyed, 3);
    EXPECT_EQ(module_getspecific(key), &value);
}

TEST_F(ModuleKey, IsReadWithoutTouchingTheLastError)
{
    SetLastError(ERROR_FILE_NOT_FOUND);
    module_getspecific(key);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(ModuleKey, IsFreedForAllThreadsWhenTheModuleIsUnloaded)
{
    module_setspecific(key, &value);
    const HANDLE set = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE end = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    std::thread other([&] {
        module_setspecific(key, &value);
        SetEvent(set);
        WaitForSingleObject(end, INFINITE);
    });
    WaitForSingleObject(set, INFINITE);
    EXPECT_TRUE(ModuleEntry(nullptr, DLL_PROCESS_DETACH, nullptr));
    EXPECT_EQ(s_destroyed, 2);
    EXPECT_EQ(FreeFlsSlots(), freeSlots);
    SetEvent(end);
    other.join();
    EXPECT_EQ(s_destroyed, 2) << "the module is gone";
    EXPECT_EQ(g_entryReasons, (std::vector<DWORD>{DLL_PROCESS_DETACH}));
}

TEST_F(ModuleKey, IsKeptWhenTheProcessEnds)
{
    module_setspecific(key, &value);
    ModuleEntry(nullptr, DLL_PROCESS_DETACH, &value);
    EXPECT_EQ(s_destroyed, 0);
    EXPECT_EQ(module_getspecific(key), &value);
}

TEST_F(ModuleKey, IsKeptWhileTheModuleIsLoaded)
{
    for (const DWORD reason : {DLL_PROCESS_ATTACH, DLL_THREAD_ATTACH, DLL_THREAD_DETACH})
        EXPECT_TRUE(ModuleEntry(nullptr, reason, nullptr));
    EXPECT_EQ(FreeFlsSlots(), freeSlots - 1);
}

TEST_F(ModuleKey, IsFreedByAModuleThatRefusesToLoad)
{
    g_entryResult = FALSE;
    EXPECT_FALSE(ModuleEntry(nullptr, DLL_PROCESS_ATTACH, nullptr));
    EXPECT_EQ(FreeFlsSlots(), freeSlots);
}

TEST_F(ModuleKey, ThereAreFourAtMost)
{
    module_key_t more = 0;
    for (int i = 1; i < 4; ++i)
        EXPECT_EQ(module_key_create(&more, nullptr), 0);
    EXPECT_EQ(module_key_create(&more, nullptr), EAGAIN);
}
