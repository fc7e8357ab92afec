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

void GetSystemTime(SYSTEMTIME* time)
{
    const timespec now = Now(CLOCK_REALTIME);
    tm parts{};
    gmtime_r(&now.tv_sec, &parts);
    *time = SystemTime(parts, now.tv_nsec);
}

void GetSystemTimeAsFileTime(FILETIME* time)
{
    // Counted in 100 nanoseconds from the year 1601 on.
    constexpr ULONGLONG kSecondsTo1970 = 11'644'473'600;
    const timespec now = Now(CLOCK_REALTIME);
    const ULONGLONG ticks = (static_cast<ULONGLONG>(now.tv_sec) + kSecondsTo1970) * 10'000'000 +
                            static_cast<ULONGLONG>(now.tv_nsec) / 100;
    time->dwLowDateTime = static_cast<DWORD>(ticks);
    time->dwHighDateTime = static_cast<DWORD>(ticks >> 32);
}

ULONGLONG GetTickCount64()
{
    const timespec now = Now(CLOCK_MONOTONIC);
    return static_cast<ULONGLONG>(now.tv_sec) * 1000 + static_cast<ULONGLONG>(now.tv_nsec) / 1'000'000;
}

DWORD GetTickCount()
{
    return static_cast<DWORD>(GetTickCount64());
}

BOOL QueryPerformanceCounter(LARGE_INTEGER* count)
{
    const timespec now = Now(CLOCK_MONOTONIC);
    count->QuadPart = static_cast<LONGLONG>(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
    return TRUE;
}

BOOL QueryPerformanceFrequency(LARGE_INTEGER* frequency)
{
    frequency->QuadPart = 1'000'000'000;
    return TRUE;
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
    // Every message asks for it, so the system is asked once a thread.
    thread_local const auto thread = static_cast<DWORD>(gettid());
    return thread;
}

DWORD GetCurrentProcessId()
{
    return static_cast<DWORD>(getpid());
}
