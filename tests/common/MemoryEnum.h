// The enumerators of a host in memory.
#pragma once

#include "CountedObject.h"
#include "MemoryObject.h"
#include "MemoryRecord.h"

#include "qpconfig.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// Answers its objects one by one and S_FALSE after the last. `Enum` is the interface, `Element` that of the
/// objects, which may be null.
template <class Enum, class Element>
class MemoryList final : public CountedObject<Enum>
{
public:
    /// `name` precedes each recorded call, unless it is empty.
    template <class Object>
    MemoryList(MemoryRecord& record, const std::vector<ComPtr<Object>>& objects, const std::string& name = {})
        : m_record(record), m_life(record), m_name(name.empty() ? name : name + ".")
    {
        for (const ComPtr<Object>& object : objects)
            m_objects.emplace_back(object.get());
    }

    /// Statuses that RemNext and GetSingleNext return in place of their own, by the number of the call from
    /// 0. The object is handed out all the same.
    std::map<std::size_t, HRESULT> statuses;

    /// Counts that RemNext reports in place of the objects that it handed out, by the number of the call.
    std::map<std::size_t, ULONG> counts;

    /// What Reset returns. The list begins again all the same.
    HRESULT resetStatus = S_OK;

    /// Begins again. Not a call of the host: for the tests and for those who hand the list out.
    void Rewind() noexcept
    {
        m_next = 0;
        m_calls = 0;
    }

    HRESULT STDMETHODCALLTYPE RemNext(ULONG count, Element** objects, ULONG* fetched) override
    {
        const MemoryRecord::CallScope call;
        if (m_record.recording)
            m_record.Record(m_name + "RemNext(" + std::to_string(count) + ")");
        ULONG given = 0;
        while (given < count && m_next < m_objects.size())
            m_objects[m_next++].copyTo(&objects[given++]);
        const auto counted = counts.find(m_calls);
        *fetched = counted == counts.end() ? given : counted->second;
        return Status(given == count ? S_OK : S_FALSE);
    }

    HRESULT STDMETHODCALLTYPE Reset() override
    {
        const MemoryRecord::CallScope call;
        if (m_record.recording)
            m_record.Record(m_name + "Reset()");
        Rewind();
        return resetStatus;
    }

    HRESULT STDMETHODCALLTYPE GetSingleNext(Element** object) override
    {
        const MemoryRecord::CallScope call;
        if (m_record.recording)
            m_record.Record(m_name + "GetSingleNext()");
        *object = nullptr;
        const bool any = m_next < m_objects.size();
        if (any)
            m_objects[m_next++].copyTo(object);
        return Status(any ? S_OK : S_FALSE);
    }

    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return Unexpected("Skip()"); }
    HRESULT STDMETHODCALLTYPE Clone(Enum**) override { return Unexpected("Clone()"); }

private:
    ~MemoryList() override = default;

    HRESULT Status(HRESULT own)
    {
        const auto scripted = statuses.find(m_calls++);
        return scripted == statuses.end() ? own : scripted->second;
    }

    HRESULT Unexpected(const char* call)
    {
        m_record.Record(m_name + call);
        return E_NOTIMPL;
    }

    MemoryRecord& m_record;
    const MemoryRecord::Life m_life;
    const std::string m_name;
    std::vector<ComPtr<Element>> m_objects;
    std::size_t m_next = 0;
    std::size_t m_calls = 0;
};
