#include "EmptyModule.h"

#include "CountedObject.h"

#include "Resources.h"
#include "winport_module.h"

#include <objbase.h>
#include <windows.h>

#include <iterator>
#include <string>

const CLSID kEmptyClass = {0x2f1c9a10, 0x6d5e, 0x4b0c, {0x9a, 0x31, 0x7e, 0x22, 0x5c, 0x80, 0xd4, 0x66}};

namespace
{
class EmptyObject final : public CountedObject<IUnknown>
{
};

class EmptyFactory final : public IClassFactory
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        *result = iid == __uuidof(IUnknown) || iid == __uuidof(IClassFactory) ? this : nullptr;
        return *result ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** result) override
    {
        auto* object = new EmptyObject;
        object->AddRef();
        const HRESULT status = object->QueryInterface(iid, result);
        object->Release();
        return status;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

BOOL EmptyMain(HINSTANCE, DWORD, LPVOID)
{
    return TRUE;
}

HRESULT EmptyGetClassObject(REFCLSID, REFIID iid, void** result)
{
    static EmptyFactory factory;
    return factory.QueryInterface(iid, result);
}

HRESULT EmptyCanUnloadNow()
{
    return S_OK;
}

const WinportExport kExports[] = {
    {"DllGetClassObject", reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&EmptyGetClassObject))},
    {"DllCanUnloadNow", reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&EmptyCanUnloadNow))}};

const WinportModule kModule = {"qp_empty.dll", &EmptyMain, kExports, std::size(kExports), nullptr, 0};

[[maybe_unused]] const int kRegistered = WinportRegisterModule(&kModule);
} // namespace

void RegisterEmptyModule()
{
    wchar_t id[64];
    StringFromGUID2(kEmptyClass, id, static_cast<int>(std::size(id)));
    const HMODULE module = LoadLibraryW(L"qp_empty.dll");
    const std::wstring path = ModulePath(module);
    FreeLibrary(module);

    const std::wstring name = L"CLSID\\" + std::wstring(id) + L"\\InprocServer32";
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CLASSES_ROOT, name.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(path.c_str()),
                   static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
}
