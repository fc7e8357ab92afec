#include "ClassFactory.h"

#include "ComModule.h"

#include <new>

HRESULT ClassFactory::Create(InstanceCreator create, REFIID iid, void** result) noexcept
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    auto* factory = new (std::nothrow) ClassFactory(create);
    if (!factory)
        return E_OUTOFMEMORY;
    const HRESULT status = factory->QueryInterface(iid, result);
    if (status < 0)
        delete factory;
    return status;
}

HRESULT STDMETHODCALLTYPE ClassFactory::QueryInterface(REFIID iid, void** result)
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    if (!IsEqualIID(iid, __uuidof(IUnknown)) && !IsEqualIID(iid, __uuidof(IClassFactory)))
        return E_NOINTERFACE;
    *result = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE ClassFactory::AddRef()
{
    const ULONG count = ++m_count;
    if (count == 2)
        ComModule::Get().Lock();
    return count;
}

ULONG STDMETHODCALLTYPE ClassFactory::Release()
{
    const ULONG count = --m_count;
    if (count == 1)
        ComModule::Get().Unlock();
    if (count == 0)
        delete this;
    return count;
}

HRESULT STDMETHODCALLTYPE ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** result)
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    if (outer && !IsEqualIID(iid, __uuidof(IUnknown)))
        return CLASS_E_NOAGGREGATION;
    return m_create(outer, iid, result);
}

HRESULT STDMETHODCALLTYPE ClassFactory::LockServer(BOOL lock)
{
    if (lock)
        ComModule::Get().Lock();
    else
        ComModule::Get().Unlock();
    return S_OK;
}
