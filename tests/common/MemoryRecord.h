// The record of the calls on a host in memory.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

class MemoryObject;

/// Kept by the host for all its objects: what was called, how many objects are alive and how the record names
/// them.
class MemoryRecord
{
public:
    MemoryRecord() = default;
    MemoryRecord(const MemoryRecord&) = delete;
    MemoryRecord& operator=(const MemoryRecord&) = delete;

    /// One line per call, for example `set.GetAttribute(master)` or `SetSearchCatenation(4)`.
    std::vector<std::string> calls;
    /// Whether calls are recorded at all; benchmarks do without.
    bool recording = true;
    /// Whether requests for interfaces are recorded as well.
    bool recordingQueries = false;
    /// Runs after each recorded call.
    std::function<void(const std::string& call)> onCall;
    /// Runs at each AddRef of a data object.
    std::function<void()> onReference;

    /// The name under which `object` is recorded.
    std::string NameOf(IUnknown* object) const;

    /// Objects alive, query and factory not among them.
    int LiveObjects() const noexcept { return m_liveObjects; }

    /// Whether a call of any host is running: what is allocated then is the host's.
    static bool InCall() noexcept { return s_depth > 0; }

    /// Exists for the duration of a host call.
    class CallScope
    {
    public:
        CallScope() noexcept { ++s_depth; }
        ~CallScope() { --s_depth; }
        CallScope(const CallScope&) = delete;
        CallScope& operator=(const CallScope&) = delete;
    };

    // For the host's objects.

    /// The objects with children of their own. Borrowed.
    std::set<MemoryObject*> parents;

    /// A member of each object that is counted.
    class Life
    {
    public:
        explicit Life(MemoryRecord& record) noexcept : m_record(record) { ++m_record.m_liveObjects; }
        ~Life() { --m_record.m_liveObjects; }
        Life(const Life&) = delete;
        Life& operator=(const Life&) = delete;

    private:
        MemoryRecord& m_record;
    };

    /// Adds a call.
    void Record(const std::string& call);

    /// Records `object` as `name`, while calls are recorded at all.
    void Name(IUnknown* object, const std::string& name);
    void Forget(IUnknown* object);

    /// A value as the record writes it: `BSTR 'x'`, `I4 5`, `UNKNOWN <the object's name>`.
    std::string Describe(const VARIANT& value) const;

protected:
    ~MemoryRecord() = default;

private:
    static int s_depth;

    int m_liveObjects = 0;
    std::map<IUnknown*, std::string> m_names;
};

/// A text in UTF-8; null reads as "".
std::string Utf8Of(BSTR text);

/// A text in UTF-8; null reads as "null".
std::string Utf8OrNull(BSTR text);

/// An identifier in braces.
std::string TextOfGuid(REFGUID guid);
