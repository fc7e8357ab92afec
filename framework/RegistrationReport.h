// The failures of registering or unregistering a module.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct RegistrationFailure
{
    std::wstring key;    ///< with its root, as in "HKCR\CLSID"; a resource or file if the failure is there
    std::wstring reason; ///< readable text; says what to do if access was denied
    HRESULT status;
};

struct RegistrationReport
{
    std::vector<RegistrationFailure> failures;

    /// Adds a failed system call. Returns its code as an HRESULT.
    HRESULT AddSystemError(std::wstring key, LSTATUS error);

    /// Adds a failed status and returns it.
    HRESULT AddStatus(std::wstring key, HRESULT status);

    /// Adds a failure with its own reason and returns its status.
    HRESULT Add(std::wstring key, std::wstring reason, HRESULT status);
};
