// A service of the host that says that it has every interface, and gives none.
#pragma once

#include "qpobjects.h"

/// It lives as long as the program; references do not count.
inline IQPFObject* NullServices()
{
    class Service final : public IQPFObject
    {
    public:
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override
        {
            *result = nullptr;
            return S_OK;
        }
        ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
        ULONG STDMETHODCALLTYPE Release() override { return 1; }
    };
    static Service service;
    return &service;
}
