// The one gate that every host call passes: it can record the calls, count them, delay them and fail the n-th
// one.
#pragma once

#include <windows.h>

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace refhost
{
/// What becomes of the call that is to fail. A kind that does not fit the call's outputs gives S_OK and
/// outputs of nothing (null, zero, empty).
enum class Fault
{
    None,
    Status,      ///< the chosen status, outputs of nothing
    NullObject,  ///< S_OK with a null object, enumerator or, for a value, a reference to no object
    EmptyVariant ///< S_OK with an empty value
};

/// QueryInterface, AddRef and Release are no host calls.
class CallGate
{
public:
    /// Switches the recording of calls as text on or off; off at first.
    void Record(bool on);

    /// The recorded calls in order, such as `IQP_Query::SetSearchAttribute("type", 1, "orvo", 0)` or
    /// `IQPObjectRights<script Report>::HasRight(4)`.
    const std::vector<std::string>& Calls() const { return m_calls; }

    /// Forgets recorded calls and counts. A planned fault stays planned, and misuses are not forgotten.
    void Clear();

    /// The calls so far that handed a variant in for an output with something in it, or never initialised:
    /// "IQP_BaseDataObject::GetAttribute". What it held is lost. The call itself goes on as any other.
    const std::vector<std::string>& Misuses() const { return m_misuses; }

    /// Calls since the last Clear.
    long long Count() const { return m_count; }

    /// Calls of one method since the last Clear: "IQP_Query::GetSearchResult" or, on any interface,
    /// "GetSearchResult".
    long long Count(std::string_view method) const;

    /// Plans that the n-th call since the last Clear fails, n from 1; it does so once. Replaces an earlier
    /// plan; Fault::None takes it away. `status` is for Fault::Status and may be a success such as S_FALSE.
    void FailCall(long long n, Fault fault, HRESULT status = E_FAIL);

    /// True if the fault planned last has happened.
    bool Struck() const { return m_struck; }

    /// Makes every call take that much longer.
    void Delay(std::chrono::microseconds delay);

    // The host's side.

    struct Verdict
    {
        Fault fault = Fault::None;
        HRESULT status = S_OK;
    };

    /// Counts the call, delays it and tells whether it is to fail. `method` is a literal such as
    /// "IQP_Query::ResetSearch"; `describe` gives the whole line and is called only while recording.
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
