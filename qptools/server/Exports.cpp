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
// The line numbers in the log book that tell the two apart. They are not positions in this file and never
// change.
constexpr ULONG kRegisterLine = 41;
constexpr ULONG kUnregisterLine = 47;

/// Writes an entry for each failure to the log book, and one for `status` if it is a failure that the report
/// does not contain. Returns `status`.
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

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID processEnds)
{
    return RunModuleEntry(instance, reason, processEnds != nullptr);
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
