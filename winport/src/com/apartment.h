// The threads in apartments.
#pragma once

#include <objbase.h>

namespace winport
{
/// Whether the calling thread may use the runtime: it has entered an apartment, or some thread has entered
/// the multithreaded one, to which every other thread then belongs.
bool InApartment();

/// Releases what the process registered and unloads the component modules that the runtime loaded. Called
/// when the last thread leaves its apartment.
void ShutDownClasses();
} // namespace winport
