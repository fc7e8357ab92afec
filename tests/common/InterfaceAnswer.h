// The two answers of a QueryInterface.
#pragma once

#include <unknwn.h>

template <class Interface>
HRESULT Give(Interface* object, void** result)
{
    object->AddRef();
    *result = object;
    return S_OK;
}

inline HRESULT Refuse(void** result)
{
    *result = nullptr;
    return E_NOINTERFACE;
}
