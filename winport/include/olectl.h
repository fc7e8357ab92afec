// Entry points by which a module registers itself.
#pragma once

#include "ocidl.h"

STDAPI DllRegisterServer();
STDAPI DllUnregisterServer();
