// Type libraries, as far as registration needs them. A library has its identity and no type information.
#include "guids.h"
#include "type_library.h"

#include "base/modules.h"
#include "base/text.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <new>

namespace winport
{
namespace
{
class CTypeLibrary final : public ITypeLib
{
public:
    explicit CTypeLibrary(TypeLibraryIdentity identity) : m_identity(std::move(identity)) {}
    virtual ~CTypeLibrary() = default;

    const TypeLibraryIdentity& Identity() const { return m_identity; }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        if (!object)
            return E_POINTER;
        *object = iid == __uuidof(IUnknown) || iid == __uuidof(ITypeLib) ? this : nullptr;
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
            delete this;
        return left;
    }

    STDMETHODIMP_(UINT) GetTypeInfoCount() override { return 0; }
    STDMETHODIMP GetTypeInfo(UINT, ITypeInfo** info) override { return None(info); }
    STDMETHODIMP GetTypeInfoOfGuid(REFGUID, ITypeInfo** info) override { return None(info); }

private:
    static HRESULT None(ITypeInfo** info)
    {
        if (!info)
            return E_INVALIDARG;
        *info = nullptr;
        return TYPE_E_ELEMENTNOTFOUND;
    }

    TypeLibraryIdentity m_identity;
    std::atomic<ULONG> m_references{1};
};

// Reads a library from the resources of a module; a path may end with the number of the resource.
bool ReadFromModule(std::wstring_view path, TypeLibraryIdentity* identity)
{
    WORD number = 1;
    const std::size_t slash = path.find_last_of(L"\\/");
    const std::wstring last(slash == std::wstring_view::npos ? path : path.substr(slash + 1));
    if (slash != std::wstring_view::npos && !last.empty() &&
        last.find_first_not_of(L"0123456789") == std::wstring::npos)
    {
        number = static_cast<WORD>(std::wcstoul(last.c_str(), nullptr, 10));
        path = path.substr(0, slash);
    }
    DWORD error = 0;
    const Module* module = FindModule(path);
    const Resource* resource =
        module ? module->resources.Find(ResourceId::FromArgument(L"TYPELIB"),
                                        ResourceId::FromArgument(MAKEINTRESOURCEW(number)), &error)
               : nullptr;
    return resource && ReadTypeLibrary(resource->data, resource->size, identity);
}

bool ReadFromFile(std::wstring_view path, TypeLibraryIdentity* identity)
{
    std::ifstream file(SystemPath(path), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    return ReadTypeLibrary(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), identity);
}

std::wstring VersionKey(REFGUID guid, WORD major, WORD minor)
{
    wchar_t version[16];
    std::swprintf(version, 16, L"%x.%x", static_cast<unsigned>(major), static_cast<unsigned>(minor));
    return L"TypeLib\\" + GuidText(guid) + L"\\" + version;
}

// The key of a locale and a platform, below that of the version.
std::wstring PlatformKey(LCID lcid, SYSKIND kind)
{
    wchar_t key[32];
    std::swprintf(key, 32, L"\\%x\\%ls", lcid, kind == SYS_WIN32 ? L"win32" : L"win64");
    return key;
}

LSTATUS WriteDefault(const std::wstring& path, const std::wstring& text)
{
    HKEY key = nullptr;
    LSTATUS status =
        RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS)
        return status;
    status = RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    return status;
}

HRESULT Register(const TypeLibraryIdentity& identity, const std::wstring& path,
                 const std::wstring& helpDirectory)
{
    // Set for a library from a file, whatever its own flags say.
    constexpr unsigned kHasDiskImage = 8;
    const std::wstring key = VersionKey(identity.guid, identity.major, identity.minor);
    const bool written =
        WriteDefault(key, identity.helpText) == ERROR_SUCCESS &&
        WriteDefault(key + PlatformKey(0, SYS_WIN64), path) == ERROR_SUCCESS &&
        WriteDefault(key + L"\\FLAGS", std::to_wstring(identity.flags | kHasDiskImage)) == ERROR_SUCCESS &&
        WriteDefault(key + L"\\HELPDIR", helpDirectory) == ERROR_SUCCESS;
    return written ? S_OK : TYPE_E_REGISTRYACCESS;
}

DWORD SubkeyCount(const std::wstring& path)
{
    HKEY key = nullptr;
    DWORD count = 0;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr,
                     nullptr, nullptr);
    RegCloseKey(key);
    return count;
}

// Deletes the key of the platform, and those of the locale, the version and the library that are empty then.
HRESULT Unregister(REFGUID guid, WORD major, WORD minor, LCID lcid, SYSKIND kind)
{
    const std::wstring version = VersionKey(guid, major, minor);
    const std::wstring library = version.substr(0, version.find_last_of(L'\\'));
    const std::wstring platform = version + PlatformKey(lcid, kind);
    const std::wstring locale = platform.substr(0, platform.find_last_of(L'\\'));
    LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, platform.c_str());
    if (status == ERROR_SUCCESS && SubkeyCount(locale) == 0)
        status = RegDeleteTreeW(HKEY_CLASSES_ROOT, locale.c_str());
    // The two sub keys of a version without locales: FLAGS and HELPDIR.
    if (status == ERROR_SUCCESS && SubkeyCount(version) <= 2)
        status = RegDeleteTreeW(HKEY_CLASSES_ROOT, version.c_str());
    if (status == ERROR_SUCCESS && SubkeyCount(library) == 0)
        status = RegDeleteTreeW(HKEY_CLASSES_ROOT, library.c_str());
    return status == ERROR_SUCCESS ? S_OK : TYPE_E_REGISTRYACCESS;
}

template <class F>
HRESULT WithoutExceptions(F&& body) noexcept
{
    try
    {
        return body();
    }
    catch (...)
    {
        return E_OUTOFMEMORY;
    }
}
} // namespace
} // namespace winport

using namespace winport;

HRESULT LoadTypeLib(const OLECHAR* file, ITypeLib** library)
{
    return LoadTypeLibEx(file, REGKIND_DEFAULT, library);
}

/// Loads the library of a module, of "module\number" or of a file. With REGKIND_REGISTER it is registered as
/// well; if that fails there is no library. TYPE_E_CANTLOADLIBRARY if there is none or its header is damaged.
HRESULT LoadTypeLibEx(LPCOLESTR file, REGKIND kind, ITypeLib** library)
{
    if (!file || !library)
        return E_INVALIDARG;
    *library = nullptr;
    return WithoutExceptions([&]() -> HRESULT {
        TypeLibraryIdentity identity;
        if (!ReadFromModule(file, &identity) && !ReadFromFile(file, &identity))
            return TYPE_E_CANTLOADLIBRARY;
        const HRESULT status = kind == REGKIND_REGISTER ? Register(identity, file, std::wstring()) : S_OK;
        if (SUCCEEDED(status))
            *library = new CTypeLibrary(std::move(identity));
        return status;
    });
}

/// Registers a library that LoadTypeLibEx loaded, under `path`. TYPE_E_REGISTRYACCESS if a key cannot be
/// written.
HRESULT RegisterTypeLib(ITypeLib* library, const OLECHAR* path, const OLECHAR* helpDirectory)
{
    const auto* known = dynamic_cast<CTypeLibrary*>(library);
    if (!known || !path)
        return E_INVALIDARG;
    return WithoutExceptions(
        [&] { return Register(known->Identity(), path, helpDirectory ? helpDirectory : L""); });
}

/// Removes what RegisterTypeLib wrote. TYPE_E_REGISTRYACCESS if the library is not registered or a key cannot
/// be deleted.
HRESULT UnRegisterTypeLib(REFGUID guid, WORD major, WORD minor, LCID lcid, SYSKIND kind)
{
    return WithoutExceptions([&] { return Unregister(guid, major, minor, lcid, kind); });
}

/// There is no type information to load, registered or not.
HRESULT LoadRegTypeLib(REFGUID, WORD, WORD, LCID, ITypeLib** library)
{
    if (!library)
        return E_INVALIDARG;
    *library = nullptr;
    return TYPE_E_LIBNOTREGISTERED;
}
