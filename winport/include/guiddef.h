// GUID and DEFINE_GUID, from C++ and from the generated C sources of identifiers.
#pragma once

#include "rpc.h"
