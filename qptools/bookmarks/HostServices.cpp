#include "HostServices.h"

#include "HostConstants.h"

namespace qptools
{
HRESULT StartObject(IQPFObjectManager* manager, const CLSID& classId, ComPtr<IQPFObject>& object)
{
    object.reset();
    return manager ? manager->GetObject(classId, kAutoCreate, object.put()) : E_POINTER;
}

HRESULT GetClientId(IQPIPDClient* gateway, const FixedText& client, LONG& id)
{
    id = 0;
    return gateway ? gateway->GetClientIdByName(client, &id) : E_POINTER;
}

HRESULT GetQuery(IQPIPDClient* gateway, LONG clientId, ComPtr<IQP_Query>& query)
{
    query.reset();
    return gateway ? gateway->GetServerCOMObject(clientId, kClassQuery, __uuidof(IQP_Query), query.putVoid())
                   : E_POINTER;
}
} // namespace qptools
