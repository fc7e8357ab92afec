// Class objects: registered by the process, or from the module in the registry.
#include "apartment.h"
#include "guids.h"

#include "base/immortal.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace winport
{
namespace
{
using GetClassObjectFunction = HRESULT (*)(REFCLSID, REFIID, LPVOID*);
using CanUnloadFunction = HRESULT (*)();

struct RegisteredObject
{
    DWORD cookie;
    CLSID clsid;
    IUnknown* object; ///< a counted reference
    DWORD context;
    bool once; ///< returned once only
};

// A component module that the runtime has loaded.
struct Server
{
    HMODULE module;
    GetClassObjectFunction getClassObject;
    CanUnloadFunction canUnload; ///< null: the module stays loaded
    unsigned calls = 0;          ///< running calls into it
};

struct ClassTable
{
    std::recursive_mutex lock;
    std::vector<RegisteredObject> objects;
    std::vector<Server> servers;
    DWORD lastCookie = 0;
};

ClassTable& Table()
{
    return Immortal<ClassTable>();
}

template <class F>
F Export(HMODULE module, const char* name)
{
    return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// Returns a counted reference to the object registered for a class; null if there is none.
IUnknown* RegisteredFor(REFCLSID clsid, DWORD context)
{
    const std::lock_guard lock(Table().lock);
    auto& objects = Table().objects;
    const auto found = std::find_if(objects.begin(), objects.end(), [&](const RegisteredObject& entry) {
        return entry.clsid == clsid && (entry.context & context) != 0;
    });
    if (found == objects.end())
        return nullptr;
    IUnknown* object = found->object;
    if (found->once)
        objects.erase(found);
    else
        object->AddRef();
    return object;
}

// Loads a module, once for all calls, and counts a call into it as begun.
HRESULT BeginCall(const std::wstring& path, Server* server)
{
    const HMODULE module = LoadLibraryW(path.c_str());
    if (!module)
        return HRESULT_FROM_WIN32(GetLastError());
    const std::lock_guard lock(Table().lock);
    auto& servers = Table().servers;
    auto known = std::find_if(servers.begin(), servers.end(),
                              [&](const Server& entry) { return entry.module == module; });
    if (known != servers.end())
        FreeLibrary(module);
    else
    {
        const auto getClassObject = Export<GetClassObjectFunction>(module, "DllGetClassObject");
        if (!getClassObject)
        {
            FreeLibrary(module);
            return CO_E_ERRORINDLL;
        }
        const auto canUnload = Export<CanUnloadFunction>(module, "DllCanUnloadNow");
        known = servers.insert(servers.end(), Server{module, getClassObject, canUnload});
    }
    ++known->calls;
    *server = *known;
    return S_OK;
}

void EndCall(HMODULE module)
{
    const std::lock_guard lock(Table().lock);
    for (Server& entry : Table().servers)
        if (entry.module == module)
            --entry.calls;
}

HRESULT FromModule(REFCLSID clsid, REFIID iid, void** object)
{
    std::wstring path;
    if (ReadClassesText(L"CLSID\\" + GuidText(clsid) + L"\\InprocServer32", &path) != ERROR_SUCCESS)
        return REGDB_E_CLASSNOTREG;
    Server server{};
    HRESULT status = BeginCall(path, &server);
    if (FAILED(status))
        return status;
    status = server.getClassObject(clsid, iid, object);
    EndCall(server.module);
    return status;
}

HRESULT FindClassObject(REFCLSID clsid, DWORD context, REFIID iid, void** object)
{
    if (IUnknown* registered = RegisteredFor(clsid, context))
    {
        const HRESULT status = registered->QueryInterface(iid, object);
        registered->Release();
        return status;
    }
    return (context & CLSCTX_INPROC_SERVER) != 0 ? FromModule(clsid, iid, object) : REGDB_E_CLASSNOTREG;
}
} // namespace

void ShutDownClasses()
{
    ClassTable& table = Table();
    const std::lock_guard lock(table.lock);
    std::vector<RegisteredObject> objects = std::move(table.objects);
    std::vector<Server> servers = std::move(table.servers);
    table.objects.clear();
    table.servers.clear();
    for (const RegisteredObject& entry : objects)
        entry.object->Release();
    for (const Server& entry : servers)
        FreeLibrary(entry.module);
}
} // namespace winport

using namespace winport;

HRESULT CoGetClassObject(REFCLSID clsid, DWORD context, COSERVERINFO*, REFIID iid, LPVOID* object)
{
    if (!object)
        return E_INVALIDARG;
    *object = nullptr;
    if (!InApartment())
        return CO_E_NOTINITIALIZED;
    try
    {
        return FindClassObject(clsid, context, iid, object);
    }
    catch (...)
    {
        return E_OUTOFMEMORY;
    }
}

HRESULT CoCreateInstance(REFCLSID clsid, LPUNKNOWN outer, DWORD context, REFIID iid, LPVOID* object)
{
    if (!object)
        return E_POINTER;
    *object = nullptr;
    IClassFactory* factory = nullptr;
    HRESULT status = CoGetClassObject(clsid, context, nullptr, __uuidof(IClassFactory),
                                      reinterpret_cast<void**>(&factory));
    if (FAILED(status))
        return status;
    status = factory->CreateInstance(outer, iid, object);
    factory->Release();
    return status;
}

HRESULT CoRegisterClassObject(REFCLSID clsid, LPUNKNOWN object, DWORD context, DWORD flags, DWORD* cookie)
{
    if (!object || !cookie)
        return E_INVALIDARG;
    *cookie = 0;
    if (!InApartment())
        return CO_E_NOTINITIALIZED;
    try
    {
        ClassTable& table = Table();
        const std::lock_guard lock(table.lock);
        // A multiple-use local server also serves its own process.
        if ((context & CLSCTX_LOCAL_SERVER) != 0 && (flags & REGCLS_MULTIPLEUSE) != 0)
            context |= CLSCTX_INPROC_SERVER;
        const bool once = (flags & (REGCLS_MULTIPLEUSE | REGCLS_MULTI_SEPARATE)) == 0;
        table.objects.push_back({table.lastCookie + 1, clsid, object, context, once});
        object->AddRef();
        *cookie = ++table.lastCookie;
        return S_OK;
    }
    catch (...)
    {
        return E_OUTOFMEMORY;
    }
}

HRESULT CoRevokeClassObject(DWORD cookie)
{
    if (!InApartment())
        return CO_E_NOTINITIALIZED;
    IUnknown* object = nullptr;
    {
        const std::lock_guard lock(Table().lock);
        auto& objects = Table().objects;
        const auto found = std::find_if(objects.begin(), objects.end(), [&](const RegisteredObject& entry) {
            return entry.cookie == cookie;
        });
        if (found == objects.end())
            return E_INVALIDARG;
        object = found->object;
        objects.erase(found);
    }
    object->Release();
    return S_OK;
}

void CoFreeUnusedLibrariesEx(DWORD, DWORD)
{
    ClassTable& table = Table();
    const std::lock_guard lock(table.lock);
    for (std::size_t i = 0; i < table.servers.size();)
    {
        const Server server = table.servers[i];
        if (server.calls == 0 && server.canUnload && server.canUnload() == S_OK)
        {
            table.servers.erase(table.servers.begin() + static_cast<std::ptrdiff_t>(i));
            FreeLibrary(server.module);
        }
        else
            ++i;
    }
}
