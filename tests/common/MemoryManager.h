// The object manager of a host in memory.
#pragma once

#include "MemoryRecord.h"

#include "ComPtr.h"

#include "qpobjects.h"

/// Answers GetObject for every class; GetRunningObjects is E_NOTIMPL. Each call is recorded:
/// `manager.GetObject({C366570E-FCB6-4EE6-BB6E-57E1C1EB51D6}, 1)`.
class MemoryManager final : public IQPFObjectManager
{
public:
    explicit MemoryManager(MemoryRecord& record) : m_record(record) {}

    /// What GetObject hands out; may be null. The host's macro loader at first.
    ComPtr<IQPFObject> object;
    /// What GetObject returns, along with `object`.
    HRESULT status = S_OK;

    /// References held by others than the host.
    ULONG References() const noexcept { return m_count - 1; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetRunningObjects(CLSID clsid, IEnumQPFObject** objects) override;
    HRESULT STDMETHODCALLTYPE GetObject(CLSID clsid, LONG autoCreate, IQPFObject** result) override;

private:
    ~MemoryManager() = default;

    MemoryRecord& m_record;
    ULONG m_count = 0;
};
