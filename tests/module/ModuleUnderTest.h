// The real module in a test, created as a host creates it.
#pragma once

#include "ComPtr.h"

#include <objbase.h>

/// For as long as one of these lives, CoCreateInstance, CoGetClassObject and CLSIDFromProgID find the
/// module's classes on this thread, whose apartment it enters. On Windows a manifest beside the program
/// serves them and the registry is not used, so that tests can run side by side; natively the module
/// registers itself in the registry in memory.
///
///     ModuleUnderTest module;
///     ComPtr<IQPUserActionLog> log;
///     ASSERT_EQ(module.Create(CLSID_QPUserActionLog, log), S_OK);
///
/// Members that hold objects of the module are declared after it, so that they are destroyed first. The test
/// program links test_module and names the module: qp_use_module(<program> qptools).
class ModuleUnderTest
{
public:
    /// Ends the program, with a reason, if the module cannot be loaded.
    ModuleUnderTest();
    ~ModuleUnderTest();
    ModuleUnderTest(const ModuleUnderTest&) = delete;
    ModuleUnderTest& operator=(const ModuleUnderTest&) = delete;

    /// CoCreateInstance in process.
    HRESULT Create(REFCLSID classId, REFIID iid, void** result, IUnknown* outer = nullptr) const;
    template <class T>
    HRESULT Create(REFCLSID classId, ComPtr<T>& result) const
    {
        return Create(classId, __uuidof(T), result.putVoid());
    }

    /// CLSIDFromProgID and CoCreateInstance.
    template <class T>
    HRESULT Create(const wchar_t* progId, ComPtr<T>& result) const
    {
        CLSID classId;
        const HRESULT status = CLSIDFromProgID(progId, &classId);
        return status < 0 ? status : Create(classId, result);
    }

    /// CoGetClassObject for the factory.
    HRESULT Factory(REFCLSID classId, ComPtr<IClassFactory>& result) const;

    /// The module's entry points, called directly.
    HRESULT CanUnloadNow() const;
    HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** result) const;
    HRESULT RegisterServer() const;
    HRESULT UnregisterServer() const;

    HMODULE Handle() const noexcept { return m_module; }

private:
    template <class Function>
    Function* Entry(const char* name) const;
    void FindClasses();
    void ForgetClasses();

    HMODULE m_module = nullptr;
    HANDLE m_context = INVALID_HANDLE_VALUE;
    ULONG_PTR m_cookie = 0;
};
