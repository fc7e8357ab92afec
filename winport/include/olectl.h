// Entry points by which a module registers itself.
#pragma once

#include "oaidl.h"

STDAPI DllRegisterServer();
STDAPI DllUnregisterServer();
