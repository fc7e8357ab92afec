// Shows that a method left its results and references unchanged.
#pragma once

#include "ComPtr.h"

/// An address that no method returns. An out parameter that still holds it was not written.
template <class T>
T* Untouched()
{
    static int place;
    return reinterpret_cast<T*>(&place);
}

/// The reference count of an object.
template <class T>
ULONG References(const ComPtr<T>& object)
{
    object->AddRef();
    return object->Release();
}
