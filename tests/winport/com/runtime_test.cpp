// The component runtime: identifiers, apartments, class objects, creation out of a module.
#include "WinportSupport.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <thread>

namespace
{
const GUID kSample = {0x1234ABCD, 0x0102, 0xF0E0, {0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88}};
const wchar_t kSampleText[] = L"{1234ABCD-0102-F0E0-1122-334455667788}";

// A class of the test module; each call makes a new identifier, so that tests may run beside each other.
CLSID FreshClass()
{
    CLSID clsid = UniqueGuid();
    clsid.Data4[1] = static_cast<BYTE>(clsid.Data2);
    clsid.Data2 = 0x7770;
    clsid.Data3 = 0x7771;
    return clsid;
}

std::wstring Text(REFGUID guid)
{
    wchar_t text[40] = L"";
    EXPECT_EQ(StringFromGUID2(guid, text, 40), 39);
    return text;
}

void SetDefault(const std::wstring& path, const std::wstring& text)
{
    HKEY key = nullptr;
    ASSERT_EQ(
        RegCreateKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr),
        ERROR_SUCCESS);
    RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
}

// A class registered for the time of a test.
class CRegisteredClass
{
public:
    explicit CRegisteredClass(const std::wstring& server, CLSID clsid = FreshClass())
        : m_clsid(clsid), m_key(L"CLSID\\" + Text(clsid))
    {
        SetDefault(m_key + L"\\InprocServer32", server);
    }
    ~CRegisteredClass() { RegDeleteTreeW(HKEY_CLASSES_ROOT, m_key.c_str()); }
    CRegisteredClass(const CRegisteredClass&) = delete;
    CRegisteredClass& operator=(const CRegisteredClass&) = delete;

    const CLSID& Id() const { return m_clsid; }
    const std::wstring& Key() const { return m_key; }

private:
    CLSID m_clsid;
    std::wstring m_key;
};

bool IsLoaded()
{
    return GetModuleHandleW(L"wptestmodule.dll") != nullptr;
}

HRESULT Create(REFCLSID clsid, IUnknown** object, IUnknown* outer = nullptr, REFIID iid = IID_IUnknown,
               DWORD context = CLSCTX_INPROC_SERVER)
{
    return CoCreateInstance(clsid, outer, context, iid, reinterpret_cast<void**>(object));
}

// Inside the runtime, single-threaded, for the time of a test.
class Creation : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(CoInitialize(nullptr), S_OK); }
    void TearDown() override { CoUninitialize(); }
};

// A class object that counts its references and makes nothing.
class CCountedFactory : public IClassFactory
{
public:
    virtual ~CCountedFactory() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown || iid == IID_IClassFactory ? this : nullptr;
        if (!*object)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID, void** object) override
    {
        *object = nullptr;
        return E_ABORT;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    ULONG references = 1;
};
} // namespace

TEST(Identifiers, AreReadFromText)
{
    CLSID clsid{};
    EXPECT_EQ(CLSIDFromString(kSampleText, &clsid), S_OK);
    EXPECT_EQ(clsid, kSample);
    EXPECT_EQ(CLSIDFromString(L"{1234abcd-0102-f0e0-1122-334455667788}", &clsid), S_OK);
    EXPECT_EQ(clsid, kSample);
}

TEST(Identifiers, AreRefusedInAnyOtherForm)
{
    CLSID clsid = kSample;
    for (const wchar_t* text :
         {L"{1234ABCD-0102-F0E0-1122-33445566778}", L"{1234ABCD-0102-F0E0-1122-334455667788", L"{1234ABCD}",
          L"{1234ABCG-0102-F0E0-1122-334455667788}", L"{1234ABCD-0102-F0E0-1122-334455667788}x",
          L"{1234ABCD 0102-F0E0-1122-334455667788}", L"1234ABCD-0102-F0E0-1122-334455667788", L"",
          L"no.such.class"})
        EXPECT_EQ(CLSIDFromString(text, &clsid), CO_E_CLASSSTRING);
}

TEST(Identifiers, AreNullForNoText)
{
    CLSID clsid = kSample;
    EXPECT_EQ(CLSIDFromString(nullptr, &clsid), S_OK);
    EXPECT_EQ(clsid, GUID{});
    IID iid = kSample;
    EXPECT_EQ(IIDFromString(nullptr, &iid), S_OK);
    EXPECT_EQ(iid, GUID{});
}

TEST(Identifiers, OfInterfacesAreReadFromText)
{
    IID iid{};
    EXPECT_EQ(IIDFromString(kSampleText, &iid), S_OK);
    EXPECT_EQ(iid, kSample);
    EXPECT_EQ(IIDFromString(L"{12}", &iid), E_INVALIDARG);
    EXPECT_EQ(IIDFromString(L"{1234ABCG-0102-F0E0-1122-334455667788}", &iid), CO_E_IIDSTRING);
}

TEST(Identifiers, AreWrittenInCapitals)
{
    wchar_t text[39] = L"x";
    EXPECT_EQ(StringFromGUID2(kSample, text, 38), 0);
    EXPECT_EQ(StringFromGUID2(kSample, text, 39), 39);
    EXPECT_EQ(std::wstring(text), kSampleText);
}

TEST(Identifiers, BelongToInterfaces)
{
    EXPECT_EQ(__uuidof(IUnknown), IID_IUnknown);
    EXPECT_EQ(__uuidof(IClassFactory), IID_IClassFactory);
}

TEST(TaskMemory, IsAllocatedAndFreed)
{
    auto* memory = static_cast<char*>(CoTaskMemAlloc(4));
    ASSERT_NE(memory, nullptr);
    memory[0] = 'a';
    memory[3] = 'd';
    CoTaskMemFree(memory);
    CoTaskMemFree(nullptr);
}

TEST(Apartment, IsEnteredAndLeftInPairs)
{
    IUnknown* object = nullptr;
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
    CoUninitialize();
    EXPECT_EQ(Create(FreshClass(), &object), REGDB_E_CLASSNOTREG);
    CoUninitialize();
    EXPECT_EQ(Create(FreshClass(), &object), CO_E_NOTINITIALIZED);
    CoUninitialize();
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    CoUninitialize();
}

TEST(Apartment, IsEachThreadsOwn)
{
    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    std::thread([] {
        IUnknown* object = nullptr;
        EXPECT_EQ(Create(FreshClass(), &object), CO_E_NOTINITIALIZED);
    }).join();
    CoUninitialize();
}

TEST(Apartment, OfManyThreadsTakesInTheOthers)
{
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    std::thread([] {
        IUnknown* object = nullptr;
        EXPECT_EQ(Create(FreshClass(), &object), REGDB_E_CLASSNOTREG);
    }).join();
    CoUninitialize();
}

TEST_F(Creation, NeedsARegisteredClass)
{
    auto* object = reinterpret_cast<IUnknown*>(16);
    EXPECT_EQ(Create(FreshClass(), &object), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(CoCreateInstance(FreshClass(), nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, nullptr),
              E_POINTER);
}

TEST_F(Creation, LoadsTheModuleAndAsksItsFactory)
{
    const CRegisteredClass registered(TestModulePath());
    IUnknown* object = nullptr;
    ASSERT_EQ(Create(registered.Id(), &object), S_OK);
    EXPECT_NE(object, nullptr);
    EXPECT_TRUE(IsLoaded());
    EXPECT_EQ(object->Release(), 0u);
}

TEST_F(Creation, FailsAsTheFactoryFails)
{
    const CRegisteredClass registered(TestModulePath());
    CCountedFactory outer;
    auto* object = reinterpret_cast<IUnknown*>(16);
    EXPECT_EQ(Create(registered.Id(), &object, nullptr, kSample), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(Create(registered.Id(), &object, &outer), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

TEST_F(Creation, FailsWhenTheModuleDoesNotKnowTheClass)
{
    const CLSID unknown = UniqueGuid();
    const CRegisteredClass registered(TestModulePath(), unknown);
    IUnknown* object = nullptr;
    EXPECT_EQ(Create(unknown, &object), CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(Creation, FailsWithoutTheModule)
{
    const CRegisteredClass registered(L"C:\\nowhere\\wpnosuchmodule.dll");
    auto* object = reinterpret_cast<IUnknown*>(16);
    EXPECT_LT(Create(registered.Id(), &object), 0);
    EXPECT_EQ(object, nullptr);
}

TEST_F(Creation, IsInProcessHere)
{
    const CRegisteredClass registered(TestModulePath());
    IUnknown* object = nullptr;
    EXPECT_EQ(Create(registered.Id(), &object, nullptr, IID_IUnknown, CLSCTX_LOCAL_SERVER),
              REGDB_E_CLASSNOTREG);
    ASSERT_EQ(Create(registered.Id(), &object, nullptr, IID_IUnknown, CLSCTX_ALL), S_OK);
    object->Release();
}

TEST_F(Creation, GivesClassObjects)
{
    const CRegisteredClass registered(TestModulePath());
    IClassFactory* factory = nullptr;
    ASSERT_EQ(CoGetClassObject(registered.Id(), CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               reinterpret_cast<void**>(&factory)),
              S_OK);
    IUnknown* object = nullptr;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(&object)), S_OK);
    object->Release();
    factory->Release();
}

TEST_F(Creation, KeepsTheModuleUntilItIsUnused)
{
    const CRegisteredClass registered(TestModulePath());
    IUnknown* object = nullptr;
    ASSERT_EQ(Create(registered.Id(), &object), S_OK);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_TRUE(IsLoaded());
    object->Release();
    // The first call marks the module as unused, the second unloads it.
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(IsLoaded());
    ASSERT_EQ(Create(registered.Id(), &object), S_OK);
    object->Release();
}

TEST_F(Creation, IsByProgIdToo)
{
    const CRegisteredClass registered(TestModulePath());
    const std::wstring progId = L"Winport.Test." + std::to_wstring(GetCurrentProcessId());
    SetDefault(progId + L"\\CLSID", Text(registered.Id()));
    CLSID clsid{};
    EXPECT_EQ(CLSIDFromProgID(progId.c_str(), &clsid), S_OK);
    EXPECT_EQ(clsid, registered.Id());
    clsid = {};
    EXPECT_EQ(CLSIDFromString(progId.c_str(), &clsid), S_OK);
    EXPECT_EQ(clsid, registered.Id());
    std::wstring upper = progId;
    upper.replace(0, 12, L"WINPORT.TEST");
    EXPECT_EQ(CLSIDFromProgID(upper.c_str(), &clsid), S_OK);
    RegDeleteTreeW(HKEY_CLASSES_ROOT, progId.c_str());
    clsid = kSample;
    EXPECT_EQ(CLSIDFromProgID(progId.c_str(), &clsid), CO_E_CLASSSTRING);
    EXPECT_EQ(clsid, GUID{});
    EXPECT_EQ(CLSIDFromProgID(nullptr, &clsid), E_INVALIDARG);
}

TEST_F(Creation, PrefersWhatTheProcessRegistered)
{
    CCountedFactory factory;
    const CLSID clsid = FreshClass();
    DWORD cookie = 0;
    IUnknown* object = nullptr;
    ASSERT_EQ(CoRegisterClassObject(clsid, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              S_OK);
    EXPECT_NE(cookie, 0u);
    EXPECT_EQ(Create(clsid, &object), E_ABORT);
    EXPECT_EQ(Create(clsid, &object), E_ABORT);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(Create(clsid, &object), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoRevokeClassObject(cookie), E_INVALIDARG);
    EXPECT_EQ(factory.references, 1u);
}

TEST_F(Creation, ChecksWhatIsRegistered)
{
    CCountedFactory factory;
    DWORD cookie = 0;
    EXPECT_EQ(CoRegisterClassObject(kSample, nullptr, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
              E_INVALIDARG);
    EXPECT_EQ(CoRegisterClassObject(kSample, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, nullptr),
              E_INVALIDARG);
}
