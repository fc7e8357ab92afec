#include "MemoryEnum.h"

#include "InterfaceAnswer.h"
#include "MemoryHost.h"

MemoryEnum::MemoryEnum(MemoryHost& host, std::vector<ComPtr<MemoryObject>> objects)
    : m_host(host), m_objects(std::move(objects))
{
    ++m_host.m_liveObjects;
}

MemoryEnum::~MemoryEnum()
{
    --m_host.m_liveObjects;
}

HRESULT MemoryEnum::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IEnumBaseDataObject) || iid == __uuidof(IUnknown))
        return Give(static_cast<IEnumBaseDataObject*>(this), result);
    return Refuse(result);
}

ULONG MemoryEnum::AddRef()
{
    return ++m_count;
}

ULONG MemoryEnum::Release()
{
    const ULONG left = --m_count;
    if (left == 0)
        delete this;
    return left;
}

HRESULT MemoryEnum::RemNext(ULONG count, IQP_BaseDataObject** objects, ULONG* fetched)
{
    const MemoryHost::CallScope call;
    if (m_host.recording)
        m_host.Record("RemNext(" + std::to_string(count) + ")");
    ULONG given = 0;
    while (given < count && m_next < m_objects.size())
    {
        MemoryObject* object = m_objects[m_next++].get();
        if (object)
            object->AddRef();
        objects[given++] = object;
    }
    *fetched = given;
    const auto scripted = statuses.find(m_calls++);
    if (scripted != statuses.end())
        return scripted->second;
    return given == count ? S_OK : S_FALSE;
}

HRESULT MemoryEnum::Reset()
{
    m_next = 0;
    m_calls = 0;
    return S_OK;
}

HRESULT MemoryEnum::Skip(ULONG)
{
    m_host.Record("Skip()");
    return E_NOTIMPL;
}

HRESULT MemoryEnum::Clone(IEnumBaseDataObject**)
{
    m_host.Record("Clone()");
    return E_NOTIMPL;
}

HRESULT MemoryEnum::GetSingleNext(IQP_BaseDataObject**)
{
    m_host.Record("GetSingleNext()");
    return E_NOTIMPL;
}
