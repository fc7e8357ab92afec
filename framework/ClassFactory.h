// The class factory, one class for all component classes.
#pragma once

#include "ObjectMap.h"

#include <atomic>

/// Thread-safe, unlike the objects it makes. A module keeps each factory at count 1, which does not lock the
/// module; the step from 1 to 2 does, and the step back undoes it.
class ClassFactory final : public IClassFactory
{
public:
    /// A FactoryCreator. Returns E_POINTER for a null `result`, else nulls it first; E_OUTOFMEMORY;
    /// E_NOINTERFACE; S_OK.
    static HRESULT Create(InstanceCreator create, REFIID iid, void** result) noexcept;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    /// Returns E_POINTER for a null `result`, else nulls it first; CLASS_E_NOAGGREGATION for an outer object
    /// together with an interface other than IUnknown; else what the class's instance creator returns.
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;

    /// Raises or lowers the module's lock count. Always S_OK.
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    explicit ClassFactory(InstanceCreator create) noexcept : m_create(create) {}

    InstanceCreator m_create;
    std::atomic<ULONG> m_count{0};
};
