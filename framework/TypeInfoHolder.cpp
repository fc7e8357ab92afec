#include "TypeInfoHolder.h"

#include "ComBoundary.h"
#include "ComModule.h"
#include "Resources.h"
#include "TypeLibrary.h"

#include <oleauto.h>

namespace
{
HRESULT LoadLibraryOfModule(LCID locale, ComPtr<ITypeLib>& library)
{
    const ComModule& module = ComModule::Get();
    HRESULT status = E_UNEXPECTED;
    if (const GUID* libraryId = module.LibraryId())
        status = LoadRegTypeLib(*libraryId, kTypeLibraryMajor, kTypeLibraryMinor, locale, library.put());
    if (status < 0)
        status = LoadTypeLib(ModulePath(module.Instance()).c_str(), library.put());
    return status;
}
} // namespace

HRESULT TypeInfoHolder::Load(REFIID interfaceId, LCID locale) noexcept
{
    return ComBoundary([&]() -> HRESULT {
        if (m_ptrTypeInfo)
            return S_OK;
        ComPtr<ITypeLib> library;
        const HRESULT status = LoadLibraryOfModule(locale, library);
        return status < 0 ? status : library->GetTypeInfoOfGuid(interfaceId, m_ptrTypeInfo.put());
    });
}

HRESULT TypeInfoHolder::Get(REFIID interfaceId, LCID locale, ITypeInfo** result) noexcept
{
    const HRESULT status = Load(interfaceId, locale);
    return status < 0 ? status : m_ptrTypeInfo.copyTo(result);
}

HRESULT TypeInfoHolder::GetIDsOfNames(REFIID interfaceId, REFIID reserved, LPOLESTR* names, UINT count,
                                      LCID locale, DISPID* ids) noexcept
{
    if (!IsEqualIID(reserved, IID_NULL))
        return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids)
        return E_POINTER;
    const HRESULT status = Load(interfaceId, locale);
    return status < 0 ? status : m_ptrTypeInfo->GetIDsOfNames(names, count, ids);
}

HRESULT TypeInfoHolder::Invoke(REFIID interfaceId, void* instance, DISPID member, REFIID reserved,
                               LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                               EXCEPINFO* exception, UINT* badArgument) noexcept
{
    if (!IsEqualIID(reserved, IID_NULL))
        return DISP_E_UNKNOWNINTERFACE;
    const HRESULT status = Load(interfaceId, locale);
    if (status < 0)
        return status;
    return m_ptrTypeInfo->Invoke(instance, member, flags, arguments, result, exception, badArgument);
}
