// The result of DllCanUnloadNow.
#pragma once

#include <windows.h>

/// S_OK if `framework`, the result of the application object, is S_OK and `lockCount` returns 0; else
/// S_FALSE. `lockCount` is called only if `framework` is S_OK.
template <class LockCount>
HRESULT UnloadAnswer(HRESULT framework, LockCount&& lockCount)
{
    return framework == S_OK && lockCount() == 0 ? S_OK : S_FALSE;
}
