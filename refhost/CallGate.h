// The gate that every host call passes. It can record, count and delay the calls, and fail the n-th one.
#pragma once

#include <windows.h>

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace refhost
{
/// How a call fails. A kind that does not fit the call's outputs gives S_OK and empty outputs (null, zero,
/// VT_EMPTY).
enum class Fault
{
    None,
    Status,      ///< the chosen status and empty outputs
    NullObject,  ///< S_OK with a null object or enumerator; for a value, a VT_UNKNOWN that is null
    EmptyVariant ///< S_OK with VT_EMPTY
};

/// QueryInterface, AddRef and Release do not count as host calls.
class CallGate
{
public:
    /// Turns the recording of calls as text on or off. It is off at first.
    void Record(bool on);

    /// The recorded calls in order, such as `IQP_Query::SetSearchAttribute("type", 1, "orvo", 0)` or
    /// `IQPObjectRights<script Report>::HasRight(4)`.
    const std::vector<std::string>& Calls() const { return m_calls; }

    /// Clears recorded calls and counts. A planned fault and the misuses remain.
    void Clear();

    /// The calls so far whose VARIANT output was not VT_EMPTY or not initialised, such as
    /// "IQP_BaseDataObject::GetAttribute". The old value is overwritten, and the call continues normally.
    const std::vector<std::string>& Misuses() const { return m_misuses; }

    /// Calls since the last Clear.
    long long Count() const { return m_count; }

    /// Calls of one method since the last Clear: "IQP_Query::GetSearchResult" or, on any interface,
    /// "GetSearchResult".
    long long Count(std::string_view method) const;

    /// Makes the n-th call since the last Clear fail, once; n counts from 1. Replaces an earlier plan;
    /// Fault::None cancels it. `status` is for Fault::Status and may be a success such as S_FALSE.
    void FailCall(long long n, Fault fault, HRESULT status = E_FAIL);

    /// Whether the fault planned last has happened.
    bool Struck() const { return m_struck; }

    /// Adds `delay` to the duration of every call.
    void Delay(std::chrono::microseconds delay);

    // For the methods of the host's objects.

    struct Verdict
    {
        Fault fault = Fault::None;
        HRESULT status = S_OK;
    };

    /// Counts and delays the call and returns how it is to fail. `method` is a literal such as
    /// "IQP_Query::ResetSearch"; `describe` returns the line to record and is called only while recording.
    template <class Describe>
    Verdict Enter(const char* method, Describe&& describe)
    {
        ++m_count;
        ++m_counts[method];
        if (m_recording)
            m_calls.push_back(describe());
        if (m_delay.count() > 0)
            Wait();
        return Judge();
    }

    void NoteMisuse(const char* method) { m_misuses.emplace_back(method); }

private:
    void Wait() const;
    Verdict Judge();

    bool m_recording = false;
    bool m_struck = false;
    std::vector<std::string> m_calls;
    std::vector<std::string> m_misuses;
    std::map<std::string_view, long long> m_counts;
    long long m_count = 0;
    long long m_failing = 0;
    Verdict m_plan;
    std::chrono::microseconds m_delay{0};
};
} // namespace refhost
