// Components of the module, created as any host creates them.
#pragma once

#include "ComPtr.h"

#include <objbase.h>

/// Null if the class is not registered or does not have the interface.
template <class Interface>
ComPtr<Interface> CreateByProgId(const wchar_t* progId)
{
    CLSID clsid{};
    ComPtr<Interface> object;
    if (CLSIDFromProgID(progId, &clsid) == S_OK)
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), object.putVoid());
    return object;
}
