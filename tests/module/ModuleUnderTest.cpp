#include "ModuleUnderTest.h"

#include "Resources.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{
[[noreturn]] void Die(const char* what)
{
    std::fprintf(stderr, "ModuleUnderTest: %s, error %u\n", what, static_cast<unsigned>(GetLastError()));
    std::abort();
}

#ifdef _WIN32
std::wstring BesideProgram(const wchar_t* name)
{
    const std::wstring program = ModulePath(nullptr);
    return program.substr(0, program.find_last_of(L"\\/") + 1) + name;
}
#endif
} // namespace

ModuleUnderTest::ModuleUnderTest()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    m_module = LoadLibraryW(L"qptools.dll");
    if (!m_module)
        Die("qptools.dll does not load");
    FindClasses();
}

ModuleUnderTest::~ModuleUnderTest()
{
    ForgetClasses();
    CoUninitialize();
    FreeLibrary(m_module);
}

#ifdef _WIN32
void ModuleUnderTest::FindClasses()
{
    const std::wstring manifest = BesideProgram(L"qptools_tests.manifest");
    ACTCTXW request = {};
    request.cbSize = sizeof(request);
    request.lpSource = manifest.c_str();
    m_context = CreateActCtxW(&request);
    if (m_context == INVALID_HANDLE_VALUE || !ActivateActCtx(m_context, &m_cookie))
        Die("the manifest cannot be activated");
}

void ModuleUnderTest::ForgetClasses()
{
    DeactivateActCtx(0, m_cookie);
    ReleaseActCtx(m_context);
}
#else
void ModuleUnderTest::FindClasses()
{
    if (RegisterServer() < 0)
        Die("the module does not register itself");
}

void ModuleUnderTest::ForgetClasses() {}
#endif

HRESULT ModuleUnderTest::Create(REFCLSID classId, REFIID iid, void** result, IUnknown* outer) const
{
    return CoCreateInstance(classId, outer, CLSCTX_INPROC_SERVER, iid, result);
}

HRESULT ModuleUnderTest::Factory(REFCLSID classId, ComPtr<IClassFactory>& result) const
{
    return CoGetClassObject(classId, CLSCTX_INPROC_SERVER, nullptr, __uuidof(IClassFactory),
                            result.putVoid());
}

template <class Function>
Function* ModuleUnderTest::Entry(const char* name) const
{
    void* address = reinterpret_cast<void*>(GetProcAddress(m_module, name));
    if (!address)
        Die(name);
    return reinterpret_cast<Function*>(address);
}

HRESULT ModuleUnderTest::CanUnloadNow() const
{
    return Entry<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow")();
}

HRESULT ModuleUnderTest::GetClassObject(REFCLSID classId, REFIID iid, void** result) const
{
    return Entry<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, iid, result);
}

HRESULT ModuleUnderTest::RegisterServer() const
{
    return Entry<HRESULT STDAPICALLTYPE()>("DllRegisterServer")();
}

HRESULT ModuleUnderTest::UnregisterServer() const
{
    return Entry<HRESULT STDAPICALLTYPE()>("DllUnregisterServer")();
}
