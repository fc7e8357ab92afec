// The thread functions of the module's C++ runtime. Part of the DLL alone.
//
// libstdc++ and libgcc are linked into the module. They lock, wait and keep data per thread (exceptions in
// flight, thread_local) by POSIX thread functions. The compiler's library of these is written for programs.
// At the first exception, thread_local or guarded static it allocates a TLS slot of the process, and for each
// thread memory and handles, and it has no code that frees them when its module is unloaded. A host that
// loaded and unloaded the module about 1,080 times ran out of slots and was aborted.
//
// The module therefore defines the functions that its runtime calls, and nothing of that library is linked.
// Per-thread data is kept in an FLS slot: Windows calls the slot's destructor when a thread ends, and FlsFree
// calls it for every thread that is still alive. Mutexes, conditions and once-flags own no resource.
// ModuleEntry, at the end, runs after all other code of the module and frees the slot.
//
// If the module comes to call another function of the library (for std::thread, say), the link fails with a
// multiple definition. The function belongs here then.

#include <windows.h>

#include <cerrno>
#include <pthread.h>
#include <utility>

namespace __gnu_cxx
{
/// Frees the memory that the runtime reserves for exceptions under out-of-memory. No header of libstdc++
/// declares it.
void __freeres();
} // namespace __gnu_cxx

namespace
{
/// Guards the words of all mutexes, conditions and once-flags. Held for a few instructions.
constinit SRWLOCK g_words = SRWLOCK_INIT;

/// Wakes all waiting threads after each change of any of these words.
constinit CONDITION_VARIABLE g_changed = CONDITION_VARIABLE_INIT;

/// Holds the lock on the words for a scope.
class Words
{
public:
    Words() noexcept { AcquireSRWLockExclusive(&g_words); }
    ~Words() { ReleaseSRWLockExclusive(&g_words); }
    Words(const Words&) = delete;
    Words& operator=(const Words&) = delete;

    void Wait() noexcept { SleepConditionVariableSRW(&g_changed, &g_words, INFINITE, 0); }
    void Changed() noexcept { WakeAllConditionVariable(&g_changed); }
};

// A free mutex holds one of the header's initial values, which are negative. A locked one holds its owner's
// thread identifier in the lower half, the depth in the upper half, and a bit that marks it as recursive.
constexpr pthread_mutex_t kDepth = pthread_mutex_t{1} << 32;
constexpr pthread_mutex_t kRecursive = pthread_mutex_t{1} << 62;

bool IsFree(pthread_mutex_t mutex) noexcept
{
    return mutex < 0;
}

bool MayLock(pthread_mutex_t mutex, DWORD thread) noexcept
{
    return IsFree(mutex) || ((mutex & kRecursive) && static_cast<DWORD>(mutex) == thread);
}

void Lock(Words& words, pthread_mutex_t& mutex) noexcept
{
    const DWORD thread = GetCurrentThreadId();
    while (!MayLock(mutex, thread))
        words.Wait();
    if (IsFree(mutex))
        mutex = thread | (mutex == PTHREAD_RECURSIVE_MUTEX_INITIALIZER ? kRecursive : 0);
    mutex += kDepth;
}

void Free(Words& words, pthread_mutex_t& mutex) noexcept
{
    mutex = mutex & kRecursive ? PTHREAD_RECURSIVE_MUTEX_INITIALIZER : PTHREAD_MUTEX_INITIALIZER;
    words.Changed();
}

bool IsLastLevel(pthread_mutex_t mutex) noexcept
{
    return (mutex & ~kRecursive) / kDepth == 1;
}

// The states of a once-flag.
constexpr pthread_once_t kNotRun = PTHREAD_ONCE_INIT;
constexpr pthread_once_t kRunning = 1;
constexpr pthread_once_t kRun = 2;

/// Sets a once-flag to kRun at its end, or back to kNotRun if an exception ended the function.
class RunningOnce
{
public:
    explicit RunningOnce(pthread_once_t& once) noexcept : m_once(once) {}
    ~RunningOnce()
    {
        Words words;
        m_once = m_result;
        words.Changed();
    }
    RunningOnce(const RunningOnce&) = delete;
    RunningOnce& operator=(const RunningOnce&) = delete;
    void Done() noexcept { m_result = kRun; }

private:
    pthread_once_t& m_once;
    pthread_once_t m_result = kNotRun;
};

/// Waits while another thread runs the flag's function. Returns true if the caller has to run it.
bool Begin(pthread_once_t& once) noexcept
{
    Words words;
    while (once == kRunning)
        words.Wait();
    return std::exchange(once, once == kRun ? kRun : kRunning) == kNotRun;
}

// The FLS slots of the module. The runtime needs one for all thread_local variables.
constexpr int kMostKeys = 4;
constinit DWORD g_keys[kMostKeys] = {};
constinit int g_keyCount = 0;

/// Frees the runtime's process-wide resources. No other code of the module runs after it.
void FreeRuntime() noexcept
{
    while (g_keyCount > 0)
        FlsFree(g_keys[--g_keyCount]);
    __gnu_cxx::__freeres();
}
} // namespace

int pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t*)
{
    *mutex = PTHREAD_MUTEX_INITIALIZER;
    return 0;
}

int pthread_mutex_destroy(pthread_mutex_t*)
{
    return 0;
}

int pthread_mutex_lock(pthread_mutex_t* mutex)
{
    Words words;
    Lock(words, *mutex);
    return 0;
}

int pthread_mutex_unlock(pthread_mutex_t* mutex)
{
    Words words;
    if (IsLastLevel(*mutex))
        Free(words, *mutex);
    else
        *mutex -= kDepth;
    return 0;
}

// The word of a condition counts its broadcasts. The mutex is locked once, which is the caller's duty.
int pthread_cond_wait(pthread_cond_t* condition, pthread_mutex_t* mutex)
{
    Words words;
    const pthread_cond_t before = *condition;
    Free(words, *mutex);
    while (*condition == before)
        words.Wait();
    Lock(words, *mutex);
    return 0;
}

int pthread_cond_broadcast(pthread_cond_t* condition)
{
    Words words;
    ++*condition;
    words.Changed();
    return 0;
}

int pthread_once(pthread_once_t* once, void (*function)())
{
    if (!Begin(*once))
        return 0;
    RunningOnce running(*once);
    function();
    running.Done();
    return 0;
}

int pthread_key_create(pthread_key_t* key, void (*destructor)(void*))
{
    Words words;
    if (g_keyCount == kMostKeys)
        return EAGAIN;
    const DWORD index = FlsAlloc(destructor);
    if (index == FLS_OUT_OF_INDEXES)
        return EAGAIN;
    g_keys[g_keyCount++] = index;
    *key = index;
    return 0;
}

// The caller may read a thread_local between a system call and its GetLastError.
void* pthread_getspecific(pthread_key_t key)
{
    const DWORD error = GetLastError();
    void* value = FlsGetValue(key);
    SetLastError(error);
    return value;
}

int pthread_setspecific(pthread_key_t key, const void* value)
{
    return FlsSetValue(key, const_cast<void*>(value)) ? 0 : ENOMEM;
}

extern "C" BOOL WINAPI DllMainCRTStartup(HINSTANCE instance, DWORD reason, LPVOID reserved);

/// The DLL's entry point, around the compiler's, which runs DllMain and the destructors of static objects. At
/// the end of the process (`reserved` is not null) it frees nothing: the system does, and other threads were
/// ended inside whatever they did.
extern "C" BOOL WINAPI ModuleEntry(HINSTANCE instance, DWORD reason, LPVOID reserved)
{
    const BOOL result = DllMainCRTStartup(instance, reason, reserved);
    const bool unloaded = reason == DLL_PROCESS_DETACH && !reserved;
    const bool refused = reason == DLL_PROCESS_ATTACH && !result;
    if (unloaded || refused)
        FreeRuntime();
    return result;
}
