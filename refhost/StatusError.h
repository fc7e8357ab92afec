// Carries a COM status from inside a host call to the method's exception boundary.
#pragma once

#include <windows.h>

namespace refhost
{
struct StatusError
{
    HRESULT status;
};

/// Throws unless `condition` holds.
inline void Require(bool condition, HRESULT status = E_INVALIDARG)
{
    if (!condition)
        throw StatusError{status};
}

/// Throws if `status` is a failure.
inline void Check(HRESULT status)
{
    Require(status >= 0, status);
}
} // namespace refhost
