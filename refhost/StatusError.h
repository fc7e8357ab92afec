// A COM status on its way from inside a host call to the method's boundary.
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

/// Throws a failed status.
inline void Check(HRESULT status)
{
    Require(status >= 0, status);
}
} // namespace refhost
