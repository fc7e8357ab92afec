// A list of bare objects.
#pragma once

#include "BareObject.h"

#include "ComPtr.h"

#include <cstddef>
#include <utility>
#include <vector>

/// Lives on the stack of its test.
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
