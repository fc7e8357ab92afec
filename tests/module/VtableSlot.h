// Calls a method by its position in an object's table, as a caller in another language does.
#pragma once

#include <windows.h>

/// Calls the entry `slot` (QueryInterface is 0) of the object behind an interface pointer. The arguments are
/// not converted: their types must be exactly those of the method.
template <class... Arguments>
HRESULT CallSlot(void* object, int slot, Arguments... arguments)
{
    using Method = HRESULT(STDMETHODCALLTYPE*)(void* self, Arguments...);
    void* const* table = *static_cast<void***>(object);
    return reinterpret_cast<Method>(table[slot])(object, arguments...);
}
