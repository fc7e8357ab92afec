// The four dispatch operations as an unpublished tail of an interface.
#pragma once

#include "TypeInfoHolder.h"

#include <oaidl.h>

/// Stands for `Interface` in the list of a ComObject. Behind the published methods the object's table of
/// methods goes on with GetTypeInfoCount, GetTypeInfo, GetIDsOfNames and Invoke. The interface itself stays
/// one over IUnknown and the object does not answer for IDispatch: only who holds the interface and knows of
/// the tail can call it. That is meant.
///
/// Statuses: GetTypeInfo returns E_POINTER for a null `result`, else nulls it first, and DISP_E_BADINDEX for
/// any index but 0; all but GetTypeInfoCount return the platform's failure where there is no type library to
/// load (see TypeInfoHolder).
template <class Interface>
class DispatchTail : public Interface
{
public:
    using Published = Interface;

    virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count)
    {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }

    virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** result)
    {
        if (!result)
            return E_POINTER;
        *result = nullptr;
        return index == 0 ? m_typeInfo.Get(__uuidof(Interface), locale, result) : DISP_E_BADINDEX;
    }

    virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                                    DISPID* ids)
    {
        return m_typeInfo.GetIDsOfNames(__uuidof(Interface), reserved, names, count, locale, ids);
    }

    virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                             DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                             UINT* badArgument)
    {
        return m_typeInfo.Invoke(__uuidof(Interface), static_cast<Interface*>(this), member, reserved, locale,
                                 flags, arguments, result, exception, badArgument);
    }

protected:
    ~DispatchTail() = default;

private:
    TypeInfoHolder m_typeInfo;
};
