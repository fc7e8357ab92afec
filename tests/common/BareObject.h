// A data object of which a test writes the few methods that it needs.
#pragma once

#include "CountedObject.h"

#include "qpobjects.h"

/// The methods of a data object; every call returns E_NOTIMPL. `Base` is an OwnedObject or
/// a CountedObject.
template <class Base>
class BareMethods : public Base
{
public:
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTableName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeName(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetAttributes(SAFEARRAY**, SAFEARRAY**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttribute(BSTR, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributes(SAFEARRAY**, SAFEARRAY**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetChildren(BSTR, IEnumBaseDataObject**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetType(BSTR, BSTR, IQPType**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClientId(LONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsDerivedFromClass(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributeMultiLingual(BSTR, LONG, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAttributesMultiLingual(SAFEARRAY**, LONG, SAFEARRAY**) override
    {
        return E_NOTIMPL;
    }
};

/// Lives on the stack of its test, which can see how often it is held.
using BareObject = BareMethods<OwnedObject<IQP_BaseDataObject>>;
