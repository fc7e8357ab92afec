// Tells the host's own work from that of its callers, for tests that make the allocations of one of them
// fail.
#pragma once

namespace refhost
{
/// While an instance exists, the reference host is working on this thread. Instances nest.
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
