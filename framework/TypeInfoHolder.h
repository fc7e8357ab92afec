// The type information of an interface in the module's type library.
#pragma once

#include "ComPtr.h"

#include <oaidl.h>

/// Loads the type information at the first use and caches it, from the registered library, version 1.0, or
/// else from the module's resource. If neither can be loaded, every method returns that failure.
class TypeInfoHolder
{
public:
    /// Writes a reference to the type information of `interfaceId`, owned by the caller.
    HRESULT Get(REFIID interfaceId, LCID locale, ITypeInfo** result) noexcept;

    /// As in IDispatch. DISP_E_UNKNOWNINTERFACE if `reserved` is not IID_NULL.
    HRESULT GetIDsOfNames(REFIID interfaceId, REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                          DISPID* ids) noexcept;
    HRESULT Invoke(REFIID interfaceId, void* instance, DISPID member, REFIID reserved, LCID locale,
                   WORD flags, DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                   UINT* badArgument) noexcept;

private:
    HRESULT Load(REFIID interfaceId, LCID locale) noexcept;

    ComPtr<ITypeInfo> m_ptrTypeInfo;
};
