// Time, the identity of the process and the thread, and waiting.
#include <windows.h>

#include <cerrno>
#include <ctime>
#include <unistd.h>

namespace
{
timespec Now(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return now;
}

SYSTEMTIME SystemTime(const tm& parts, long nanoseconds)
{
    return {static_cast<WORD>(parts.tm_year + 1900), static_cast<WORD>(parts.tm_mon + 1),
            static_cast<WORD>(parts.tm_wday),        static_cast<WORD>(parts.tm_mday),
            static_cast<WORD>(parts.tm_hour),        static_cast<WORD>(parts.tm_min),
            static_cast<WORD>(parts.tm_sec),         static_cast<WORD>(nanoseconds / 1'000'000)};
}
} // namespace

void GetLocalTime(SYSTEMTIME* time)
{
    const timespec now = Now(CLOCK_REALTIME);
    tm parts{};
    tzset();
    localtime_r(&now.tv_sec, &parts);
    *time = SystemTime(parts, now.tv_nsec);
}

ULONGLONG GetTickCount64()
{
    const timespec now = Now(CLOCK_MONOTONIC);
    return static_cast<ULONGLONG>(now.tv_sec) * 1000 + static_cast<ULONGLONG>(now.tv_nsec) / 1'000'000;
}

void Sleep(DWORD milliseconds)
{
    timespec rest{static_cast<time_t>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000) * 1'000'000};
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR)
    {
    }
}

DWORD GetCurrentThreadId()
{
    // Cached for each thread, because every message needs it.
    thread_local const auto thread = static_cast<DWORD>(gettid());
    return thread;
}

DWORD GetCurrentProcessId()
{
    return static_cast<DWORD>(getpid());
}
