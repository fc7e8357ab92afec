// Type libraries exist on Windows only: here none is found, and calls through type information have none to go by.
#include <oleauto.h>

namespace
{
template <class T>
HRESULT Without(T** target, HRESULT status)
{
    if (!target)
        return E_INVALIDARG;
    *target = nullptr;
    return status;
}
}

HRESULT LoadTypeLib(const OLECHAR* file, ITypeLib** library)
{
    return LoadTypeLibEx(file, REGKIND_DEFAULT, library);
}

HRESULT LoadTypeLibEx(LPCOLESTR file, REGKIND, ITypeLib** library)
{
    return file ? Without(library, TYPE_E_CANTLOADLIBRARY) : E_INVALIDARG;
}

HRESULT LoadRegTypeLib(REFGUID, WORD, WORD, LCID, ITypeLib** library)
{
    return Without(library, TYPE_E_LIBNOTREGISTERED);
}

HRESULT QueryPathOfRegTypeLib(REFGUID, USHORT, USHORT, LCID, BSTR* path)
{
    return Without(path, TYPE_E_LIBNOTREGISTERED);
}

HRESULT RegisterTypeLib(ITypeLib* library, const OLECHAR* path, const OLECHAR*)
{
    return library && path ? TYPE_E_REGISTRYACCESS : E_INVALIDARG;
}

HRESULT UnRegisterTypeLib(REFGUID, WORD, WORD, LCID, SYSKIND)
{
    return TYPE_E_REGISTRYACCESS;
}

HRESULT DispGetIDsOfNames(ITypeInfo* info, LPOLESTR* names, UINT count, DISPID* ids)
{
    return info ? info->GetIDsOfNames(names, count, ids) : E_INVALIDARG;
}

HRESULT DispInvoke(void* instance, ITypeInfo* info, DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                   EXCEPINFO* exception, UINT* badArgument)
{
    return info ? info->Invoke(instance, id, flags, parameters, result, exception, badArgument) : E_INVALIDARG;
}
