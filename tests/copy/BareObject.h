// A data object of which a test writes the few methods that it needs.
#pragma once

#include "InterfaceAnswer.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <cstddef>
#include <utility>
#include <vector>

/// Every call returns E_NOTIMPL. Lives on the stack of its test, which can see how often it is held.
class BareObject : public IQP_BaseDataObject
{
public:
    BareObject() = default;
    BareObject(const BareObject&) = delete;
    BareObject& operator=(const BareObject&) = delete;

    /// References held.
    ULONG count = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        if (iid == __uuidof(IQP_BaseDataObject) || iid == __uuidof(IUnknown))
            return Give(static_cast<IQP_BaseDataObject*>(this), result);
        return Refuse(result);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count; }
    ULONG STDMETHODCALLTYPE Release() override { return --count; }

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

protected:
    // After the methods of the interface, whose order it must not change.
    virtual ~BareObject() = default;
};

/// A list of bare objects. Lives on the stack of its test.
class BareList final : public IEnumBaseDataObject
{
public:
    explicit BareList(std::vector<IQP_BaseDataObject*> objects) : m_objects(std::move(objects)) {}
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** result) override { return Refuse(result); }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE RemNext(ULONG, IQP_BaseDataObject** object, ULONG*) override
    {
        return GetSingleNext(object);
    }
    HRESULT STDMETHODCALLTYPE GetSingleNext(IQP_BaseDataObject** object) override
    {
        if (m_next == m_objects.size())
            return S_FALSE;
        return ComPtr(m_objects[m_next++]).copyTo(object);
    }
    HRESULT STDMETHODCALLTYPE Reset() override
    {
        m_next = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumBaseDataObject**) override { return E_NOTIMPL; }
    virtual ~BareList() = default;

private:
    const std::vector<IQP_BaseDataObject*> m_objects;
    std::size_t m_next = 0;
};
