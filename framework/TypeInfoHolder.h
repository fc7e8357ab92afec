// The type information of one interface of the module's type library.
#pragma once

#include "ComPtr.h"

#include <oaidl.h>

/// Loads the information at its first use and keeps it: from the registered library, version 1.0, or else
/// from the one that is a resource of the module. Where neither can be loaded every operation returns that
/// failure.
class TypeInfoHolder
{
public:
    /// Gives the caller a reference to the information of `interfaceId`.
    HRESULT Get(REFIID interfaceId, LCID locale, ITypeInfo** result) noexcept;

    /// As IDispatch's; DISP_E_UNKNOWNINTERFACE unless `reserved` is IID_NULL.
    HRESULT GetIDsOfNames(REFIID interfaceId, REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                          DISPID* ids) noexcept;
    HRESULT Invoke(REFIID interfaceId, void* instance, DISPID member, REFIID reserved, LCID locale,
                   WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                   UINT* badArgument) noexcept;

private:
    HRESULT Load(REFIID interfaceId, LCID locale) noexcept;

    ComPtr<ITypeInfo> m_ptrTypeInfo;
};
