// The exception boundary of a COM method.
#pragma once

#include "ComException.h"

#include <new>
#include <utility>

/// Runs `body`, which returns an HRESULT, and turns exceptions into a status: E_OUTOFMEMORY for
/// std::bad_alloc, the exception's status for a ComException, E_FAIL for any other.
template <class Body>
HRESULT ComBoundary(Body&& body) noexcept
{
    try
    {
        return std::forward<Body>(body)();
    }
    catch (const std::bad_alloc&)
    {
        return E_OUTOFMEMORY;
    }
    catch (const ComException& failure)
    {
        return failure.Status();
    }
    catch (...)
    {
        return E_FAIL;
    }
}
