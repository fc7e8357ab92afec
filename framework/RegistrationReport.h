// What went wrong while a module was added to the registry or taken out of it.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct RegistrationFailure
{
    std::wstring key; ///< from its root on, as in "HKCR\CLSID"; a resource or a file where no key is at fault
    std::wstring reason; ///< for a reader; says what to do where access was denied
    HRESULT status;
};

struct RegistrationReport
{
    std::vector<RegistrationFailure> failures;

    /// Notes a failed system call and gives its code as an HRESULT.
    HRESULT AddSystemError(std::wstring key, LSTATUS error);

    /// Notes a failed status and returns it.
    HRESULT AddStatus(std::wstring key, HRESULT status);

    /// Notes a failure that has a reason of its own and returns its status.
    HRESULT Add(std::wstring key, std::wstring reason, HRESULT status);
};
