// The module that the tests of loading and creation use. Its entry point notes its calls in the environment
// variable WPTEST_EVENTS, which outlives it, and refuses to start while WPTEST_REFUSE is set.
#include "CountedObject.h"

#include <windows.h>

#include <objbase.h>

#include <string>

namespace
{
LONG g_objects = 0;

void Note(const wchar_t* event)
{
    wchar_t events[64] = L"";
    GetEnvironmentVariableW(L"WPTEST_EVENTS", events, 64);
    SetEnvironmentVariableW(L"WPTEST_EVENTS", (std::wstring(events) + event).c_str());
}

class CTestObject final : public CountedObject<IUnknown>
{
public:
    CTestObject() { ++g_objects; }

private:
    ~CTestObject() override { --g_objects; }
};

class CTestFactory final : public IClassFactory
{
public:
    virtual ~CTestFactory() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
        return *object ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        *object = nullptr;
        if (outer)
            return CLASS_E_NOAGGREGATION;
        auto* made = new CTestObject;
        made->AddRef();
        const HRESULT status = made->QueryInterface(iid, object);
        made->Release();
        return status;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

CTestFactory g_factory;
} // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    wchar_t refuse[8];
    if (reason == DLL_PROCESS_ATTACH)
        Note(L"A");
    if (reason == DLL_PROCESS_DETACH)
        Note(L"D");
    return GetEnvironmentVariableW(L"WPTEST_REFUSE", refuse, 8) == 0;
}

extern "C" HRESULT WINAPI WptestGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object)
{
    *object = nullptr;
    // The tests make identifiers of their own, of which these two words are fixed.
    if (clsid.Data2 != 0x7770 || clsid.Data3 != 0x7771)
        return CLASS_E_CLASSNOTAVAILABLE;
    return g_factory.QueryInterface(iid, object);
}

STDAPI DllCanUnloadNow()
{
    return g_objects == 0 ? S_OK : S_FALSE;
}

extern "C" int WINAPI WptestAnswer()
{
    return 42;
}
