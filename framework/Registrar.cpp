#include "Registrar.h"

#include "ComPtr.h"
#include "RegistryKey.h"
#include "RegistryScript.h"
#include "RegistryWriter.h"
#include "Resources.h"
#include "TypeLibrary.h"
#include "Utf8.h"

#include <objbase.h>

#include <oleauto.h>

namespace
{
/// The resource identifier of the type library, which LoadTypeLibEx loads by default.
constexpr UINT kTypeLibraryResource = 1;

/// The error of ResourceBytes. An empty resource sets none.
LSTATUS NoResourceError()
{
    const DWORD error = GetLastError();
    return error == ERROR_SUCCESS ? ERROR_INVALID_DATA : static_cast<LSTATUS>(error);
}

/// The first key outside every backup to which the script writes a value: a root, or a key marked NoRemove
/// that stands directly beneath a root or another such key. Empty if there is none.
std::wstring KeptKeyWithValue(const std::wstring& key, const std::vector<RegistryNode>& nodes)
{
    for (const RegistryNode& node : nodes)
    {
        if (node.kind == RegistryNode::Kind::Value)
            return key;
        if (node.kind != RegistryNode::Kind::NoRemove)
            continue;
        const std::wstring kept = key + L"\\" + node.name;
        const std::wstring found = node.value ? kept : KeptKeyWithValue(kept, node.children);
        if (!found.empty())
            return found;
    }
    return {};
}

std::wstring KeptKeyWithValue(const RegistryScript& script)
{
    for (const RegistryRoot& root : script.roots)
    {
        const std::wstring found = KeptKeyWithValue(root.name, root.children);
        if (!found.empty())
            return found;
    }
    return {};
}

/// Whether the name of a key holds %MODULE%, which would make it a path: several keys, of which a backup
/// covers only the last.
bool HasKeyNamedByModule(const std::vector<RegistryNode>& nodes)
{
    for (const RegistryNode& node : nodes)
    {
        if (node.kind != RegistryNode::Kind::Value && node.name.find(L"%MODULE%") != std::wstring::npos)
            return true;
        if (HasKeyNamedByModule(node.children))
            return true;
    }
    return false;
}

std::wstring TypeLibraryKey(const GUID& libraryId)
{
    wchar_t text[40];
    StringFromGUID2(libraryId, text, 40);
    return L"TypeLib\\" + std::wstring(text);
}
} // namespace

Registrar::Registrar(HINSTANCE module, const GUID& libraryId, RegistrationReport& report)
    : m_module(module), m_libraryId(libraryId), m_modulePath(ModulePath(module)), m_report(report)
{
}

Registrar::~Registrar()
{
    try
    {
        for (auto backup = m_backups.rbegin(); backup != m_backups.rend(); ++backup)
            backup->Restore(m_report);
    }
    catch (...)
    {
        // Out of memory while restoring: the remaining keys are not restored.
        return;
    }
}

HRESULT Registrar::UpdateScript(UINT id, bool add)
{
    const std::wstring source = m_modulePath + L", script " + std::to_wstring(id);
    const std::string_view bytes = ResourceBytes(m_module, id, L"REGISTRY");
    if (bytes.empty())
        return m_report.AddSystemError(source, NoResourceError());
    std::wstring text;
    if (!WideFromUtf8(bytes, text))
        return m_report.Add(source, L"the script is not UTF-8", HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    return UpdateScriptText(text, source, add);
}

HRESULT Registrar::UpdateScriptText(std::wstring_view text, const std::wstring& source, bool add)
{
    RegistryScriptError error;
    const auto script = ParseRegistryScript(text, error);
    if (!script)
        return m_report.Add(source + L", line " + std::to_wstring(error.line), error.reason,
                            HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    RegistryWriter writer(m_modulePath, m_report);
    if (!add)
        return writer.Remove(*script);
    const std::wstring kept = KeptKeyWithValue(*script);
    if (!kept.empty())
        return m_report.Add(source + L", " + kept,
                            L"a key that is never removed cannot have a value: a failed registration would "
                            L"leave it changed",
                            HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    for (const RegistryRoot& root : script->roots)
        if (HasKeyNamedByModule(root.children))
            return m_report.Add(source + L", " + root.name, L"%MODULE% cannot be part of a key's name",
                                HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    for (RegistryBackup& backup : writer.BackUp(*script))
        m_backups.push_back(std::move(backup));
    return writer.Apply(*script);
}

HRESULT Registrar::UpdateTypeLibrary(bool add)
{
    if (ResourceBytes(m_module, kTypeLibraryResource, L"TYPELIB").empty())
        return S_OK;
    const std::wstring key = TypeLibraryKey(m_libraryId);
    const HRESULT status = add ? RegisterTypeLibrary(key) : UnregisterTypeLibrary(key);
    if (status >= 0)
        return S_OK;
    return m_report.AddStatus(L"HKCR\\" + key, status);
}

HRESULT Registrar::RegisterTypeLibrary(const std::wstring& key)
{
    ComPtr<ITypeLib> library;
    const HRESULT status = LoadTypeLibEx(m_modulePath.c_str(), REGKIND_NONE, library.put());
    if (status < 0)
        return status;
    m_backups.emplace_back(HKEY_CLASSES_ROOT, L"HKCR", key);
    return RegisterTypeLib(library.get(), m_modulePath.data(), nullptr);
}

HRESULT Registrar::UnregisterTypeLibrary(const std::wstring& key)
{
    const std::wstring version =
        key + L"\\" + std::to_wstring(kTypeLibraryMajor) + L"." + std::to_wstring(kTypeLibraryMinor);
    if (!RegistryKeyExists(HKEY_CLASSES_ROOT, version))
        return S_OK;
    return UnRegisterTypeLib(m_libraryId, kTypeLibraryMajor, kTypeLibraryMinor, LOCALE_NEUTRAL, SYS_WIN64);
}
