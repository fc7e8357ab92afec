// Tells the host's own work from that of its callers, for tests that take memory away from one of the two.
#pragma once

namespace refhost
{
/// Stands for a time in which the reference host is at work on this thread. It nests.
class HostWork
{
public:
    HostWork() noexcept { ++s_depth; }
    ~HostWork() { --s_depth; }
    HostWork(const HostWork&) = delete;
    HostWork& operator=(const HostWork&) = delete;

    static bool GoesOn() noexcept { return s_depth > 0; }

private:
    static inline thread_local int s_depth = 0;
};
} // namespace refhost
