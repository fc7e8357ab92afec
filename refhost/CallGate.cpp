#include "CallGate.h"

#include <thread>

namespace refhost
{
void CallGate::Record(bool on)
{
    m_recording = on;
}

void CallGate::Clear()
{
    m_calls.clear();
    m_counts.clear();
    m_count = 0;
}

long long CallGate::Count(std::string_view method) const
{
    long long count = 0;
    for (const auto& [name, calls] : m_counts)
    {
        if (name == method || name.substr(name.find("::") + 2) == method)
            count += calls;
    }
    return count;
}

void CallGate::FailCall(long long n, Fault fault, HRESULT status)
{
    m_failing = fault == Fault::None ? 0 : n;
    m_plan = {fault, status};
    m_struck = false;
}

void CallGate::Delay(std::chrono::microseconds delay)
{
    m_delay = delay;
}

/// Sleeps through long delays only: the resolution of a sleep is too coarse for a round trip.
void CallGate::Wait() const
{
    const auto end = std::chrono::steady_clock::now() + m_delay;
    if (m_delay >= std::chrono::milliseconds(20))
        std::this_thread::sleep_for(m_delay - std::chrono::milliseconds(5));
    while (std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
}

CallGate::Verdict CallGate::Judge()
{
    if (m_failing == 0 || m_count != m_failing)
        return {};
    m_failing = 0;
    m_struck = true;
    return m_plan;
}
} // namespace refhost
