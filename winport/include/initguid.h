// Included before other headers, makes their DEFINE_GUID lines definitions.
#pragma once

#ifndef INITGUID
#define INITGUID
#endif
#include "guiddef.h"
