#include "ComModule.h"

#include "ComBoundary.h"
#include "ComPtr.h"
#include "Registrar.h"

#include <cassert>

namespace
{
HRESULT NoTable(RegistrationReport& report)
{
    return report.Add(L"module", L"it has not been started and knows no classes", E_UNEXPECTED);
}
} // namespace

ComModule& ComModule::Get() noexcept
{
    static ComModule module;
    return module;
}

HRESULT ComModule::Init(ObjectMapEntry* map, HINSTANCE instance, const GUID* libraryId) noexcept
{
    if (!map || !instance || !libraryId)
        return E_INVALIDARG;
    if (m_map)
        return E_UNEXPECTED;
    m_map = map;
    m_instance = instance;
    m_libraryId = libraryId;
    for (ObjectMapEntry* entry = m_map; entry->classId; ++entry)
        entry->classInit(true);
    return S_OK;
}

void ComModule::Term() noexcept
{
    if (!m_map)
        return;
    for (ObjectMapEntry* entry = m_map; entry->classId; ++entry)
    {
        entry->classInit(false);
        if (IUnknown* factory = entry->factory.exchange(nullptr))
            factory->Release();
    }
    m_map = nullptr;
    m_instance = nullptr;
    m_libraryId = nullptr;
}

HRESULT ComModule::GetClassObject(REFCLSID classId, REFIID iid, void** result) noexcept
{
    if (!result)
        return E_POINTER;
    *result = nullptr;
    for (ObjectMapEntry* entry = m_map; entry && entry->classId; ++entry)
    {
        if (!IsEqualCLSID(*entry->classId, classId))
            continue;
        const HRESULT status = entry->factory.load() ? S_OK : MakeFactory(*entry);
        return status < 0 ? status : entry->factory.load()->QueryInterface(iid, result);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT ComModule::MakeFactory(ObjectMapEntry& entry) noexcept
{
    return ComBoundary([&]() -> HRESULT {
        const std::lock_guard guard(m_factoryLock);
        if (entry.factory.load())
            return S_OK; // created by another thread meanwhile
        ComPtr<IUnknown> made;
        const HRESULT status = entry.createFactory(entry.createInstance, __uuidof(IUnknown), made.putVoid());
        if (status >= 0)
            entry.factory.store(made.detach());
        return status;
    });
}

HRESULT ComModule::UpdateServer(Registrar& registrar, bool add, bool typeLibrary, const CLSID* onlyClass)
{
    HRESULT first = S_OK;
    for (ObjectMapEntry* entry = m_map; entry->classId; ++entry)
    {
        if (onlyClass && !IsEqualCLSID(*onlyClass, *entry->classId))
            continue;
        const HRESULT status = entry->updateRegistry(registrar, add);
        if (status < 0 && add)
            return status;
        if (first >= 0)
            first = status;
    }
    if (typeLibrary)
    {
        const HRESULT status = registrar.UpdateTypeLibrary(add);
        if (first >= 0)
            first = status;
    }
    return first;
}

HRESULT ComModule::RegisterServer(bool typeLibrary, const CLSID* onlyClass,
                                  RegistrationReport& report) noexcept
{
    return ComBoundary([&]() -> HRESULT {
        if (!m_map)
            return NoTable(report);
        Registrar registrar(m_instance, *m_libraryId, report);
        const HRESULT status = UpdateServer(registrar, true, typeLibrary, onlyClass);
        if (status >= 0)
            registrar.Commit(); // otherwise the registrar's destructor restores everything
        return status;
    });
}

HRESULT ComModule::UnregisterServer(bool typeLibrary, const CLSID* onlyClass,
                                    RegistrationReport& report) noexcept
{
    return ComBoundary([&]() -> HRESULT {
        if (!m_map)
            return NoTable(report);
        Registrar registrar(m_instance, *m_libraryId, report);
        const HRESULT status = UpdateServer(registrar, false, typeLibrary, onlyClass);
        registrar.Commit();
        return status;
    });
}

void ComModule::Lock() noexcept
{
    ++m_lockCount;
}

void ComModule::Unlock() noexcept
{
    const LONG left = --m_lockCount;
    assert(left >= 0);
    static_cast<void>(left);
}
