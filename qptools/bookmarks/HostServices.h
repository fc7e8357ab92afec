// The host's services that bookmarks need. A missing service acts as a failed call: E_POINTER.
#pragma once

#include "FixedText.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

namespace qptools
{
/// Gets a running object of the host, which is started if it does not run. Returns E_POINTER without a
/// manager, else the status of GetObject; `object` is whatever that delivered and may be null.
HRESULT StartObject(IQPFObjectManager* manager, const CLSID& classId, ComPtr<IQPFObject>& object);

/// Gets the gateway's number for the client of that name. Returns E_POINTER without a gateway, else the
/// status of the call.
HRESULT GetClientId(IQPIPDClient* gateway, const FixedText& client, LONG& id);

/// Gets a new query object. Returns E_POINTER without a gateway, else the status of the call; `query` is
/// whatever that delivered and may be null.
HRESULT GetQuery(IQPIPDClient* gateway, LONG clientId, ComPtr<IQP_Query>& query);
} // namespace qptools
