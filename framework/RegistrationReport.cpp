#include "RegistrationReport.h"

#include <cwchar>

namespace
{
std::wstring Reason(HRESULT status)
{
    if (status == E_ACCESSDENIED)
        return L"access denied: run as administrator";
    wchar_t text[32];
    std::swprintf(text, 32, L"failed with 0x%08X", static_cast<unsigned>(status));
    return text;
}
} // namespace

HRESULT RegistrationReport::AddSystemError(std::wstring key, LSTATUS error)
{
    return AddStatus(std::move(key), HRESULT_FROM_WIN32(error));
}

HRESULT RegistrationReport::AddStatus(std::wstring key, HRESULT status)
{
    return Add(std::move(key), Reason(status), status);
}

HRESULT RegistrationReport::Add(std::wstring key, std::wstring reason, HRESULT status)
{
    failures.push_back({std::move(key), std::move(reason), status});
    return status;
}
