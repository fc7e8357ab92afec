#include "MemoryGateway.h"

HRESULT MemoryGateway::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IQPIPDClient) && !offersGateway)
        return Refuse(result);
    return CountedObject::QueryInterface(iid, result);
}

HRESULT MemoryGateway::GetServerCOMObject(LONG client, REFCLSID clsid, REFIID iid, void** result)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
    {
        const std::string wanted = iid == __uuidof(IQP_Query) ? "IQP_Query" : TextOfGuid(iid);
        m_record.Record("gateway.GetServerCOMObject(" + std::to_string(client) + ", " + TextOfGuid(clsid) +
                        ", " + wanted + ")");
    }
    return script.Run("GetServerCOMObject", [&](const ScriptedCall& scripted) {
        *result = nullptr;
        if (scripted.givesNull)
            return S_OK;
        return (object ? object.get() : m_query)->QueryInterface(iid, result);
    });
}

HRESULT MemoryGateway::Reserved1()
{
    m_record.Record("gateway.Reserved1()");
    return E_NOTIMPL;
}

HRESULT MemoryGateway::GetClientIdByName(BSTR name, LONG* client)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("gateway.GetClientIdByName(" + Utf8OrNull(name) + ")");
    return script.Run("GetClientIdByName", [&](const ScriptedCall& scripted) {
        *client = scripted.givesNull ? 0 : clientId;
        return S_OK;
    });
}
