#include "MemoryManager.h"

HRESULT MemoryManager::GetRunningObjects(CLSID clsid, IEnumQPFObject** objects)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("manager.GetRunningObjects(" + TextOfGuid(clsid) + ")");
    return script.Run("GetRunningObjects", [&](const ScriptedCall& scripted) {
        *objects = nullptr;
        const auto found = m_running.find(TextOfGuid(clsid));
        if (found == m_running.end())
            return E_NOTIMPL;
        if (found->second.list && !scripted.givesNull)
        {
            found->second.list->Rewind();
            found->second.list->AddRef();
            *objects = found->second.list.get();
        }
        return found->second.status;
    });
}

HRESULT MemoryManager::GetObject(CLSID clsid, LONG autoCreate, IQPFObject** result)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("manager.GetObject(" + TextOfGuid(clsid) + ", " + std::to_string(autoCreate) + ")");
    return script.Run("GetObject", [&](const ScriptedCall& scripted) {
        *result = nullptr;
        const auto service = m_services.find(TextOfGuid(clsid));
        const auto set = m_objects.find(TextOfGuid(clsid));
        if (!scripted.givesNull)
        {
            const ComPtr<IQPFObject> given = set != m_objects.end()        ? set->second.object
                                             : service != m_services.end() ? ComPtr(service->second)
                                                                           : object;
            given.copyTo(result);
        }
        return set != m_objects.end() ? set->second.status : status;
    });
}

MemoryManager* MemoryManager::Set(REFCLSID clsid, IQPFObject* given, HRESULT result)
{
    m_objects[TextOfGuid(clsid)] = {ComPtr(given), result};
    return this;
}

MemoryManager* MemoryManager::Running(REFCLSID clsid, const ComPtr<MemoryRunning>& list, HRESULT result)
{
    m_running[TextOfGuid(clsid)] = {list, result};
    return this;
}

void MemoryManager::Service(REFCLSID clsid, IQPFObject* service)
{
    m_services[TextOfGuid(clsid)] = service;
}

void MemoryManager::Clear()
{
    object.reset();
    m_objects.clear();
    m_running.clear();
}
