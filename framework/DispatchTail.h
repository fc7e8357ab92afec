// The four methods of IDispatch as an unpublished tail of an interface.
#pragma once

#include "TypeInfoHolder.h"

#include <oaidl.h>

/// Stands for `Interface` in the list of a ComObject. In the method table the published methods are followed
/// by GetTypeInfoCount, GetTypeInfo, GetIDsOfNames and Invoke. On purpose the interface derives from IUnknown
/// and QueryInterface does not support IDispatch: only a client that has the interface and knows of the tail
/// can call it.
///
/// Statuses: GetTypeInfo returns E_POINTER if `result` is null, else sets it to null first, and
/// DISP_E_BADINDEX for any index but 0. All but GetTypeInfoCount return the system's failure if no type
/// library can be loaded (see TypeInfoHolder).
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
