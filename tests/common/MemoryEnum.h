// An enumerator of a host in memory.
#pragma once

#include "MemoryObject.h"

#include <cstddef>
#include <map>

/// Answers its objects one by one and S_FALSE after the last.
class MemoryEnum final : public IEnumBaseDataObject
{
public:
    MemoryEnum(MemoryHost& host, std::vector<ComPtr<MemoryObject>> objects);

    /// Statuses that RemNext returns in place of its own, by the number of the call from 0. The object is
    /// handed out all the same.
    std::map<std::size_t, HRESULT> statuses;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE RemNext(ULONG count, IQP_BaseDataObject** objects, ULONG* fetched) override;
    HRESULT STDMETHODCALLTYPE Reset() override;

    HRESULT STDMETHODCALLTYPE Skip(ULONG) override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject**) override;
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject**) override;

private:
    ~MemoryEnum();

    MemoryHost& m_host;
    std::vector<ComPtr<MemoryObject>> m_objects;
    std::size_t m_next = 0;
    std::size_t m_calls = 0;
    ULONG m_count = 0;
};
