// The class factory of all component classes.
#pragma once

#include "ObjectMap.h"

#include <atomic>

/// Thread-safe, unlike the objects that it creates. The module caches each factory with a count of 1, which
/// does not lock the module; the step from 1 to 2 locks it and the step back unlocks it.
class ClassFactory final : public IClassFactory
{
public:
    /// A FactoryCreator. Returns E_POINTER if `result` is null, else sets it to null first; E_OUTOFMEMORY;
    /// E_NOINTERFACE; S_OK.
    static HRESULT Create(InstanceCreator create, REFIID iid, void** result) noexcept;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    /// Returns E_POINTER if `result` is null, else sets it to null first; CLASS_E_NOAGGREGATION for an outer
    /// object with an interface other than IUnknown; else the status of the class's instance creator.
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** result) override;

    /// Increments or decrements the module's lock count. Returns S_OK.
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

private:
    explicit ClassFactory(InstanceCreator create) noexcept : m_create(create) {}

    InstanceCreator m_create;
    std::atomic<ULONG> m_count{0};
};
