// The entry points of the module.

#include "XQPError.h"

#include "ComBoundary.h"
#include "ComModule.h"
#include "RegistrationReport.h"
#include "UiState.h"
#include "UnloadAnswer.h"
#include "WinApp.h"

#include <objbase.h>
#include <olectl.h>

namespace
{
// By which the two are told apart in the log book; they are no positions in this file and never change.
constexpr ULONG kRegisterLine = 41;
constexpr ULONG kUnregisterLine = 47;

/// Writes one entry for each failure to the log book, and one for `status` if it is a failure that none of
/// them accounts for. Returns `status`.
HRESULT LogFailures(HRESULT status, const RegistrationReport& report, const wchar_t* function, ULONG line)
{
    bool told = status >= 0;
    for (const RegistrationFailure& failure : report.failures)
    {
        const std::wstring text = failure.key + L": " + failure.reason;
        XQPError::WriteErrorToLogBook(L"QPTools", function, line, text.c_str(), failure.status);
        told = told || failure.status == status;
    }
    if (!told)
        XQPError::WriteErrorToLogBook(L"QPTools", function, line,
                                      status == E_OUTOFMEMORY ? L"out of memory" : L"failed at no key",
                                      status);
    return status;
}
} // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    return RunModuleEntry(instance, reason);
}

STDAPI DllCanUnloadNow()
{
    const CUiState state;
    const CWinApp* application = CWinApp::Get();
    const HRESULT framework = application ? application->CanUnloadNow() : S_OK;
    return UnloadAnswer(framework, [] { return ComModule::Get().LockCount(); });
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object)
{
    return ComModule::Get().GetClassObject(clsid, iid, object);
}

STDAPI DllRegisterServer()
{
    return ComBoundary([] {
        RegistrationReport report;
        const HRESULT status = ComModule::Get().RegisterServer(true, nullptr, report);
        return LogFailures(status, report, L"DllRegisterServer", kRegisterLine);
    });
}

STDAPI DllUnregisterServer()
{
    return ComBoundary([] {
        RegistrationReport report;
        const HRESULT status = ComModule::Get().UnregisterServer(true, nullptr, report);
        return LogFailures(status, report, L"DllUnregisterServer", kUnregisterLine);
    });
}
