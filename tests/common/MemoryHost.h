// A host that lives in memory: data objects, one query and its enumerators, each answer and status of which a
// test can set, and each call of which it can read back.
#pragma once

#include "MemoryEnum.h"
#include "MemoryObject.h"
#include "MemoryQuery.h"

#include "ComPtr.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

/// Makes the objects, counts them and keeps the record of what was called. It must outlive all of them.
class MemoryHost
{
public:
    MemoryHost();
    ~MemoryHost();
    MemoryHost(const MemoryHost&) = delete;
    MemoryHost& operator=(const MemoryHost&) = delete;

    /// A data object under a name that the record calls it by.
    ComPtr<MemoryObject> Object(std::string name);

    /// A data object with an attribute "name".
    ComPtr<MemoryObject> Named(const wchar_t* name);

    /// An object that is no data object itself but, asked for one, gives `object`.
    ComPtr<IUnknown> ReferenceTo(std::string name, const ComPtr<MemoryObject>& object);

    /// An enumerator over `objects`, in this order.
    ComPtr<MemoryEnum> List(std::vector<ComPtr<MemoryObject>> objects);

    MemoryQuery& Query() noexcept { return *m_ptrQuery; }

    /// The record: one line per call, for example `set.GetAttribute(master)` or `SetSearchCatenation(4)`.
    std::vector<std::string> calls;
    /// Whether calls are recorded at all; benchmarks do without.
    bool recording = true;
    /// Whether requests for interfaces are recorded as well.
    bool recordingQueries = false;
    /// Runs after each recorded call.
    std::function<void(const std::string& call)> onCall;
    /// Runs with each reference taken to a data object.
    std::function<void()> onReference;

    /// The name under which `object` is recorded.
    std::string NameOf(IUnknown* object) const;

    /// Objects alive, the query not among them.
    int LiveObjects() const noexcept { return m_liveObjects; }

    /// Whether a call of any host is running: what is allocated then is the host's.
    static bool InCall() noexcept { return s_depth > 0; }

    /// Stands for the duration of a host call.
    class CallScope
    {
    public:
        CallScope() noexcept { ++s_depth; }
        ~CallScope() { --s_depth; }
        CallScope(const CallScope&) = delete;
        CallScope& operator=(const CallScope&) = delete;
    };

private:
    friend class MemoryObject;
    friend class MemoryQuery;
    friend class MemoryEnum;
    friend class MemoryReference;

    void Record(const std::string& call);
    std::string Describe(const VARIANT& value) const;

    static int s_depth;

    int m_liveObjects = 0;
    std::map<IUnknown*, std::string> m_names;
    ComPtr<MemoryQuery> m_ptrQuery;
};

/// A text in UTF-8; null reads as "".
std::string Utf8Of(BSTR text);
