// A linked-in module with one class that does nothing, to compare with.
#pragma once

#include <guiddef.h>

/// The module's one class; it answers for IUnknown alone.
extern const CLSID kEmptyClass;

/// Writes the class into the registry.
void RegisterEmptyModule();
