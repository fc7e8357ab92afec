// What a module answers when it is asked whether it can be unloaded.
#pragma once

#include <windows.h>

/// S_OK only if `framework`, the answer of the user interface framework, is S_OK and the count that
/// `lockCount` then reads is 0; S_FALSE otherwise. After a no of the framework the count is not read.
template <class LockCount>
HRESULT UnloadAnswer(HRESULT framework, LockCount&& lockCount)
{
    return framework == S_OK && lockCount() == 0 ? S_OK : S_FALSE;
}
