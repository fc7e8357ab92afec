// Adds classes and a type library to the registry, all or nothing.
#pragma once

#include "RegistrationReport.h"
#include "RegistryBackup.h"

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

/// One registration. Before it changes a key it copies what the key holds. Unless Commit is called, the
/// destructor restores all copies, the last one first. A key marked NoRemove is not copied: it is created if
/// it is missing, and stays. So that nothing else is left changed, a script that gives such a key or a root a
/// value is refused, and so is one with a key named by %MODULE%.
class Registrar
{
public:
    /// `report` receives every failure and must outlive the registrar.
    Registrar(HINSTANCE module, const GUID& libraryId, RegistrationReport& report);
    ~Registrar();
    Registrar(const Registrar&) = delete;
    Registrar& operator=(const Registrar&) = delete;

    /// Applies the script that is the module's resource REGISTRY `id` (UTF-8), or removes what it wrote.
    /// Returns the system's code if the resource is missing, ERROR_INVALID_DATA as an HRESULT for a text that
    /// is not a script or is refused, and otherwise what RegistryWriter returns.
    HRESULT UpdateScript(UINT id, bool add);

    /// The same with the text given; `source` names it in messages.
    HRESULT UpdateScriptText(std::wstring_view text, const std::wstring& source, bool add);

    /// Registers the type library that is the module's resource TYPELIB 1, or removes its registration.
    /// Returns S_OK if the module has no such resource, or if the library to be removed is not registered.
    HRESULT UpdateTypeLibrary(bool add);

    /// Keeps the changes: the destructor restores nothing.
    void Commit() noexcept { m_backups.clear(); }

private:
    HRESULT RegisterTypeLibrary(const std::wstring& key);
    HRESULT UnregisterTypeLibrary(const std::wstring& key);

    HINSTANCE m_module;
    GUID m_libraryId;
    std::wstring m_modulePath;
    RegistrationReport& m_report;
    std::vector<RegistryBackup> m_backups;
};

/// A RegistrationFunction for a class whose script is the resource `Id`.
template <UINT Id>
HRESULT UpdateClassRegistration(Registrar& registrar, bool add)
{
    return registrar.UpdateScript(Id, add);
}
